#pragma once

#include "support/server/ServerError.h"
#include "support/server/TdsLogin.h"

#include <QList>
#include <QStringList>

#include <condition_variable>
#include <mutex>
#include <optional>

namespace tsms::test {

/// What becomes of a statement that does not pass as it should.
struct StatementFault
{
    enum class Kind {
        Late,        ///< is executed and answered after a while
        Silent,      ///< is never executed nor answered
        CutBefore,   ///< the connection is cut and nothing executed
        CutInAnswer, ///< is executed; the connection is cut behind the first bytes of the answer
        CutInMiddle, ///< is executed; the connection is cut behind half of the answer
        CutAfter,    ///< is executed; the connection is cut without an answer
        Error,       ///< is not executed and answered by an error
        Answer,      ///< is not executed and answered by given tokens
    };

    Kind kind = Kind::Silent;
    int amount = 0; ///< of Late in milliseconds, of CutInAnswer in bytes
    ServerError error;
    QByteArray answer = {};
};

/// What becomes of a log-in that does not pass as it should.
enum class LogInFault {
    Refuse,       ///< with the failure of the user
    RefuseOnward, ///< so, and every later one too
    Cut,          ///< the connection is cut without an answer
};

/// What the server has been told to do wrong, and what it has seen. For any thread.
class ServerConduct
{
public:
    enum class LogIn { Right, Refuse, SilentAtPreLogIn, SilentAtLogIn };

    void SetLogIn(LogIn conduct);
    void RefuseLogIns(const QList<ServerError>& errors); ///< the user's failure when there are none
    LogIn TheLogIn() const;
    QList<ServerError> Refusal() const;
    void AddFault(const StatementFault& fault, int nth); ///< hits the n-th statement from now, from 1
    void AddFault(const StatementFault& fault, const QString& part); ///< hits every one that holds `part`
    void AddFault(LogInFault fault, int nth); ///< hits the n-th log-in from now, from 1
    void LeaveWithFault();                    ///< the next fault takes the server away with it
    bool TakeLeave();                         ///< at a fault: true when the server is to go away now
    void BehaveAgain();

    /// A log-in has come in. What is to become of it if it is hit.
    std::optional<LogInFault> NoteLogIn(const ServerLogin& logIn);
    void NoteConnection(int change); ///< 1 for one more, -1 for one less

    /// A statement has come in. What is to become of it if it does not pass.
    std::optional<StatementFault> NoteStatement(const QString& sql);

    QList<ServerLogin> LogIns() const;
    QStringList Statements() const;
    int Connections() const; ///< accepted so far
    bool WaitForOpen(int connections) const;
    bool WaitForStatements(int count) const;

private:
    struct Pending
    {
        StatementFault fault;
        int nth = 0; ///< 0 for one that goes by its part
        QString part;
    };

    template <class Reached> bool Wait(Reached reached) const;

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    LogIn logIn_ = LogIn::Right;
    QList<ServerError> refusal_;
    LogInFault logInFault_ = LogInFault::Refuse;
    int logInFaultIn_ = 0; ///< log-ins up to the one that is hit; 0 for none
    bool leaves_ = false;
    QList<Pending> faults_;
    QList<ServerLogin> logIns_;
    QStringList statements_;
    int connections_ = 0;
    int open_ = 0;
};

} // namespace tsms::test

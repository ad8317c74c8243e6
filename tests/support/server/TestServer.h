#pragma once

#include "support/server/ServerConduct.h"
#include "support/server/ServerDatabases.h"
#include "support/server/ServerUsers.h"

#include <QString>
#include <QThread>

#include <memory>

namespace tsms {
class Clock;
struct Session;
} // namespace tsms

namespace tsms::test {

/// Who owns the database of a server and may do everything there, and the name that it is given.
struct ServerAccount
{
    QString User = QStringLiteral("sms");
    QString Password = QStringLiteral("secret");
    QString Database = QStringLiteral("TSMS");
};

/// A database server in the test's own process, for clients that speak TDS 7.4. It listens on 127.0.0.1, on a
/// port that the system chooses, in a thread of its own, and executes what comes in on the file of an
/// embedded database, by that engine: its dialect, its collation, its clock. Around it stands the server's
/// manner: column types, code page 949, widths, error numbers.
///
/// A statement is a batch as the client sends it; those that only set options of the connection or name its
/// database are neither counted nor listed. The n-th statement is counted from now, from 1, over all
/// connections.
class TestServer
{
public:
    /// Listens at once. `path` is that of the file; the clock outlives the server.
    TestServer(const QString& path, const Clock& clock, ServerAccount account = {});
    ~TestServer(); ///< cuts every connection and waits for nobody
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    quint16 Port() const { return port_; }
    const ServerAccount& Account() const { return account_; }

    /// Lets somebody else log in to the database, who may do nothing there until a GRANT of the owner says
    /// so.
    void AddUser(const QString& user, const QString& password) { users_.Add(user, password); }

    /// Sets the session's launch fields so that it reaches this server.
    void Describe(Session& session) const;

    // Log-ins, from now on. Silence leaves the client waiting.
    /// With the failure of the user, or with other errors.
    void RefuseLogIns(const QList<ServerError>& errors = {}) { conduct_.RefuseLogIns(errors); }
    void StaySilentAtPreLogIn() { conduct_.SetLogIn(ServerConduct::LogIn::SilentAtPreLogIn); }
    void StaySilentAtLogIn() { conduct_.SetLogIn(ServerConduct::LogIn::SilentAtLogIn); }

    /// The n-th from now, from 1: refused, refused with all that follow, or cut.
    void RefuseLogIn(int nth) { conduct_.AddFault(LogInFault::Refuse, nth); }
    void RefuseLogInsFrom(int nth) { conduct_.AddFault(LogInFault::RefuseOnward, nth); }
    void CutLogIn(int nth) { conduct_.AddFault(LogInFault::Cut, nth); }

    // Statements; see StatementFault. A client that gives up a silent or a late one is told at once that it
    // is cancelled, and it has not been executed.
    void AnswerLate(int milliseconds, int nth = 1);
    void StaySilent(int nth = 1);
    void CutBefore(int nth = 1);
    void CutInAnswer(int bytes, int nth = 1);
    void CutInMiddle(int nth = 1);
    void CutAfter(int nth = 1);
    void Fail(const ServerError& error, int nth = 1);
    void FailWhere(const QString& part, const ServerError& error);   ///< every statement that holds `part`
    void AnswerWith(const QByteArray& tokens, int nth = 1);          ///< made of what TdsTokens.h gives
    void AnswerWhere(const QString& part, const QByteArray& tokens); ///< every statement that holds `part`

    /// The next n-th log-in or statement that goes wrong takes the server away with it: from there on it is
    /// as after Stop, but what it has answered still arrives.
    void LeaveWithFault() { conduct_.LeaveWithFault(); }

    void BehaveAgain(); ///< takes back all of the above

    void Stop();  ///< refuses new connections and cuts those that are there
    void Start(); ///< listens again, on the same port, unless it does

    QStringList Statements() const { return conduct_.Statements(); } ///< in the order in which they came in
    QList<ServerLogin> LogIns() const { return conduct_.LogIns(); }  ///< tried, refused ones too
    int ConnectionCount() const { return conduct_.Connections(); }   ///< accepted so far

    /// Waits until so many connections are open. False when that does not come about.
    bool WaitForOpenConnections(int count) const { return conduct_.WaitForOpen(count); }

    /// Waits until so many statements have come in. False when they do not.
    bool WaitForStatements(int count) const { return conduct_.WaitForStatements(count); }

private:
    class Client;
    class Worker;

    const Clock& clock_;
    ServerAccount account_;
    ServerDatabases databases_; // of the server's thread alone, once that runs
    ServerUsers users_;
    ServerConduct conduct_;
    quint16 port_ = 0;
    QThread thread_;
    Worker* worker_ = nullptr;
};

} // namespace tsms::test

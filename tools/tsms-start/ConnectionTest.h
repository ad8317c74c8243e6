#pragma once

#include "store/engine/Connection.h"
#include "tsms-start/SavedConnection.h"

#include <QList>

#include <functional>
#include <memory>

namespace tsms {

class Clock;
struct TableDescription;

/// One line of a connection test.
struct TestStep
{
    enum class Kind { Driver, Answer, LogIn, Database, Tables, Logs, Rights, Gateway };
    enum class Verdict { NotSeen, Good, Bad };

    Kind kind;
    QString title;
    Verdict verdict = Verdict::NotSeen; ///< NotSeen also where an earlier fault keeps it from being looked at
    QString words = {};                 ///< what is wrong and what to do; empty unless Bad
};

/// Answers with what keeps the gateway's description from being read; empty when it was read.
using GatewayLook = std::function<QString()>;

/// Looks, as the program would, whether a connection can be worked on: a list of steps, each with what is
/// wrong and what to do. It changes nothing in the database.
class ConnectionTest
{
public:
    ConnectionTest(SavedConnection connection, QString password, const Clock& clock,
                   ConnectionMaker makeConnection, GatewayLook gateway);

    const QList<TestStep>& Steps() const { return steps_; }

    /// Takes all steps in their order; `onVerdict` after each verdict. Raises nothing that the database or
    /// the gateway does.
    void Run(const std::function<void()>& onVerdict);

    /// Whether the server has refused the password.
    bool HasRefusedPassword() const;

private:
    void LookAtDatabase();
    bool Open();
    void TellOpeningFault(long number, const QString& words);
    void TellUnreachable(const QString& words);
    void LookAtTables();
    void LookAtLogs();
    void LookAtRights();
    QList<TableDescription> Logs() const;

    bool Has(TestStep::Kind kind) const;
    void Tell(TestStep::Kind kind, TestStep::Verdict verdict, const QString& words = {});
    void Pass(TestStep::Kind kind) { Tell(kind, TestStep::Verdict::Good); }
    void Fail(TestStep::Kind kind, const QString& words) { Tell(kind, TestStep::Verdict::Bad, words); }

    SavedConnection saved_;
    QString password_;
    const Clock& clock_;
    ConnectionMaker makeConnection_;
    GatewayLook gateway_;
    std::function<void()> onVerdict_;
    std::unique_ptr<Connection> connection_;
    QList<TestStep> steps_;
};

} // namespace tsms

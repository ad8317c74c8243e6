#pragma once

#include "store/engine/Connection.h"
#include "tsms-start/SavedConnection.h"

#include <QList>

#include <functional>
#include <initializer_list>
#include <memory>

namespace tsms {

class Clock;
struct TableDescription;

/// One line of a connection test.
struct TestStep
{
    enum class Kind { Driver, Answer, LogIn, Database, Tables, Logs, Rights, Gateway };
    enum class Verdict { NotSeen, Trying, Good, Bad };

    Kind kind;
    QString title;
    Verdict verdict = Verdict::NotSeen; ///< NotSeen also where an earlier fault keeps it from being looked at
    QString words = {};                 ///< what is wrong and what to do; empty unless Bad
};

/// Answers with what keeps the gateway's description from being read; empty when it was read. It is asked in
/// any thread.
using GatewayLook = std::function<QString()>;

/// Looks, as the program would, whether a connection can be worked on: a list of steps, each with what is
/// wrong and what to do. It changes nothing in the database.
class ConnectionTest
{
public:
    ConnectionTest(SavedConnection connection, QString password, const Clock& clock,
                   ConnectionMaker makeConnection, GatewayLook gateway);

    const QList<TestStep>& Steps() const { return steps_; }

    /// Takes all steps in their order; `onChange` whenever a step is begun or known. Raises nothing that the
    /// database or the gateway does; what `onChange` raises ends the test.
    void Run(const std::function<void()>& onChange);

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
    void Try(std::initializer_list<TestStep::Kind> kinds);
    void Tell(TestStep::Kind kind, TestStep::Verdict verdict, const QString& words = {});
    void Pass(TestStep::Kind kind) { Tell(kind, TestStep::Verdict::Good); }
    void Fail(TestStep::Kind kind, const QString& words) { Tell(kind, TestStep::Verdict::Bad, words); }

    SavedConnection saved_;
    QString password_;
    const Clock& clock_;
    ConnectionMaker makeConnection_;
    GatewayLook gateway_;
    std::function<void()> onChange_;
    std::unique_ptr<Connection> connection_;
    QList<TestStep> steps_;
};

/// Whether the server has refused the password.
bool HasRefusedPassword(const QList<TestStep>& steps);

} // namespace tsms

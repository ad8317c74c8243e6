#pragma once

#include "support/database/TestDatabase.h"
#include "support/gateway/TestGateway.h"

#include <QProcess>

namespace tsms::test {

/// A second program, in a process of its own, that sends to some recipients named `name` and their number.
class SendingProcess
{
public:
    /// It kills itself before its `deadly`-th statement, from 1; 0 for never.
    SendingProcess(const TestDatabase& database, const TestGateway& gateway, int recipients,
                   const QString& name, int deadly = 0);
    ~SendingProcess();

    void Kill();
    bool EndsWell();    ///< waits; true when every message went and no box came
    bool EndsByAKill(); ///< waits

private:
    bool Ends();

    QProcess process_;
};

} // namespace tsms::test

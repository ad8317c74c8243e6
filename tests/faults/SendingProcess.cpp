#include "faults/SendingProcess.h"

#include "session/Session.h"

namespace tsms::test {

namespace {

constexpr int LongEnough = 20000; // milliseconds, on a busy machine

} // namespace

SendingProcess::SendingProcess(const TestDatabase& database, const TestGateway& gateway, int recipients,
                               const QString& name, int deadly)
{
    Session session;
    database.Describe(session);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(TSMS_SENDING_PROGRAM),
                   {session.DBCatalog, session.DBServer, session.DBPort, gateway.WsdlUrl(),
                    QString::number(recipients), name, QString::number(deadly)});
}

SendingProcess::~SendingProcess()
{
    Kill();
}

void SendingProcess::Kill()
{
    process_.kill();
    Ends();
}

bool SendingProcess::EndsWell()
{
    return Ends() && process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
}

bool SendingProcess::EndsByAKill()
{
    return Ends() && process_.exitStatus() == QProcess::CrashExit;
}

bool SendingProcess::Ends()
{
    return process_.state() == QProcess::NotRunning || process_.waitForFinished(LongEnough);
}

} // namespace tsms::test

#include "compose/DispatchRun.h"
#include "compose/Draft.h"
#include "compose/RunDisplay.h"
#include "gateway/ModSMS.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "store/LoadSMSSetup.h"
#include "store/MakeConnections.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/ListOfRows.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <QCoreApplication>

#include <csignal>

using namespace tsms;
using namespace tsms::test;

namespace {

ListOfRows Recipients(int count, const QString& name)
{
    ListOfRows list;
    for (int row = 1; row <= count; ++row)
        list.rows.push_back({.name = name + QString::number(row), .phone = u"010-1234-5678"_q});
    return list;
}

class NoDisplay final : public RunDisplay
{
public:
    void SetRunBusy(bool) override {}
    void SetBarMaximum(int) override {}
    void SetBarValue(int) override {}
    void ShowCounts(const QString&, const QString&) override {}
    void ShowStatus(const QString&) override {}
};

} // namespace

/// Reads the account and sends to some recipients, as a click on "send" does. Arguments: database, server and
/// port, the gateway's description, the number of recipients, the beginning of their names, and the statement
/// before which the process is killed, from 1, or 0. Ends with 0 when every message went and no box came.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int count = arguments.value(5).toInt();
    const int deadly = arguments.value(7).toInt();

    FixedClock clock;
    Session session;
    session.DBCatalog = arguments.value(1);
    session.DBServer = arguments.value(2);
    session.DBPort = arguments.value(3);
    session.DBUser = u"sms"_q;
    session.DBPassword = u"secret"_q;
    ScriptedDesktop desktop;
    desktop.AllowBoxes();
    FailingConnections connections(MakeConnections(clock));
    int statements = 0;
    connections.BeforeStatement([&](const QString&) {
        if (++statements == deadly)
            std::raise(SIGKILL);
    });
    DBConnect db(session, desktop, connections.Maker());
    ModSMS sms(session, db, desktop, clock, arguments.value(4));

    LoadSMSSetup(session, db);
    const ListOfRows recipients = Recipients(count, arguments.value(6));
    const Draft draft{recipients, count, u"안녕하세요"_q, u"02-1234-5678"_q};
    NoDisplay display;
    DispatchRun run(session, db, sms, draft, display);
    run.RunSend();
    return run.CountOK == count && desktop.boxes.isEmpty() ? 0 : 1;
}

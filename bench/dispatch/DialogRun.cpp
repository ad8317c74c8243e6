#include "bench/dispatch/Workload.h"

#include "compose/GridRecipients.h"
#include "compose/MakeSMSTransport.h"
#include "compose/ModStep1.h"
#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/ScriptedDesktop.h"
#include "toolkit/Application.h"
#include "toolkit/Controls.h"
#include "toolkit/fpSpread.h"
#include "toolkit/Theme.h"

#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

void FillGrid(fpSpread& grid)
{
    InitRecipientGrid(grid);
    grid.SetMaxRows(Rows);
    for (int row = 1; row <= Rows; ++row) {
        grid.SetText(NameColumn, row, RecipientName(row));
        grid.SetText(PhoneColumn, row, RecipientNumber(row));
    }
}

Session LaunchedSession(const World& world)
{
    Session session;
    session.DBCatalog = world.database;
    session.DBServer = QStringLiteral("(embedded)");
    session.DBPort = QStringLiteral("0");
    session.UserData1 = UserData1;
    session.UserData2 = UserData2();
    return session;
}

void DemandOneBox(const test::ScriptedDesktop& desktop, MsgBoxStyle style)
{
    if (desktop.boxes.size() == 1 && desktop.boxes.first().style == style)
        return;
    for (const test::Box& box : desktop.boxes)
        std::fprintf(stderr, "%s: %s\n", qPrintable(box.title), qPrintable(box.text));
    std::exit(1);
}

} // namespace

Cost RunThroughDialog(const World& world)
{
    int count = 1;
    char name[] = "bench_dispatch";
    char* arguments[] = {name, nullptr};
    Application application(count, arguments);
    theme::ApplyTheme(application);
    test::ScriptedDesktop desktop;
    desktop.AllowBoxes();
    application.SetDesktop(desktop);
    const SystemClock clock;
    Session session = LaunchedSession(world);
    DBConnect db(session, desktop, MakeConnections(clock));
    ModSMS sms(session, db, desktop, clock, world.wsdlUrl);
    Services services{session, desktop, clock, db, sms};

    fpSpread grid;
    FillGrid(grid);
    const GridRecipients recipients(grid);
    MakeSMSTransport dialog(services, {recipients, MessageTemplate, SenderNumber});
    dialog.SetTotal(Rows);

    Cost cost;
    constexpr int settledMilliseconds = 300; // by then the dialog has been painted and nothing is left to do
    QTimer::singleShot(settledMilliseconds, [&] {
        const std::int64_t from = Nanoseconds();
        dialog.Button(0)->Click();
        cost.nanoseconds = static_cast<double>(Nanoseconds() - from);
    });
    dialog.ShowModal();
    DemandOneBox(desktop, MsgBoxInformation);
    cost.peakMemory = PeakMemory();
    return cost;
}

} // namespace tsms::bench

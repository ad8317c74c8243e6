#include "bench/statistics/Year.h"

#include "account/ModStep3.h"
#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/ScriptedDesktop.h"
#include "toolkit/Application.h"
#include "toolkit/fpSpread.h"
#include "toolkit/Theme.h"

#include <QStringList>

namespace tsms::bench {

namespace {

QString FiguresOf(const fpSpread& grid)
{
    QStringList months;
    for (int month = 1; month <= Months; ++month)
        months += QStringList{grid.GetText(month, MonthSent), grid.GetText(month, MonthDone),
                              grid.GetText(month, MonthFailed)}
                      .join(u'/');
    return months.join(u',');
}

} // namespace

Outcome RunThroughGrid(const QString& database)
{
    int count = 1;
    char name[] = "bench_statistics";
    char* arguments[] = {name, nullptr};
    Application application(count, arguments);
    theme::ApplyTheme(application);
    test::ScriptedDesktop desktop;
    application.SetDesktop(desktop);
    const SystemClock clock;
    Session session;
    session.DBCatalog = database;
    session.DBServer = QStringLiteral("(embedded)");
    session.DBPort = QStringLiteral("0");
    DBConnect db(session, desktop, MakeConnections(clock));
    ModSMS sms(session, db, desktop, clock, QString());
    Services services{session, desktop, clock, db, sms};
    fpSpread grid;
    InitMonthGrid(grid);
    grid.resize(940, 140);
    grid.show();
    Application::processEvents();

    Outcome outcome;
    const std::int64_t from = Nanoseconds();
    QueryMonths(services, grid, QString::number(LogYear));
    Application::processEvents(); // the figures are painted
    outcome.cost = {static_cast<double>(Nanoseconds() - from), PeakMemory()};
    outcome.figures = FiguresOf(grid);
    return outcome;
}

} // namespace tsms::bench

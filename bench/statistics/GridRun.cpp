#include "bench/ProgramDesk.h"
#include "bench/statistics/Year.h"

#include "account/ModStep3.h"
#include "toolkit/grid/fpSpread.h"

#include <QStringList>

namespace tsms::bench {

namespace {

QString FiguresOf(const fpSpread& grid)
{
    QStringList months;
    for (int month = 1; month <= Months; ++month)
        months += QStringList{grid.Cells().Text(month, MonthSent), grid.Cells().Text(month, MonthDone),
                              grid.Cells().Text(month, MonthFailed)}
                      .join(u'/');
    return months.join(u',');
}

} // namespace

Outcome RunThroughGrid(const QString& database)
{
    ProgramDesk desk(database);
    fpSpread grid;
    InitMonthGrid(grid);
    grid.resize(940, 140);
    grid.show();
    Application::processEvents();

    Outcome outcome;
    const std::int64_t from = Nanoseconds();
    QueryMonths(desk.services, grid, QString::number(LogYear));
    Application::processEvents(); // the figures are painted
    outcome.cost = {static_cast<double>(Nanoseconds() - from), PeakMemory()};
    outcome.figures = FiguresOf(grid);
    return outcome;
}

} // namespace tsms::bench

#include "bench/ChildProcess.h"
#include "bench/statistics/Year.h"

#include <QTemporaryDir>

namespace tsms::bench {

namespace {

constexpr double DemandedRatio = 1.2;

Cost RunOnce(const QString& side, const QString& database, QByteArray& figures)
{
    const SideReport report = RunSide({side, database}, 1);
    figures = report.words[0];
    return report.cost;
}

void CompareAll()
{
    const QTemporaryDir folder;
    const QString database = folder.filePath(QStringLiteral("year.db"));
    MakeYear(database);
    QByteArray figures[2];
    Compare(
        {.what = "statistics of a year",
         .size = std::to_string(LogRows) + " rows",
         .rounds = 3,
         .limit = DemandedRatio,
         .warmUp = false},
        [&] { return RunOnce(QStringLiteral("grid"), database, figures[0]); },
        [&] { return RunOnce(QStringLiteral("bare"), database, figures[1]); },
        [&] {
            Demand(figures[0] == figures[1] && figures[0].count(',') == 11,
                   "bench_statistics: the two sides did not come to the same figures");
        });
    PrintNote("statistics: each side in a process of its own, on one database in the temporary folder");
}

/// "grid" or "bare", and a database.
void BeSide(const QStringList& arguments)
{
    const Outcome outcome =
        arguments[0] == u"grid" ? RunThroughGrid(arguments[1]) : RunBareQuery(arguments[1]);
    TellCost(outcome.cost, outcome.figures.toLatin1());
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}

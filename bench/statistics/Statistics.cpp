#include "bench/ChildProcess.h"
#include "bench/statistics/Year.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr int Rounds = 7;
constexpr double DemandedRatio = 1.2;

Cost RunOnce(const QString& side, const QString& database, QByteArray& figures)
{
    const ChildReport report = RunChild(QCoreApplication::applicationFilePath(), {side, database}, 3);
    figures = report.words[2];
    return {report.words[0].toDouble(), report.words[1].toLong()};
}

int Compare()
{
    const QTemporaryDir folder;
    const QString database = folder.filePath(QStringLiteral("year.db"));
    MakeYear(database);
    std::vector<Cost> ours;
    std::vector<Cost> baseline;
    for (int round = 0; round < Rounds; ++round) {
        const bool oursFirst = round % 2 == 0;
        QByteArray figures[2];
        const Cost first =
            RunOnce(oursFirst ? QStringLiteral("grid") : QStringLiteral("bare"), database, figures[0]);
        const Cost second =
            RunOnce(oursFirst ? QStringLiteral("bare") : QStringLiteral("grid"), database, figures[1]);
        ours.push_back(oursFirst ? first : second);
        baseline.push_back(oursFirst ? second : first);
        if (figures[0] != figures[1] || figures[0].count(',') != 11) {
            std::fprintf(stderr, "bench_statistics: the two sides did not come to the same figures\n");
            return 1;
        }
    }
    PrintRow("statistics of a year", std::to_string(LogRows) + " rows", MedianCost(ours),
             MedianCost(baseline), DemandedRatio);
    PrintNote("statistics: medians of " + std::to_string(Rounds) +
              " rounds, each side in a process of its own, on one database in the temporary folder");
    return 0;
}

int RunSide(const QString& side, const QString& database)
{
    const Outcome outcome = side == u"grid" ? RunThroughGrid(database) : RunBareQuery(database);
    std::printf("%.0f %ld %s\n", outcome.cost.nanoseconds, outcome.cost.peakMemory,
                qPrintable(outcome.figures));
    return 0;
}

} // namespace

} // namespace tsms::bench

// Without arguments: the comparison. With "grid" or "bare" and a database: one run of one side.
int main(int argc, char** argv)
{
    using namespace tsms::bench;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the processes of both sides inherit it
    if (argc == 3)
        return RunSide(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    const QCoreApplication application(argc, argv);
    return Compare();
}

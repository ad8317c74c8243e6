#include "bench/ChildProcess.h"
#include "bench/Measure.h"

#include "runtime/Clock.h"
#include "store/EmbeddedTables.h"
#include "tsms-db/Demo.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr int Starts = 15;
constexpr double DemandedRatio = 2;

/// From the start of a process to its first painted window.
struct Start
{
    Cost cost;
    QByteArrayList size;
};

Start StartOnce(const QString& program, const QStringList& arguments)
{
    const ChildReport report =
        RunChild(QCoreApplication::applicationDirPath() + u'/' + program, arguments, 4);
    return {{static_cast<double>(report.words[0].toLongLong() - report.started), report.words[1].toLong()},
            report.words.sliced(2)};
}

void MakeDemo(const QString& path)
{
    const SystemClock clock;
    const YearRange years;
    CreateEmbeddedDatabase(path, years, clock,
                           [&](Connection& connection) { FillDemo(connection, clock.Now(), years); });
}

/// Both programs in turn on one platform of the toolkit.
void Compare(const QStringList& launchLine, const QByteArray& platform)
{
    qputenv("QT_QPA_PLATFORM", platform); // the processes inherit it
    std::vector<Cost> ours;
    std::vector<Cost> baseline;
    for (int start = 0; start <= Starts; ++start) {
        const Start program = StartOnce(QStringLiteral("bench_launch_program"), launchLine);
        const Start empty = StartOnce(QStringLiteral("bench_launch_empty"), {});
        if (program.size != empty.size) {
            std::fprintf(stderr, "bench_launch: the first windows are not of one size\n");
            std::exit(1);
        }
        if (start == 0)
            continue; // brings both into the system's caches
        ours.push_back(program.cost);
        baseline.push_back(empty.cost);
    }
    PrintRow("start to first painted window", "demo database, " + platform.toStdString(), MedianCost(ours),
             MedianCost(baseline), DemandedRatio);
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    using namespace tsms::bench;
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString database = folder.filePath(QStringLiteral("demo.db"));
    MakeDemo(database);
    const QStringList launchLine{database + QStringLiteral("■(embedded)■0■demo■demo■1■demo")};
    Compare(launchLine, "offscreen");
    if (qEnvironmentVariableIsSet("DISPLAY"))
        Compare(launchLine, "xcb");
    PrintNote("start: medians of " + std::to_string(Starts) +
              " starts in turn; the empty window shows no text");
    return 0;
}

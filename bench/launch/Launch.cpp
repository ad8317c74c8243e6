#include "bench/ChildProcess.h"
#include "bench/Measure.h"

#include "runtime/Clock.h"
#include "store/embedded/EmbeddedTables.h"
#include "tsms-db/Demo.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace tsms::bench {

namespace {

constexpr int Starts = 11;
constexpr double DemandedOffscreen = 2;
constexpr double DemandedOnScreen = 1.5; // where the empty window takes longer, too

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

/// Both programs on one platform of the toolkit.
void CompareOn(const QStringList& launchLine, const QByteArray& platform, double limit)
{
    qputenv("QT_QPA_PLATFORM", platform); // the processes inherit it
    Start program;
    Start empty;
    Compare(
        {.what = "start to first painted window",
         .size = "demo database, " + platform.toStdString(),
         .rounds = Starts,
         .limit = limit},
        [&] {
            program = StartOnce(QStringLiteral("bench_launch_program"), launchLine);
            return program.cost;
        },
        [&] {
            empty = StartOnce(QStringLiteral("bench_launch_empty"), {});
            return empty.cost;
        },
        [&] { Demand(program.size == empty.size, "bench_launch: the first windows are not of one size"); });
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
    CompareOn(launchLine, "offscreen", DemandedOffscreen);
    if (qEnvironmentVariableIsSet("DISPLAY"))
        CompareOn(launchLine, "xcb", DemandedOnScreen);
    PrintNote("start: the empty window shows no text");
    return 0;
}

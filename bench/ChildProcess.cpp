#include "bench/ChildProcess.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

ChildReport RunChild(const QString& program, const QStringList& arguments, int words)
{
    QProcess process;
    ChildReport report;
    report.started = Nanoseconds();
    process.start(program, arguments, QIODevice::ReadOnly);
    process.waitForFinished(-1);
    const QByteArray output = process.readAllStandardOutput().simplified();
    report.words = output.split(' ');
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
        report.words.size() == words)
        return report;
    std::fprintf(stderr, "%s failed: %s\n%s", qPrintable(program), output.constData(),
                 process.readAllStandardError().constData());
    std::exit(1);
}

SideReport RunSide(const QStringList& arguments, int words)
{
    constexpr int costWords = 2;
    const ChildReport report =
        RunChild(QCoreApplication::applicationFilePath(), arguments, costWords + words);
    return {{report.words[0].toDouble(), report.words[1].toLong()}, report.words.sliced(costWords)};
}

void TellCost(const Cost& cost, const QByteArray& more)
{
    std::printf("%.0f %ld %s\n", cost.nanoseconds, cost.peakMemory, more.constData());
}

int RunBenchmark(int argc, char** argv, void (*beSide)(const QStringList& arguments), void (*compare)())
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the processes of the sides inherit it
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    if (!arguments.isEmpty()) {
        beSide(arguments);
        return 0;
    }
    const QCoreApplication application(argc, argv);
    compare();
    return 0;
}

} // namespace tsms::bench

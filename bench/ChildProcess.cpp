#include "bench/ChildProcess.h"

#include "bench/Measure.h"

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

} // namespace tsms::bench

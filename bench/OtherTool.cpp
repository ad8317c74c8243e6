#include "bench/OtherTool.h"

#include <QFileInfo>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

const QString Python = QStringLiteral("/usr/bin/python3"); // any other would not know the system's packages

bool HasEnded(const QProcess& process)
{
    return process.error() == QProcess::UnknownError && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

} // namespace

bool HasPython(const std::string& package, const QString& module)
{
    return HasTool(package, Python, {QStringLiteral("-c"), QStringLiteral("import ") + module});
}

bool HasTool(const std::string& package, const QString& program, const QStringList& trial)
{
    QProcess process;
    process.start(program, trial, QIODevice::ReadOnly);
    process.waitForFinished(-1);
    if (HasEnded(process))
        return true;
    PrintNote("rows beside " + package + " are left out: it is not installed");
    return false;
}

ToolRun RunTool(const QString& program, const QStringList& arguments, const QByteArray& input)
{
    QProcess process;
    const std::int64_t from = Nanoseconds();
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    const auto took = static_cast<double>(Nanoseconds() - from);
    QByteArray output = process.readAllStandardOutput();
    if (HasEnded(process))
        return {{took, NotMeasured}, std::move(output)};
    std::fprintf(stderr, "%s failed: %s\n%s", qPrintable(program), output.constData(),
                 process.readAllStandardError().constData());
    std::exit(1);
}

Cost ConvertInOffice(const QString& profile, const QString& file, const QStringList& conversion)
{
    const QStringList options{QStringLiteral("-env:UserInstallation=file://") + profile,
                              QStringLiteral("--headless")};
    const QStringList place{QStringLiteral("--outdir"), QFileInfo(file).path(), file};
    return RunTool(QStringLiteral("soffice"), options + conversion + place).cost;
}

ScriptRun RunScript(const QString& script, const QStringList& arguments, int demanded)
{
    const QString path = QStringLiteral(TSMS_BENCH_SOURCE "/") + script;
    const ToolRun run = RunTool(Python, QStringList(path) + arguments);
    const QByteArrayList words = run.output.simplified().split(' ');
    Demand(words.size() == 2 && words[1].toInt() == demanded, "a script has not seen all");
    return {{words[0].toDouble(), NotMeasured}, run.cost};
}

void CompareWithScript(const Comparison& comparison, const Run& ours,
                       const std::function<ScriptRun()>& script)
{
    std::vector<Cost> wholes;
    const std::vector<Cost> medians = RunInTurn(comparison, {ours, [&] {
                                                                 const ScriptRun run = script();
                                                                 wholes.push_back(run.whole);
                                                                 return run.work;
                                                             }});
    if (comparison.warmUp)
        wholes.erase(wholes.begin());
    const int rounds = RoundsOf(comparison);
    PrintRow(comparison.what, comparison.size, {medians[0], medians[1], rounds}, comparison.limit);
    PrintRow(comparison.what + ", with its start", comparison.size, {medians[0], MedianCost(wholes), rounds},
             comparison.limit);
}

} // namespace tsms::bench

#pragma once

#include "bench/Measure.h"

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <string>

namespace tsms::bench {

/// The sizes at which we stand beside other programs: the small one shows what their start takes.
inline constexpr int ToolSizes[] = {Sizes[0], LargestSize};

/// Whether a program is there, and does what `trial` asks of it. Where not, a note below the tables says that
/// the rows of `package` are left out.
bool HasTool(const std::string& package, const QString& program, const QStringList& trial);

/// The same of a module of the system's Python.
bool HasPython(const std::string& package, const QString& module);

/// One run of a program.
struct ToolRun
{
    Cost cost; ///< from its start to its end; its memory is not measured
    QByteArray output;
};

/// Runs a program to its end, with `input` as its standard input. Ends this process with words on stderr when
/// it fails.
ToolRun RunTool(const QString& program, const QStringList& arguments, const QByteArray& input = {});

/// Runs LibreOffice without a window, until `file` stands converted beside itself as its options `conversion`
/// say. `profile` is the folder of its settings, which the first run makes.
Cost ConvertInOffice(const QString& profile, const QString& file, const QStringList& conversion);

/// One run of a script of Python.
struct ScriptRun
{
    Cost work;  ///< as the script tells it: without the start of Python and of the library
    Cost whole; ///< with them
};

/// Runs a script of this folder of the source, which prints the nanoseconds of its work and `demanded`, by
/// which it shows that it has seen all. Ends this process with words on stderr when it fails.
ScriptRun RunScript(const QString& script, const QStringList& arguments, int demanded);

/// Compares ours with a script, in turn. Prints a row beside its work and one beside its whole.
void CompareWithScript(const Comparison& comparison, const Run& ours,
                       const std::function<ScriptRun()>& script);

} // namespace tsms::bench

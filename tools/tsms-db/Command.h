#pragma once

#include <QStringList>
#include <QTextStream>

namespace tsms {

class Clock;

/// Runs the program: `arguments` begins with its name. Answers with the exit status: 0 done, 1 refused or
/// failed, 2 not understood.
int RunDatabaseTool(const QStringList& arguments, const Clock& clock, QTextStream& out, QTextStream& err);

} // namespace tsms

#pragma once

#include <QString>

namespace tsms {

/// Starts the program that lies in `folder` by a launch line, and leaves it to itself. The line passes from
/// here to it in memory and as its one argument, and stands in no file. False when it could not be started.
bool LaunchProgram(const QString& folder, const QString& launchLine);

} // namespace tsms

#pragma once

#include <QString>

namespace tsms {

/// The program's own command line behind the program name, as one text. A launcher that did not quote it
/// has it joined again with single blanks. The system's copy is then overwritten, so that a password in it
/// does not stand in the list of processes. Call it before anything else looks at argv.
QString TakeCommandLine(int argc, char** argv);

} // namespace tsms

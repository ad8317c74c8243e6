#pragma once

#include <QString>
#include <QStringView>

namespace tsms {

/// The program's own command line behind the program name, as one text. A launcher that did not quote it
/// has it joined again with single blanks. The system's copy is then overwritten, so that a password in it
/// does not stand in the list of processes. Call it before anything else looks at argv.
QString TakeCommandLine(int argc, char** argv);

#ifdef Q_OS_WIN
/// What stands behind the program's name in the one text that a program is started with: as it stands, or
/// where it begins with a quotation mark, its words without such marks.
QString TextBehindProgram(QStringView line);
#endif

} // namespace tsms

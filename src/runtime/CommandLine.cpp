#include "runtime/CommandLine.h"

#include <QStringList>

#include <algorithm>
#include <cstring>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#include <shellapi.h>
#endif

namespace tsms {

#ifdef Q_OS_WIN

QString TakeCommandLine(int, char**)
{
    // argv is in the local code page there; the wide command line loses nothing.
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    QStringList line;
    for (int i = 1; i < count; ++i)
        line += QString::fromWCharArray(words[i]);
    LocalFree(words);
    return line.join(u' ');
}

#else

QString TakeCommandLine(int argc, char** argv)
{
    QStringList line;
    for (int i = 1; i < argc; ++i) {
        line += QString::fromLocal8Bit(argv[i]);
        std::fill_n(argv[i], std::strlen(argv[i]), ' ');
    }
    return line.join(u' ');
}

#endif

} // namespace tsms

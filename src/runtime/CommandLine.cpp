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

namespace {

/// Where the program's own name ends; it may stand in quotation marks.
qsizetype EndOfProgram(QStringView line)
{
    const qsizetype end = line.startsWith(u'"') ? line.indexOf(u'"', 1) + 1 : line.indexOf(u' ');
    return end > 0 ? end : line.size();
}

/// The words of a text whose words may stand in quotation marks, with single blanks between them.
QString JoinedWords(const QString& text)
{
    int count = 0;
    const QString line = QStringLiteral("program ") + text; // the first word has rules of its own
    wchar_t** const words = CommandLineToArgvW(reinterpret_cast<const wchar_t*>(line.utf16()), &count);
    QStringList joined;
    for (int i = 1; i < count; ++i)
        joined += QString::fromWCharArray(words[i]);
    LocalFree(words);
    return joined.join(u' ');
}

} // namespace

QString TextBehindProgram(QStringView line)
{
    line = line.sliced(EndOfProgram(line));
    while (line.startsWith(u' ') || line.startsWith(u'\t'))
        line = line.sliced(1);
    // Without quotation marks it is handed over as it stands: a blank, a mark or a backslash in it means
    // itself.
    return line.startsWith(u'"') ? JoinedWords(line.toString()) : line.toString();
}

QString TakeCommandLine(int, char**)
{
    wchar_t* const line = GetCommandLineW(); // argv is in the local code page; this loses nothing
    const QString whole = QString::fromWCharArray(line);
    std::fill(line + EndOfProgram(whole), line + whole.size(), L' ');
    return TextBehindProgram(whole);
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

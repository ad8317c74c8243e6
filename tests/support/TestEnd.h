#pragma once

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <cstdio>
#include <qt_windows.h>
#endif

namespace tsms::test {

/// The status that main() gives when the tests are over and have told what they found. On Windows the process
/// ends here: at its end the C++ library gives back its key of thread ends, and winpthreads waits then, seen
/// under Wine, for a thread that had begun to read the keys and is no more.
inline int EndWith(int status)
{
#ifdef Q_OS_WIN
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
#endif
    return status;
}

} // namespace tsms::test

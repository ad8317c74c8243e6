#include "runtime/ProcessRules.h"

#include <QByteArray> // tells which system this is, too

#include <cstdlib>

#ifdef Q_CC_MINGW
#include <cxxabi.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif
#ifdef Q_OS_UNIX
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <langinfo.h>
#include <unistd.h>
#endif
#ifdef Q_OS_WIN
#include <qt_windows.h>

// As in werapi.h, which mingw-w64 has in a form that cannot be read alone.
constexpr DWORD WER_FAULT_REPORTING_FLAG_NOHEAP = 1;
extern "C" HRESULT WINAPI WerSetFlags(DWORD flags);
#endif

namespace tsms {

void EndThreadsInOrder()
{
#ifdef Q_CC_MINGW
    // Both are destructors of keys of winpthreads, which calls them by rising key: libstdc++ takes its key
    // here, libgcc that of the memory (emutls) with the first variable. A destructor that finds its memory
    // gone faults; in a thread that winpthreads has not begun the system passes over that, and the lock of
    // the keys stays, for which the process waits at its end.
    abi::__cxa_thread_atexit([](void*) {}, nullptr, nullptr);
#endif
}

void KeepMemoryPrivate()
{
#ifdef Q_OS_LINUX
    // A limit of 0 on the size of cores would not do: it does not hold where cores go to a program
    // (core(5), "Piping core dumps to a program"), and a browser that is started would have it too.
    ::prctl(PR_SET_DUMPABLE, 0);
#endif
#ifdef Q_OS_WIN
    ::WerSetFlags(WER_FAULT_REPORTING_FLAG_NOHEAP);
#endif
}

void FillStandardStreams()
{
#ifdef Q_OS_UNIX
    int opened = 0;
    do
        opened = ::open("/dev/null", O_RDWR);
    while (opened >= 0 && opened <= STDERR_FILENO);
    if (opened >= 0)
        ::close(opened);
#endif
}

void TakeWriteFaultsAsErrors()
{
#ifdef Q_OS_UNIX
    // A handler that does nothing, since what is ignored stays so in every program that is started.
    struct sigaction nothing = {};
    nothing.sa_handler = [](int) {};
    nothing.sa_flags = SA_RESTART;
    for (const int signal : {SIGPIPE, SIGXFSZ})
        ::sigaction(signal, &nothing, nullptr);
#endif
}

void KeepWaitingWindows()
{
#ifdef Q_OS_WIN
    ::DisableProcessWindowsGhosting();
#endif
}

void TakeWordsAsUtf8()
{
#ifdef Q_OS_UNIX
    if (std::setlocale(LC_ALL, "") == nullptr || qstricmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
        std::setlocale(LC_ALL, ""); // Qt would do it, beside a thread that reads numbers
    }
#endif
#ifdef Q_OS_WIN
    static const UINT consoles = ::GetConsoleOutputCP(); // 0 without a console
    if (consoles != 0 && consoles != CP_UTF8 && ::SetConsoleOutputCP(CP_UTF8))
        std::atexit([] { ::SetConsoleOutputCP(consoles); }); // the console outlives the program
#endif
}

} // namespace tsms

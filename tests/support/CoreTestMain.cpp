#include <QCoreApplication>

#include <gtest/gtest.h>

#ifdef Q_OS_WIN
#include <cstdio>
#include <qt_windows.h>
#endif

namespace {

/// On Windows the C++ library gives back its key of thread ends when the process ends, and winpthreads waits
/// then for a thread that had begun to read the keys and is no more: seen after the store's tests, whose
/// threads are over by then. What the tests say is told by that time.
int EndWith(int status)
{
#ifdef Q_OS_WIN
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
#endif
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return EndWith(RUN_ALL_TESTS());
}

#include "runtime/ProcessRules.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <utility>

using namespace tsms;

namespace {

/// The error number of a write that cannot be done; 0 when it could.
int ErrorOfWrite(int file)
{
    return ::write(file, "x", 1) == 1 ? 0 : errno;
}

// What follows is done to a process of its own each time, which ends with what was seen as its status.

TEST(ProcessRules, TheMemoryIsKeptInNoCore)
{
    EXPECT_EXIT(_exit(::prctl(PR_GET_DUMPABLE)), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(
        {
            KeepMemoryPrivate();
            _exit(::prctl(PR_GET_DUMPABLE));
        },
        testing::ExitedWithCode(0), "");
}

TEST(ProcessRules, AWriteToAPipeWithoutAReaderIsAnError)
{
    EXPECT_EXIT(
        {
            TakeWriteFaultsAsErrors();
            int ends[2] = {};
            _exit(::pipe(ends) == 0 && ::close(ends[0]) == 0 ? ErrorOfWrite(ends[1]) : 0);
        },
        testing::ExitedWithCode(EPIPE), "");
}

TEST(ProcessRules, AWriteBeyondTheLimitOfAFileIsAnError)
{
    EXPECT_EXIT(
        {
            TakeWriteFaultsAsErrors();
            constexpr rlimit none = {};
            ::setrlimit(RLIMIT_FSIZE, &none);
            _exit(ErrorOfWrite(::fileno(std::tmpfile())));
        },
        testing::ExitedWithCode(EFBIG), "");
}

TEST(ProcessRules, AProgramThatIsStartedHasItsOwnWay)
{
    for (const auto& [name, number] : {std::pair{"kill -PIPE $$", SIGPIPE}, {"kill -XFSZ $$", SIGXFSZ}})
        EXPECT_EXIT(
            {
                TakeWriteFaultsAsErrors();
                ::execl("/bin/sh", "sh", "-c", name, nullptr);
            },
            testing::KilledBySignal(number), "");
}

TEST(ProcessRules, NoFileTakesThePlaceOfAStandardStreamThatWasClosed)
{
    EXPECT_EXIT(
        {
            ::close(STDIN_FILENO);
            ::close(STDERR_FILENO);
            FillStandardStreams();
            _exit(::open("/", O_RDONLY) > STDERR_FILENO ? ErrorOfWrite(STDERR_FILENO) : EBADF);
        },
        testing::ExitedWithCode(0), "");
}

TEST(ProcessRules, StandardStreamsThatAreOpenStayWhatTheyAre)
{
    EXPECT_EXIT(
        {
            FillStandardStreams();
            std::fputs("still heard", stderr);
            _exit(0);
        },
        testing::ExitedWithCode(0), "still heard");
}

TEST(ProcessRules, WordsAreUtf8WhateverTheLocaleSays)
{
    const auto localeAfter = [](const char* before) {
        const QByteArray kept = qgetenv("LC_ALL");
        qputenv("LC_ALL", before);
        TakeWordsAsUtf8();
        const QByteArray after = qgetenv("LC_ALL");
        qputenv("LC_ALL", kept);
        return after;
    };
    EXPECT_EQ(localeAfter("C"), "C.UTF-8");
    EXPECT_EQ(localeAfter("no_SUCH"), "C.UTF-8");
    EXPECT_EQ(localeAfter("C.utf8"), "C.utf8");
}

} // namespace

#include "runtime/SyncToDisk.h"

#include "support/Words.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

#ifdef Q_OS_WIN
#include "runtime/DiskFull.h"

#include <cerrno>
#include <qt_windows.h>
#else
#include <unistd.h>
#endif

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(SyncToDisk, IsTrueForAFileThatWasWritten)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("x");
    EXPECT_TRUE(SyncToDisk(file));
}

#ifdef Q_OS_WIN

TEST(SyncToDisk, IsFalseForAFileThatMayOnlyBeRead)
{
    QTemporaryFile written;
    ASSERT_TRUE(written.open());
    QFile file(written.fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(SyncToDisk(file));
    EXPECT_EQ(errno, EIO);
    EXPECT_FALSE(IsForWantOfRoom(file));
}

TEST(SyncToDisk, AFullDiskIsToldByErrnoTooWhereTheFileHasNoWordsOfIt)
{
    const QFile file;
    errno = ENOSPC;
    EXPECT_TRUE(IsForWantOfRoom(file));
    errno = 0;
    EXPECT_FALSE(IsForWantOfRoom(file));
}

TEST(SyncToDisk, ErrorsOfRoomAreToldFromOthers)
{
    EXPECT_TRUE(IsForWantOfRoom(ERROR_DISK_FULL));
    EXPECT_TRUE(IsForWantOfRoom(ERROR_HANDLE_DISK_FULL));
    EXPECT_FALSE(IsForWantOfRoom(ERROR_ACCESS_DENIED));
}

#else

TEST(SyncToDisk, IsTrueWhereTheSystemCannotSay)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    QFile pipe;
    ASSERT_TRUE(pipe.open(ends[1], QIODevice::WriteOnly, QFileDevice::AutoCloseHandle));
    EXPECT_TRUE(SyncToDisk(pipe));
    close(ends[0]);
}

TEST(SyncToDisk, IsFalseWhenWhatIsStillToBeWrittenHasNoRoom)
{
    QFile file(u"/dev/full"_q);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("x");
    EXPECT_FALSE(SyncToDisk(file));
}

TEST(SyncToDisk, IsFalseWhenTheFileIsGone)
{
    const int handle = dup(STDOUT_FILENO);
    QFile file;
    ASSERT_TRUE(file.open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered));
    close(handle);
    EXPECT_FALSE(SyncToDisk(file));
}

#endif

} // namespace

#include "runtime/SyncToDisk.h"

#include "support/Words.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <unistd.h>

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

} // namespace

#include "runtime/IdleSocket.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

namespace tsms::test {

/// The two ends of a connection. Ours is the one that is looked at.
class IdleSocketTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
        ours.connectToHost(QHostAddress::LocalHost, server.serverPort());
        ASSERT_TRUE(server.waitForNewConnection(5000));
        ASSERT_TRUE(ours.waitForConnected(5000));
        theirs.reset(server.nextPendingConnection());
    }
    IdleSocket Watch(int milliseconds = 5000)
    {
        return WatchIdleSocket(ours.socketDescriptor(), milliseconds);
    }

    QTcpServer server;
    QTcpSocket ours;
    std::unique_ptr<QTcpSocket> theirs;
};

TEST_F(IdleSocketTest, IsQuietAsLongAsNothingComes)
{
    EXPECT_EQ(Watch(0), IdleSocket::Quiet);
}

TEST_F(IdleSocketTest, IsWaitedForAsLongAsIsSaid)
{
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(Watch(50), IdleSocket::Quiet);
    EXPECT_GE(time.elapsed(), 49);
}

TEST_F(IdleSocketTest, SpeaksWhenBytesLieThereAndKeepsThem)
{
    theirs->write("ab");
    theirs->flush();
    EXPECT_EQ(Watch(), IdleSocket::Speaks);
    EXPECT_EQ(Watch(0), IdleSocket::Speaks);
    ASSERT_TRUE(ours.waitForReadyRead(5000));
    EXPECT_EQ(ours.readAll(), "ab");
}

TEST_F(IdleSocketTest, SpeaksAlsoWhenItWasClosedBehindTheBytes)
{
    theirs->write("ab");
    theirs->flush();
    theirs->disconnectFromHost();
    EXPECT_EQ(Watch(), IdleSocket::Speaks);
}

TEST_F(IdleSocketTest, IsClosedWhenTheOtherSideHasClosedOrResetIt)
{
    theirs->disconnectFromHost();
    EXPECT_EQ(Watch(), IdleSocket::Closed);
    theirs->abort();
    EXPECT_EQ(Watch(), IdleSocket::Closed);
}

} // namespace tsms::test

#include "store/odbc/LinkWatch.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class LinkWatchTest : public ::testing::Test
{
protected:
    LinkWatchTest()
    {
        const QList<NetworkLink> before = NetworkLinks();
        EXPECT_TRUE(listener.listen(QHostAddress::LocalHost));
        socket.connectToHost(QHostAddress::LocalHost, listener.serverPort());
        EXPECT_TRUE(socket.waitForConnected());
        for (const NetworkLink& link : NetworkLinks())
            if (!before.contains(link))
                links += link;
    }

    /// Waits for bytes that never come.
    bool IsCutWithin(int milliseconds)
    {
        return !socket.waitForReadyRead(milliseconds) && socket.state() != QAbstractSocket::ConnectedState;
    }

    QTcpServer listener;
    QTcpSocket socket;
    QList<NetworkLink> links;
};

} // namespace

TEST_F(LinkWatchTest, CutsWhatWaitsLongerThanItMay)
{
    QElapsedTimer timer;
    timer.start();
    const LinkWatch watch(links, 1);
    EXPECT_TRUE(IsCutWithin(10'000));
    EXPECT_TRUE(watch.HasCut());
    EXPECT_NEAR(static_cast<double>(timer.elapsed()), 1000, 100);
}

TEST_F(LinkWatchTest, EndsAtOnceAndCutsNothingWhenTheCallIsOver)
{
    QElapsedTimer timer;
    timer.start();
    {
        const LinkWatch watch(links, 1);
        EXPECT_FALSE(watch.HasCut());
    }
    EXPECT_LT(timer.elapsed(), 500);
    EXPECT_FALSE(IsCutWithin(1500));
}

TEST_F(LinkWatchTest, WithoutATimeItLetsACallWait)
{
    const LinkWatch watch(links, 0);
    EXPECT_FALSE(IsCutWithin(500));
    EXPECT_FALSE(watch.HasCut());
}

} // namespace tsms::test

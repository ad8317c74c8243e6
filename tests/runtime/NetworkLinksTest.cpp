#include "runtime/NetworkLinks.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace tsms;

namespace {

/// A listener of this machine and a client that is connected to it.
class NetworkLinksTest : public ::testing::Test
{
protected:
    NetworkLinksTest()
    {
        sockaddr_in here{};
        here.sin_family = AF_INET;
        here.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof here;
        auto* const address = reinterpret_cast<sockaddr*>(&here);
        EXPECT_EQ(bind(listener, address, size), 0);
        EXPECT_EQ(listen(listener, 1), 0);
        EXPECT_EQ(getsockname(listener, address, &size), 0);
        EXPECT_EQ(connect(client, address, size), 0);
        server = accept(listener, nullptr, nullptr);
    }
    ~NetworkLinksTest() override
    {
        for (const int file : {listener, client, server})
            close(file);
    }

    NetworkLink LinkOf(int file) const
    {
        for (const NetworkLink& link : NetworkLinks())
            if (link.file == file)
                return link;
        return {-1, 0};
    }

    /// What a read at the other end answers: 1 for a byte, 0 at the end.
    static bool CanPass(int from, int to)
    {
        char byte = 0;
        return send(from, "x", 1, MSG_NOSIGNAL) == 1 && recv(to, &byte, 1, 0) == 1;
    }

    int listener = socket(AF_INET, SOCK_STREAM, 0);
    int client = socket(AF_INET, SOCK_STREAM, 0);
    int server = -1;
};

TEST_F(NetworkLinksTest, BothEndsOfAConnectionAreThereAndWhatOnlyListensIsNot)
{
    EXPECT_EQ(LinkOf(client).file, client);
    EXPECT_EQ(LinkOf(server).file, server);
    EXPECT_EQ(LinkOf(listener).file, -1);
}

TEST_F(NetworkLinksTest, APairWithinTheMachineIsNoNetworkLink)
{
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    EXPECT_EQ(LinkOf(ends[0]).file, -1);
    close(ends[0]);
    close(ends[1]);
}

TEST_F(NetworkLinksTest, ACutLinkIsAtItsEndOnBothSides)
{
    ASSERT_TRUE(CanPass(server, client));
    CutLink(LinkOf(client));
    char byte = 0;
    EXPECT_EQ(recv(client, &byte, 1, 0), 0);
    EXPECT_EQ(recv(server, &byte, 1, 0), 0);
}

TEST_F(NetworkLinksTest, CuttingLeavesNoFileOpen)
{
    const NetworkLink link = LinkOf(client);
    const int next = dup(client);
    close(next);
    CutLink(link);
    EXPECT_EQ(dup(client), next);
    close(next);
}

TEST_F(NetworkLinksTest, AnotherSocketInThePlaceOfTheLinksIsLeftAlone)
{
    NetworkLink former = LinkOf(client);
    former.socket += 1;
    CutLink(former);
    EXPECT_TRUE(CanPass(client, server));
}

} // namespace

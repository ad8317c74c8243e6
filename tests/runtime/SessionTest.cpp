#include "session/Session.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

TEST(Session, ABalanceOfZeroHasNoDigits)
{
    EXPECT_EQ(BalanceCaption(0), u"건 남았습니다."_q);
    EXPECT_EQ(BalanceCaption(12345), u"12,345건 남았습니다."_q);
}

TEST(Session, WithNoMainWindowTheBalanceIsAnnouncedToNobody)
{
    Session session;
    session.AnnounceBalance();
    int told = 0;
    session.BalanceListener = [&] { ++told; };
    session.AnnounceBalance();
    EXPECT_EQ(told, 1);
}

TEST(Session, BusyStartsClear)
{
    const Session session;
    EXPECT_FALSE(session.IsBusy());
}

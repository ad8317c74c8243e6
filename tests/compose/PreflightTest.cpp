#include "compose/Preflight.h"

#include "compose/Draft.h"
#include "session/Session.h"
#include "support/ListOfRows.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

/// A send that nothing stands against, to be spoilt.
class PreflightRules : public ::testing::Test
{
protected:
    PreflightRules()
    {
        session.SMSID = u"demo"_q;
        session.SMSPWD = u"demo"_q;
        session.SMSDNS = u"sms.example.kr"_q;
        session.SMSRemainCnt = 2;
    }
    Verdict Judged() const { return Preflight(session, {list, list.Count(), message, senderNumber}); }

    Session session;
    ListOfRows list{{{.phone = u"010-1"_q}, {.phone = u"x"_q}}};
    QString message = u"안녕"_q;
    QString senderNumber = u"02-12.345"_q;
};

TEST_F(PreflightRules, NothingStandsAgainstAGoodSend)
{
    EXPECT_EQ(Judged().refusal, Refusal::None);
    EXPECT_FALSE(Judged().isBalanceZero);
}

TEST_F(PreflightRules, EachCheckRefusesBeforeThoseBehindIt)
{
    session.SMSRemainCnt = 1;
    EXPECT_EQ(Judged().refusal, Refusal::Shortage);
    senderNumber = u" 02-12.34 "_q;
    EXPECT_EQ(Judged().refusal, Refusal::ShortSenderNumber);
    senderNumber = u"  "_q;
    EXPECT_EQ(Judged().refusal, Refusal::NoSenderNumber);
    list = ListOfRows({{.phone = u" "_q}});
    EXPECT_EQ(Judged().refusal, Refusal::NoRecipients);
    message = u"  "_q;
    EXPECT_EQ(Judged().refusal, Refusal::NoMessage);
    session.SMSDNS = u" "_q;
    EXPECT_EQ(Judged().refusal, Refusal::NoAccount);
}

TEST_F(PreflightRules, EachOfTheThreeAccountFieldsIsNeeded)
{
    for (const auto field : {&Session::SMSID, &Session::SMSPWD, &Session::SMSDNS}) {
        Session without = session;
        without.*field = u"  "_q;
        EXPECT_EQ(Preflight(without, {list, 2, message, senderNumber}).refusal, Refusal::NoAccount);
    }
}

TEST_F(PreflightRules, ABalanceOfZeroIsToldBesideWhatRefuses)
{
    session.SMSRemainCnt = 0;
    EXPECT_TRUE(Judged().isBalanceZero);
    EXPECT_EQ(Judged().refusal, Refusal::Shortage);
    message.clear();
    EXPECT_TRUE(Judged().isBalanceZero);
    EXPECT_EQ(Judged().refusal, Refusal::NoMessage);
}

TEST_F(PreflightRules, WithoutAnAccountTheBalanceIsNotLookedAt)
{
    session.SMSRemainCnt = 0;
    session.SMSID.clear();
    EXPECT_FALSE(Judged().isBalanceZero);
}

TEST_F(PreflightRules, ARemovedRecipientIsEnoughForATotalOfZero)
{
    list = ListOfRows({{.phone = u"010-1"_q, .removed = true}});
    EXPECT_EQ(Judged().refusal, Refusal::None);
}

} // namespace

#include "history/SendListStatement.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString Head = u"SELECT  SMSKey, SMSStatus, SMSNo, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE "
                     u"(CASE WHEN SMSStatus ='1' THEN '성공' ELSE '실패' END) END), SendNm, SendTelNo, "
                     u"(LEFT(SendTime,10) + ' ' + REPLACE(RIGHT(SendTime,5),'-',':')) AS nSendTime,  "
                     u"SMSContent, ErrCd, ErrMsg "
                     u" FROM SMSLog_2012 AS P WHERE  1 = 1 "_q;
const QString Tail = u" AND (LEFT(SendTime,10) >= '20120530' AND  LEFT(SendTime,10) < '20120531')"
                     u" ORDER BY SendTime DESC "_q;
const QString Reserved = u" AND (SMSStatus='1' AND DATEADD(DAY, -1, LEFT(SendTime,10)) >= "
                         u"CONVERT(varchar(10),getdate(),111))"_q;
const QString Done = u" AND (SMSStatus='1' AND DATEADD(DAY, -1, LEFT(SendTime,10)) < "
                     u"CONVERT(varchar(10),getdate(),111))"_q;
const QString Failed = u" AND SMSStatus='2'"_q;

SendListSearch OnThatDay(int field = 0, const QString& words = {}, int status = 0)
{
    return {u"2012"_q, field, words, status, u"2012-05-30"_q, u"2012-05-31"_q};
}

struct Choice
{
    int field;
    QString words;
    int status;
    QString conditions; ///< between the head and the tail
};

class SendListChoice : public ::testing::TestWithParam<Choice>
{
};

TEST_P(SendListChoice, MakesItsStatement)
{
    const Choice& choice = GetParam();
    const Statement query = SendListStatement(OnThatDay(choice.field, choice.words, choice.status));
    EXPECT_EQ(query.Text(), Head + choice.conditions + Tail);
    EXPECT_EQ(query.Fault(), QString());
}

INSTANTIATE_TEST_SUITE_P(
    Words, SendListChoice,
    ::testing::Values(Choice{0, u""_q, 0, u""_q}, Choice{0, u"   "_q, 0, u""_q}, Choice{2, u" "_q, 0, u""_q},
                      Choice{0, u"김"_q, 0, u" AND SendNm Like '%김%'"_q},
                      Choice{1, u"010-1"_q, 0, u" AND SendTelNo Like '%010-1%'"_q},
                      Choice{2, u"내일 모임"_q, 0, u" AND SMSContent Like '%내일 모임%'"_q},
                      Choice{0, u"  김 나  "_q, 0, u" AND SendNm Like '%김 나%'"_q},
                      Choice{2, u"50%_[a]"_q, 0, u" AND SMSContent Like '%50%_[a]%'"_q},
                      Choice{3, u"김"_q, 0, u""_q}, Choice{-1, u"김"_q, 0, u""_q}));

INSTANTIATE_TEST_SUITE_P(Statuses, SendListChoice,
                         ::testing::Values(Choice{0, u""_q, 1, Reserved}, Choice{0, u""_q, 2, Done},
                                           Choice{0, u""_q, 3, Failed}));

INSTANTIATE_TEST_SUITE_P(Both, SendListChoice,
                         ::testing::Values(Choice{0, u"김"_q, 1, u" AND SendNm Like '%김%'"_q + Reserved},
                                           Choice{1, u"010"_q, 2, u" AND SendTelNo Like '%010%'"_q + Done},
                                           Choice{2, u"모임"_q, 3,
                                                  u" AND SMSContent Like '%모임%'"_q + Failed}));

TEST(SendListStatement, NamesTheTableOfItsPeriod)
{
    SendListSearch search = OnThatDay();
    search.period = u"2015"_q;
    EXPECT_EQ(SendListStatement(search).Text(), QString(Head).replace(u"2012"_q, u"2015"_q) + Tail);
}

TEST(SendListStatement, TakesItsBoundsTrimmedAndWithoutHyphens)
{
    SendListSearch search = OnThatDay();
    search.first = u" 2012-12-31 "_q;
    search.dayAfterLast = u" 2013-01-01 "_q;
    EXPECT_EQ(SendListStatement(search).Text(),
              Head + u" AND (LEFT(SendTime,10) >= '20121231' AND  LEFT(SendTime,10) < '20130101')"
                     u" ORDER BY SendTime DESC "_q);
}

TEST(SendListStatement, LeavesAnApostropheAsItWasTyped)
{
    EXPECT_EQ(SendListStatement(OnThatDay(0, u"O'Neil"_q)).Text(),
              Head + u" AND SendNm Like '%O'Neil%'"_q + Tail);
}

TEST(SendListStatement, IsRefusedWhenItsWordsWouldChangeIt)
{
    EXPECT_NE(SendListStatement(OnThatDay(0, u"x' OR '1'='1"_q)).Fault(), QString());
    EXPECT_NE(SendListStatement(OnThatDay(0, u"x'; DELETE SMSLog_2012 WHERE '1'='1"_q)).Fault(), QString());
    EXPECT_NE(SendListStatement(OnThatDay(0, u"x' --"_q)).Fault(), QString());
}

} // namespace

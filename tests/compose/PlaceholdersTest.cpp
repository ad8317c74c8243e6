#include "compose/Placeholders.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

TEST(Placeholders, EveryOccurrenceIsReplaced)
{
    EXPECT_EQ(WithRecipient(u"[받는사람]님, [받는사람]"_q, u"홍길동"_q), u"홍길동님, 홍길동"_q);
    EXPECT_EQ(WithSender(u"[보내는사람]입니다 [보내는사람]"_q, u"한빛"_q), u"한빛입니다 한빛"_q);
}

TEST(Placeholders, AnEmptyNameLeavesNothingInItsPlace)
{
    EXPECT_EQ(WithRecipient(u"[받는사람]님"_q, u""_q), u"님"_q);
}

TEST(Placeholders, OtherBracketsStay)
{
    EXPECT_EQ(WithRecipient(u"[받는 사람] 받는사람 [받는사람"_q, u"홍"_q),
              u"[받는 사람] 받는사람 [받는사람"_q);
}

TEST(Placeholders, APieceGoesInAtTheCaret)
{
    EXPECT_EQ(WithInsertion(u"abc"_q, 1, u"☆"), u"a☆bc"_q);
    EXPECT_EQ(WithInsertion(u""_q, 0, u"[받는사람]"), u"[받는사람]"_q);
    EXPECT_EQ(WithInsertion(u"abc"_q, 3, u"x"), u"abcx"_q);
}

#include "runtime/Text.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

TEST(Text, TrimRemovesTheBlankAndNothingElse)
{
    EXPECT_EQ(Trim(u"  a b  "), u"a b"_q);
    EXPECT_EQ(Trim(u"\t a \r\n"), u"\t a \r\n"_q);
    EXPECT_EQ(Trim(u"\u3000a\u00a0"), u"\u3000a\u00a0"_q);
    EXPECT_EQ(Trim(u"    "), u""_q);
}

TEST(Text, TrimSharesATextThatHasNothingToTakeAway)
{
    const QString plain = u"a b"_q;
    EXPECT_EQ(Trim(plain).constData(), plain.constData());
    EXPECT_EQ(Trim(u"  a b "_q), u"a b"_q);
}

TEST(Text, ALineBreakIsNoBlank)
{
    EXPECT_TRUE(IsBlank(u""));
    EXPECT_TRUE(IsBlank(u"   "));
    EXPECT_FALSE(IsBlank(u" \r\n"));
}

TEST(Text, WithoutBlanksDropsInnerBlanksToo)
{
    EXPECT_EQ(WithoutBlanks(u"아 이 디 :"), u"아이디:"_q);
}

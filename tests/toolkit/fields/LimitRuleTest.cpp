#include "toolkit/fields/LimitRule.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

struct InsertionRow
{
    QString before;
    QString after;
    qsizetype caret;
    Insertion expected;
};

class InsertionTable : public testing::TestWithParam<InsertionRow>
{
};

TEST_P(InsertionTable, ThePartPutInIsFound)
{
    const InsertionRow& row = GetParam();
    const Insertion found = FindInsertion(row.before, row.after, row.caret);
    EXPECT_EQ(found.start, row.expected.start);
    EXPECT_EQ(found.length, row.expected.length);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, InsertionTable,
    testing::Values(InsertionRow{u""_q, u"abc"_q, 3, {0, 3}},              // all new
                    InsertionRow{u"ab"_q, u"aXb"_q, 2, {1, 1}},            // in the middle
                    InsertionRow{u"aaa"_q, u"aaaa"_q, 2, {1, 1}},          // told by the caret
                    InsertionRow{u"abcdef"_q, u"abXef"_q, 3, {2, 1}},      // over a selection
                    InsertionRow{u"abcdef"_q, u"abcXef"_q, 4, {3, 1}},     // beginning as before
                    InsertionRow{u"abc"_q, u"ab"_q, 2, {2, 0}},            // something removed
                    InsertionRow{u"abc"_q, u"bc"_q, 0, {0, 0}},            // and at the beginning
                    InsertionRow{u"abc"_q, u"XYabc"_q, 0, {0, 2}},         // the caret left behind
                    InsertionRow{u"a\r\nb"_q, u"a\r\n\r\nb"_q, 3, {1, 2}}, // a line break more
                    InsertionRow{u"\U0001F600"_q, u"\U0001F601"_q, 2, {0, 2}}));

struct ChangeRow
{
    QString before;
    QString after;
    qsizetype caret;
    int limit;
    QString text;
    qsizetype caretAfter;
};

class ByteLimitTable : public testing::TestWithParam<ChangeRow>
{
};

TEST_P(ByteLimitTable, TheLongestBeginningOfWhatWasPutInStays)
{
    const ChangeRow& row = GetParam();
    const CaretText kept = LimitChange(row.before, row.after, row.caret, BytesMeasure, row.limit);
    EXPECT_EQ(kept.text, row.text);
    EXPECT_EQ(kept.caret, row.caretAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ByteLimitTable,
    testing::Values(ChangeRow{u"abc"_q, u"abcd"_q, 4, 4, u"abcd"_q, 4},   // fits
                    ChangeRow{u"abc"_q, u"XYabc"_q, 0, 5, u"XYabc"_q, 0}, // so does this, and the caret stays
                    ChangeRow{u"abcd"_q, u"abcde"_q, 5, 4, u"abcd"_q, 4}, // one at the end
                    ChangeRow{u"abcd"_q, u"aXbcd"_q, 2, 4, u"abcd"_q, 1}, // one in the middle
                    ChangeRow{u"ab"_q, u"aXYZb"_q, 4, 4, u"aXYb"_q, 3},   // a part of it
                    ChangeRow{u"abcd"_q, u"aWXYZd"_q, 5, 4, u"aWXd"_q, 3},          // over a selection
                    ChangeRow{u"abc"_q, u"abc가"_q, 4, 4, u"abc"_q, 3},             // two bytes, room for one
                    ChangeRow{u"가나"_q, u"가다라나"_q, 3, 7, u"가다나"_q, 2},      // never half a character
                    ChangeRow{u"ab"_q, u"a\r\n\r\nb"_q, 5, 3, u"a\r\nb"_q, 3},      // a line break counts 1
                    ChangeRow{u"ab"_q, u"a\r\nb"_q, 3, 2, u"ab"_q, 1},              // and is never halved
                    ChangeRow{u"abc"_q, u"abc\U0001F600"_q, 5, 4, u"abc"_q, 3},     // two "?", room for one
                    ChangeRow{u"  "_q, u"    "_q, 4, 3, u"   "_q, 3},               // blanks count
                    ChangeRow{u"abcdefgh"_q, u"abcdefghi"_q, 9, 4, u"abcd"_q, 4})); // too long before

TEST(LimitRule, ATextSetByTheProgramIsCutAtItsEnd)
{
    EXPECT_EQ(LimitText(u"가나다", BytesMeasure, 5), u"가나"_q);
    EXPECT_EQ(LimitText(u"a\r\nb", BytesMeasure, 1), u"a"_q);
    EXPECT_EQ(LimitText(u"abc", BytesMeasure, 0), QString());
}

TEST(LimitRule, CharactersCountALineBreakTwiceAndNeverHalveIt)
{
    EXPECT_EQ(LimitText(u"a\r\nb", CharactersMeasure, 3), u"a\r\n"_q);
    EXPECT_EQ(LimitText(u"a\r\nb", CharactersMeasure, 2), u"a"_q);
    EXPECT_EQ(LimitText(u"가나다", CharactersMeasure, 2), u"가나"_q);
    EXPECT_EQ(LimitText(u"a\U0001F600", CharactersMeasure, 2), u"a"_q);
    const QString half = u"a"_q + QChar(0xD83D) + u'b'; // of no pair
    EXPECT_EQ(LimitText(half, CharactersMeasure, 2), half.first(2));
}

TEST(LimitRule, TheFirstLineEndsAtABreakOfAnyKind)
{
    EXPECT_EQ(FirstLineLength(u""), 0);
    EXPECT_EQ(FirstLineLength(u"ab"), 2);
    for (const auto* text : {u"ab\r\nc", u"ab\nc", u"ab\rc", u"ab\u2028c", u"ab\u2029c"})
        EXPECT_EQ(FirstLineLength(text), 2) << QString::fromUtf16(text).toStdString();
}

} // namespace

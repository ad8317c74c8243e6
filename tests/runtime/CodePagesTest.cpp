#include "runtime/CodePages.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QByteArray>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int Pages[] = {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 1361};

TEST(CodePages, ThoseOfWindowsAreKnown)
{
    for (const int page : Pages)
        EXPECT_TRUE(IsCodePage(page)) << page;
    for (const int page : {0, 437, 873, 933, 1200, 1249, 1259, 1360, 65001})
        EXPECT_FALSE(IsCodePage(page)) << page;
}

TEST(CodePages, AllOfThemHaveAscii)
{
    QString ascii;
    for (char c = ' '; c < 0x7F; ++c)
        if (c != '\\' && c != '~') // East Asian ones may have other signs in their places
            ascii += QLatin1Char(c);
    for (const int page : Pages)
        EXPECT_EQ(FromCodePage(ascii.toLatin1(), page), ascii) << page;
}

TEST(CodePages, WesternIsNotLatin1)
{
    EXPECT_EQ(FromCodePage("\x80\x85\x91\x99\x9F", 1252), u"€…‘™Ÿ"_q);
    EXPECT_EQ(FromCodePage("\x81", 1252), u"\xFFFD"_q);
}

TEST(CodePages, LettersThatTakeMarksAreTextsOfTheirOwn)
{
    EXPECT_EQ(FromCodePage("a\xEC", 1258), u"a\x0301"_q); // the decoder of the platform keeps the letter back
    EXPECT_EQ(FromCodePage("a", 1258), u"a"_q);
    EXPECT_EQ(FromCodePage("\xF9", 1255), u"\x05E9"_q);
}

TEST(CodePages, OneByteMayBeACharacterBesidePairs)
{
    EXPECT_EQ(FromCodePage("\xB1\x93\xFAz", 932), u"ｱ日z"_q);
}

TEST(CodePages, AByteThatBeginsNoCharacterIsReplacedAndNothingElse)
{
    const QString replacement(QChar::ReplacementCharacter);
    for (const int page : {932, 936, 950, 1361}) {
        EXPECT_EQ(FromCodePage("\xFF", page), replacement) << page;
        EXPECT_EQ(FromCodePage("\xFF\x20z", page), replacement + u" z"_q) << page;
        EXPECT_EQ(FromCodePage("z\x88", page), u"z"_q + replacement) << page; // half a character
    }
}

TEST(CodePages, NoPairOfBytesTakesWhatStandsBehindIt)
{
    for (const int page : Pages)
        for (int pair = 0; pair < 0x10000; ++pair) {
            const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
            const QString alone = FromCodePage(QByteArrayView(bytes, 2), page);
            ASSERT_GE(alone.size(), 1) << page << ", " << pair;
            ASSERT_LE(alone.size(), 2) << page << ", " << pair;
            const QString before =
                FromCodePage(QByteArray(bytes, 2) + "  z", page); // no pair ends in a blank
            ASSERT_EQ(before, alone + u"  z"_q) << page << ", " << pair;
        }
}

} // namespace

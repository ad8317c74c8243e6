#include "store/embedded/KoreanCollation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tsms::test {

namespace {

int Sign(int order)
{
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

} // namespace

TEST(KoreanCollation, CaseAndWidthMakeNoDifference)
{
    EXPECT_EQ(CompareKorean("Sms", "sMS"), 0);
    EXPECT_EQ(CompareKorean("ＳＭＳ１", "sms1"), 0);
    EXPECT_EQ(CompareKorean("É", "é"), 0);
}

TEST(KoreanCollation, TrailingBlanksMakeNoDifference)
{
    EXPECT_EQ(CompareKorean("김민준  ", "김민준"), 0);
    EXPECT_EQ(CompareKorean("", "   "), 0);
    EXPECT_NE(CompareKorean(" 김민준", "김민준"), 0);
}

TEST(KoreanCollation, AHyphenCountsOnlyBetweenTextsThatAreOtherwiseTheSame)
{
    EXPECT_LT(CompareKorean("2012-05-29", "20120530"), 0);
    EXPECT_GT(CompareKorean("2012-05-31", "20120530"), 0);
    EXPECT_GT(CompareKorean("2012-05-30", "20120530"), 0);
    EXPECT_LT(CompareKorean("co-op", "coos"), 0);
    EXPECT_NE(CompareKorean("co-op", "coop"), 0);
}

TEST(KoreanCollation, SignsComeBeforeDigitsBeforeLatinBeforeHangul)
{
    EXPECT_LT(CompareKorean("", "~"), 0);
    EXPECT_LT(CompareKorean("~", "0"), 0);
    EXPECT_LT(CompareKorean("★", "0"), 0);
    EXPECT_LT(CompareKorean("9", "A"), 0);
    EXPECT_LT(CompareKorean("z", "가"), 0);
    EXPECT_LT(CompareKorean("가", "각"), 0);
    EXPECT_LT(CompareKorean("나", "하"), 0);
    EXPECT_LT(CompareKorean("가", "가나"), 0);
}

TEST(KoreanCollation, TheFirstAndTheLastDigitAndLetterAreNoSigns)
{
    for (const char* sign : {"/", ":", "@", "[", "`", "{"})
        for (const char* other : {"0", "9", "A", "Z", "a", "z"})
            EXPECT_LT(CompareKorean(sign, other), 0) << sign << " | " << other;
    EXPECT_LT(CompareKorean("9", "a"), 0);
    EXPECT_LT(CompareKorean("Z", "é"), 0);
}

TEST(KoreanCollation, TheFirstAndTheLastOfTheWideSignsAreThoseOfOneByte)
{
    EXPECT_EQ(CompareKorean("！", "!"), 0);
    EXPECT_EQ(CompareKorean("～", "~"), 0);
    EXPECT_EQ(CompareKorean("ａＺ", "Az"), 0);
    EXPECT_EQ(CompareKorean("가　나", "가 나"), 0);
    EXPECT_NE(CompareKorean("｟", "\x7F"), 0);
}

TEST(KoreanCollation, IsOneOrder)
{
    const std::vector<std::string> texts = {"",      " ",   "-",   "--", "a",    "A",        "a-",
                                            "-a",    "a-b", "ab-", "ab", "a'b",  "a b",      "2012",
                                            "20-12", "가",  "가-", "각", "\xFF", "\xEA\xB0", "Ａ"};
    for (const std::string& a : texts)
        for (const std::string& b : texts) {
            EXPECT_EQ(Sign(CompareKorean(a, b)), -Sign(CompareKorean(b, a))) << a << " | " << b;
            for (const std::string& c : texts)
                if (CompareKorean(a, b) <= 0 && CompareKorean(b, c) <= 0) {
                    EXPECT_LE(CompareKorean(a, c), 0) << a << " | " << b << " | " << c;
                }
        }
}

struct LikeCase
{
    const char* text;
    const char* pattern;
    bool fits;
};

TEST(KoreanLike, FollowsTheServersPatterns)
{
    const LikeCase cases[] = {
        {"김민준", "%민%", true},
        {"김민준", "%민", false},
        {"Hello", "%hELL%", true},
        {"abc", "a_c", true},
        {"ac", "a_c", false},
        {"", "%", true},
        {"", "", true},
        {"a", "", false},
        {"abcabd", "%abd", true},
        {"50%", "50[%]", true},
        {"505", "50[%]", false},
        {"[받는사람]", "%[받는사람]%", true},
        {"받", "[받는사람]", true},
        {"x", "[받는사람]", false},
        {"b", "[a-c]", true},
        {"d", "[a-c]", false},
        {"d", "[^a-c]", true},
        {"010-0000-0001", "%0000-%", true},
        {"010-0000-0001", "%0100%", false},
        {"a\r\nb", "a%b", true},
        {"a", "[a", false},
        {"a", "[a-c]", true},
        {"c", "[a-c]", true},
        {"b", "[^a-c]", false},
        {"]", "[]a]", true},
        {"-", "[a-]", true},
        {"b", "[a-]", false},
        {"aéc", "a_c", true},
        {"a가c", "a_c", true},
        {"a😀c", "a_c", true},
        {"a\xFF"
         "c",
         "a_c", true},
        {"a\xEA\xB0z", "a__z", true}, // a syllable that broke off
        {"abc", "abc%%", true},
        {"abc", "%b%%", true},
    };
    for (const LikeCase& one : cases)
        EXPECT_EQ(LikeKorean(one.text, one.pattern), one.fits) << one.text << " LIKE " << one.pattern;
}

} // namespace tsms::test

#include "toolkit/fields/HangulMode.h"

#include <gtest/gtest.h>

using namespace tsms;

namespace {

// Bits of a conversion mode of Windows.
constexpr quint32 Hangul = 0x01;
constexpr quint32 FullWidth = 0x08;
constexpr quint32 Others = 0x10 | 0x40 | 0x400;

TEST(HangulMode, IsTurnedToHangulOrToLatinLettersFromEither)
{
    for (const quint32 before : {0U, Hangul}) {
        EXPECT_EQ(WithHangul(before, true), Hangul);
        EXPECT_EQ(WithHangul(before, false), 0U);
    }
}

TEST(HangulMode, LeavesLettersOfFullWidthForThoseOfOneByte)
{
    EXPECT_EQ(WithHangul(FullWidth, true), Hangul);
    EXPECT_EQ(WithHangul(FullWidth | Hangul, false), 0U);
}

TEST(HangulMode, LeavesWhatElseAPersonHasChosen)
{
    EXPECT_EQ(WithHangul(Others, true), Others | Hangul);
    EXPECT_EQ(WithHangul(Others | Hangul, false), Others);
}

} // namespace

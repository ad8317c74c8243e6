#include "runtime/Clock.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(MomentText, HasEachPartInItsPlace)
{
    EXPECT_EQ(MomentText({QDate(2026, 11, 22), QTime(20, 52, 39, 999)}), u"2026-11-22 20:52:39"_q);
}

TEST(MomentText, FillsSmallNumbersWithZeros)
{
    EXPECT_EQ(MomentText({QDate(987, 1, 2), QTime(0, 3, 4)}), u"0987-01-02 00:03:04"_q);
}

TEST(MomentText, SaysMidnightInZeros)
{
    EXPECT_EQ(MomentText({QDate(2030, 10, 20), QTime(0, 0)}), u"2030-10-20 00:00:00"_q);
}

} // namespace

#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tsms;
using namespace tsms::test;

namespace {

struct LongRow
{
    QString text;
    std::int32_t value;
};

class LongTable : public ::testing::TestWithParam<LongRow>
{
};

TEST_P(LongTable, IsReadByTheOrdinaryRule)
{
    EXPECT_EQ(ToLong(GetParam().text), GetParam().value) << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LongTable,
    ::testing::Values(LongRow{u"0"_q, 0}, LongRow{u" 12 "_q, 12}, LongRow{u"-7"_q, -7}, LongRow{u"+7"_q, 7},
                      LongRow{u"0.5"_q, 0}, LongRow{u"1.5"_q, 2}, LongRow{u"2.5"_q, 2}, LongRow{u"-0.5"_q, 0},
                      LongRow{u"-1.5"_q, -2}, LongRow{u"2.51"_q, 3}, LongRow{u"1e3"_q, 1000},
                      LongRow{u".5e1"_q, 5}, LongRow{u"1E+3"_q, 1000}, LongRow{u"1e-400"_q, 0},
                      LongRow{u"2147483647"_q, 2147483647}, LongRow{u"2147483647.4"_q, 2147483647},
                      LongRow{u"-2147483648"_q, std::numeric_limits<std::int32_t>::min()}));

struct FaultRow
{
    QString text;
    long number;
};

class LongFaults : public ::testing::TestWithParam<FaultRow>
{
};

TEST_P(LongFaults, RaiseTheirNumber)
{
    try {
        ToLong(GetParam().text);
        FAIL() << GetParam().text.toStdString() << " was taken";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, GetParam().number) << GetParam().text.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LongFaults,
    ::testing::Values(FaultRow{u""_q, TypeMismatch}, FaultRow{u"  "_q, TypeMismatch},
                      FaultRow{u"abc"_q, TypeMismatch}, FaultRow{u"1-2"_q, TypeMismatch},
                      FaultRow{u"1 2"_q, TypeMismatch}, FaultRow{u"."_q, TypeMismatch},
                      FaultRow{u"e5"_q, TypeMismatch}, FaultRow{u"1e"_q, TypeMismatch},
                      FaultRow{u"１２"_q, TypeMismatch}, FaultRow{u"nan"_q, TypeMismatch},
                      FaultRow{u"0x10"_q, TypeMismatch}, FaultRow{u"2147483648"_q, Overflow},
                      FaultRow{u"2147483647.5"_q, Overflow}, FaultRow{u"-2147483649"_q, Overflow},
                      FaultRow{u"1e400"_q, Overflow}));

TEST(Numbers, ATruthIsAWordInAnyCaseOrANumber)
{
    EXPECT_TRUE(ToTruth(u"true"));
    EXPECT_TRUE(ToTruth(u" TRUE "));
    EXPECT_FALSE(ToTruth(u"False"));
    EXPECT_TRUE(ToTruth(u"-1"));
    EXPECT_TRUE(ToTruth(u"0.3"));
    EXPECT_FALSE(ToTruth(u"0"));
    EXPECT_FALSE(ToTruth(u"0.0"));
    for (const QString& text : {u""_q, u"yes"_q, u"참"_q, u"truefalse"_q})
        EXPECT_THROW(ToTruth(text), RuntimeError) << text.toStdString();
}

TEST(Numbers, ATextIsNumericAlsoAsItIsShown)
{
    for (const QString& text : {u"0"_q, u" 12 "_q, u"-5"_q, u"+5"_q, u"1.5"_q, u".5"_q, u"1e3"_q, u"1e400"_q,
                                u"1,000"_q, u"-1,234,567.89"_q, u"12,345,678"_q})
        EXPECT_TRUE(IsNumeric(text)) << text.toStdString();
    for (const QString& text : {u""_q, u" "_q, u"-"_q, u"1-2"_q, u"1/2"_q, u"12a"_q, u"5-"_q, u"--5"_q,
                                u","_q, u",5"_q, u".5,0"_q, u"1.0,5"_q, u"1.2.3"_q, u"１２"_q, u"-1,234x"_q})
        EXPECT_FALSE(IsNumeric(text)) << text.toStdString();
}

TEST(Numbers, RoundingTakesOfTwoEquallyNearTheEvenOne)
{
    EXPECT_EQ(RoundHalfToEven(0.5), 0);
    EXPECT_EQ(RoundHalfToEven(1.5), 2);
    EXPECT_EQ(RoundHalfToEven(-0.5), 0);
    EXPECT_EQ(RoundHalfToEven(-1.5), -2);
    EXPECT_EQ(RoundHalfToEven(2.51), 3);
    EXPECT_EQ(RoundHalfToEven(94.45, 1), 94.4);
    EXPECT_EQ(RoundHalfToEven(94.55, 1), 94.6);
    EXPECT_EQ(RoundHalfToEven(94.46, 1), 94.5);
    EXPECT_EQ(RoundHalfToEven(100, 1), 100);
}

TEST(Numbers, ANumberIsNotRoundedAndInfiniteBeyondADouble)
{
    EXPECT_EQ(NumberOf(u" -99.95 "), -99.95);
    EXPECT_EQ(NumberOf(u"+.5e1"), 5.0);
    EXPECT_EQ(NumberOf(u"2147483648"), 2147483648.0);
    EXPECT_EQ(NumberOf(u"1e-400"), 0.0);
    EXPECT_EQ(NumberOf(u"1e400"), std::numeric_limits<double>::infinity());
    for (const QString& text : {u""_q, u"abc"_q, u"1,000"_q, u"nan"_q, u"inf"_q})
        EXPECT_EQ(NumberOf(text), std::nullopt) << text.toStdString();
}

TEST(Numbers, ACountIsGroupedInThreesAndNothingForZero)
{
    EXPECT_EQ(FormatCount(0), u""_q);
    EXPECT_EQ(FormatCount(7), u"7"_q);
    EXPECT_EQ(FormatCount(999), u"999"_q);
    EXPECT_EQ(FormatCount(1000), u"1,000"_q);
    EXPECT_EQ(FormatCount(1234567), u"1,234,567"_q);
    EXPECT_EQ(FormatCount(1234567890), u"1,234,567,890"_q);
    EXPECT_EQ(FormatCount(-1234), u"-1,234"_q);
}

TEST(Numbers, GroupingKeepsSignAndDecimalsAndLeavesOtherTextAlone)
{
    EXPECT_EQ(GroupDigits(u"1234"), u"1,234"_q);
    EXPECT_EQ(GroupDigits(u"1,23,4"), u"1,234"_q);
    EXPECT_EQ(GroupDigits(u"-1234.5678"), u"-1,234.5678"_q);
    for (const QString& text :
         {u""_q, u"1-2"_q, u"12/3"_q, u"-"_q, u"abc"_q, u".5"_q, u".1234"_q, u"1.2.3"_q})
        EXPECT_EQ(GroupDigits(text), text);
    EXPECT_EQ(WithoutSeparators(u"1,234,567"), u"1234567"_q);
}

TEST(Numbers, ASixteenBitCounterRaisesOverflowAtItsEnd)
{
    Counter16 counter(32766);
    EXPECT_EQ((++counter).Value(), 32767);
    EXPECT_THROW(++counter, RuntimeError);
    EXPECT_EQ(counter.Value(), 32767);
}

TEST(Numbers, TheRunningNumberWrapsAfterTwoDigits)
{
    EXPECT_EQ(TwoDigits(1), u"01"_q);
    EXPECT_EQ(TwoDigits(20), u"20"_q);
    EXPECT_EQ(TwoDigits(100), u"00"_q);
    EXPECT_EQ(TwoDigits(101), u"01"_q);
}

} // namespace

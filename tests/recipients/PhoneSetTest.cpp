#include "recipients/PhoneSet.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

PhoneSet SetOf(const QStringList& numbers)
{
    PhoneSet set;
    for (const QString& number : numbers)
        set.Insert(number);
    return set;
}

TEST(PhoneSet, NumbersAreTheSameWithoutOuterBlanksHyphensDotsAndSlashes)
{
    for (const QString& same : {u"01012345678"_q, u"010-1234-5678"_q, u"010.1234.5678"_q, u"010/1234/5678"_q,
                                u"  010-1234.5678/ "_q, u"-0-1-0-12345678"_q})
        EXPECT_EQ(ComparedNumber(same), u"01012345678"_q) << same.toStdString();
}

TEST(PhoneSet, InnerBlanksAndOtherSignsTellNumbersApart)
{
    EXPECT_EQ(ComparedNumber(u"010 1234 5678"), u"010 1234 5678"_q);
    EXPECT_EQ(ComparedNumber(u"(010)1234"), u"(010)1234"_q);
    EXPECT_EQ(ComparedNumber(u"- 010 -"), u" 010 "_q); // trimmed before the hyphens go
    EXPECT_EQ(ComparedNumber(u"\t010"), u"\t010"_q);
    EXPECT_EQ(ComparedNumber(u""), QString());
}

TEST(PhoneSet, ANumberIsInWhateverItsPunctuation)
{
    const PhoneSet set = SetOf({u"010-1111"_q});
    EXPECT_TRUE(set.Contains(u"0101111"));
    EXPECT_TRUE(set.Contains(u" 010.11/11 "));
    EXPECT_FALSE(set.Contains(u"010-1112"));
}

TEST(PhoneSet, LongNumbersAreToldApartByEveryDigit)
{
    const PhoneSet set = SetOf({u"00000000000000000001"_q});
    EXPECT_FALSE(set.Contains(u"18446744073709551617")); // 1 and two to the power of 64
    EXPECT_TRUE(set.Contains(u"0000000000-0000000001"));
}

TEST(PhoneSet, LeadingZerosTellNumbersApart)
{
    const PhoneSet set = SetOf({u"010"_q});
    EXPECT_FALSE(set.Contains(u"10"));
    EXPECT_FALSE(set.Contains(u"0010"));
}

TEST(PhoneSet, NumbersWithOtherSignsAreToldApartFromThoseOfDigits)
{
    const PhoneSet set = SetOf({u"59"_q});
    EXPECT_FALSE(set.Contains(u"1a")); // its code is 49 behind that of 0
    EXPECT_TRUE(set.Contains(u"5-9"));
}

TEST(PhoneSet, ANumberIsInAsOftenAsItWasPutIn)
{
    PhoneSet set = SetOf({u"0101"_q, u"010-1"_q});
    set.Remove(u"0101");
    EXPECT_TRUE(set.Contains(u"0101"));
    set.Remove(u"010.1");
    EXPECT_FALSE(set.Contains(u"0101"));
}

TEST(PhoneSet, WhatIsNotInCanBeTakenOutWithoutATrace)
{
    PhoneSet set;
    set.Remove(u"0101");
    EXPECT_TRUE(set.InsertNew(u"0101"));
    EXPECT_TRUE(set.Contains(u"0101"));
}

TEST(PhoneSet, OnlyANewNumberIsPutInAsOne)
{
    PhoneSet set;
    EXPECT_TRUE(set.InsertNew(u"010-1"));
    EXPECT_FALSE(set.InsertNew(u"0101"));
    set.Remove(u"0101");
    EXPECT_FALSE(set.Contains(u"0101"));
}

TEST(PhoneSet, IsEmptyWhenCleared)
{
    PhoneSet set = SetOf({u"0101"_q, u"a"_q});
    set.Clear();
    EXPECT_FALSE(set.Contains(u"0101"));
    EXPECT_FALSE(set.Contains(u"a"));
}

} // namespace

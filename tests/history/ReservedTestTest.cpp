#include "history/ReservedTest.h"
#include "runtime/RuntimeError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

struct SendDay
{
    QString sendTime;
    QDate today;
    bool reserved;
};

class SendDays : public ::testing::TestWithParam<SendDay>
{
};

TEST_P(SendDays, AreReservedFromTomorrowOn)
{
    EXPECT_EQ(IsReserved(GetParam().sendTime, GetParam().today), GetParam().reserved)
        << GetParam().sendTime.toStdString();
}

const QDate Today(2012, 5, 30);

INSTANTIATE_TEST_SUITE_P(AroundToday, SendDays,
                         ::testing::Values(SendDay{u"2012-05-31 14:07"_q, Today, true},
                                           SendDay{u"2012-05-30 14:07"_q, Today, false},
                                           SendDay{u"2012-05-29 14:07"_q, Today, false},
                                           SendDay{u"2012-06-01 00:00"_q, Today, true},
                                           SendDay{u"2011-05-31 14:07"_q, Today, false},
                                           SendDay{u"2013-05-29 14:07"_q, Today, true}));

INSTANTIATE_TEST_SUITE_P(WhateverTheHour, SendDays,
                         ::testing::Values(SendDay{u"2012-05-30 23:59"_q, Today, false},
                                           SendDay{u"2012-05-31 00:00"_q, Today, true},
                                           SendDay{u"2012-05-30 24:00"_q, Today, false}));

INSTANTIATE_TEST_SUITE_P(MonthsAndYears, SendDays,
                         ::testing::Values(SendDay{u"2012-06-01 09:00"_q, QDate(2012, 5, 31), true},
                                           SendDay{u"2012-05-31 09:00"_q, QDate(2012, 6, 1), false},
                                           SendDay{u"2013-01-01 09:00"_q, QDate(2012, 12, 31), true},
                                           SendDay{u"2012-12-31 09:00"_q, QDate(2012, 12, 31), false},
                                           SendDay{u"2012-12-31 09:00"_q, QDate(2013, 1, 1), false},
                                           SendDay{u"2012-02-29 09:00"_q, QDate(2012, 2, 28), true},
                                           SendDay{u"2012-03-01 09:00"_q, QDate(2012, 2, 28), true},
                                           SendDay{u"2012-03-01 09:00"_q, QDate(2012, 2, 29), true},
                                           SendDay{u"2012-02-29 09:00"_q, QDate(2012, 2, 29), false},
                                           SendDay{u"2013-03-01 09:00"_q, QDate(2013, 2, 28), true}));

INSTANTIATE_TEST_SUITE_P(Forms, SendDays,
                         ::testing::Values(SendDay{u"2012-05-31 14-07"_q, Today, true},
                                           SendDay{u"2012-05-31-14-07"_q, Today, true},
                                           SendDay{u"2012-05-30-14-07"_q, Today, false},
                                           SendDay{u"2012-05-31"_q, Today, true},
                                           SendDay{u"2012-05-3114-07"_q, Today, true},
                                           SendDay{u"  2012-05-31 14:07 "_q, Today, true}));

class NoDays : public ::testing::TestWithParam<QString>
{
};

TEST_P(NoDays, RaiseATypeMismatch)
{
    try {
        IsReserved(GetParam(), Today);
        FAIL() << "taken: " << GetParam().toStdString();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, TypeMismatch);
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, NoDays,
                         ::testing::Values(u""_q, u"   "_q, u"내일"_q, u"2012-02-30 10:00"_q,
                                           u"2013-02-29 10:00"_q, u"2012-13-01 10:00"_q, u"2012-05-3"_q,
                                           u"2012053114"_q, u"0000-01-01 10:00"_q));

} // namespace

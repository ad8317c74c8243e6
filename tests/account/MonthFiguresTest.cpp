#include "account/MonthFigures.h"
#include "runtime/RuntimeError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(MonthQuery, CountsTheLogOfItsYearByMonths)
{
    EXPECT_EQ(
        MonthQuery(u"2012"_q).Text(),
        u"SELECT  LEFT(SendTime,7) AS ppMonth, Count(*) AS ToTalCnt,  ISNULL(SUM(CASE WHEN SMSStatus IN ('0','1') THEN 1 ELSE 0 END),0) AS SMS0 , ISNULL(SUM(CASE WHEN SMSStatus ='2' THEN 1 ELSE 0 END),0) AS SMS1   FROM SMSLog_2012 GROUP BY LEFT(SendTime,7) "_q);
    EXPECT_EQ(MonthQuery(u"2012"_q).Fault(), QString());
}

struct MonthRow
{
    QString text;
    int column;
};

class MonthColumns : public ::testing::TestWithParam<MonthRow>
{
};

TEST_P(MonthColumns, AreTheLastTwoCharacters)
{
    EXPECT_EQ(MonthColumn(GetParam().text), GetParam().column);
}

INSTANTIATE_TEST_SUITE_P(Texts, MonthColumns,
                         ::testing::Values(MonthRow{u"2012-01"_q, 1}, MonthRow{u"2012-09"_q, 9},
                                           MonthRow{u" 2012-10 "_q, 10}, MonthRow{u"2012-12"_q, 12},
                                           MonthRow{u"2012-13"_q, 13}, MonthRow{u"7"_q, 7}));

TEST(MonthColumn, OfATextWithoutANumberIsAMismatch)
{
    for (const QString& text : {QString(), u"  "_q, u"2012-xx"_q})
        try {
            MonthColumn(text);
            ADD_FAILURE() << text.toStdString();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, TypeMismatch);
        }
}

struct RateRow
{
    std::int32_t total;
    std::int32_t done;
    QString text;
};

class Rates : public ::testing::TestWithParam<RateRow>
{
};

TEST_P(Rates, AreRoundedTwice)
{
    EXPECT_EQ(RateText(GetParam().total, GetParam().done), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Counts, Rates,
                         ::testing::Values(RateRow{1, 1, u"100%"_q}, RateRow{1, 0, u"%"_q},
                                           RateRow{1000, 964, u"96%"_q}, RateRow{3, 1, u"33%"_q},
                                           RateRow{3, 2, u"67%"_q}, RateRow{7, 3, u"43%"_q},
                                           RateRow{200, 1, u"1%"_q},    // 0.5: away from 0
                                           RateRow{1000, 4, u"%"_q},    // 0.4
                                           RateRow{10000, 45, u"%"_q},  // 0.45: even, so 0.4
                                           RateRow{10000, 46, u"1%"_q}, // 0.46: by way of 0.5
                                           RateRow{8, 1, u"13%"_q},     // 12.5
                                           RateRow{2000, 169, u"8%"_q}, // 8.45, computed as a little more
                                           RateRow{10000, 9446, u"95%"_q}, RateRow{10000, 9445, u"94%"_q},
                                           RateRow{10000, 9455, u"95%"_q}, RateRow{1000, 985, u"99%"_q},
                                           RateRow{1000, 995, u"100%"_q}, RateRow{1000, 994, u"99%"_q},
                                           RateRow{2147483647, 2147483647, u"100%"_q},
                                           RateRow{2147483647, 0, u"%"_q}));

TEST(RateText, OfEverySmallCountIsThatOfTheShorterForm)
{
    for (int total = 1; total <= 200; ++total)
        for (int done = 0; done <= total; ++done) {
            const double rate = QString::number(static_cast<double>(done) / total * 100, 'g', 15).toDouble();
            const double tenths = std::nearbyint(rate * 10) / 10; // halves to even
            const int whole = static_cast<int>(std::floor(tenths + 0.5));
            const QString text = whole == 0 ? u"%"_q : QString::number(whole) + u'%';
            EXPECT_EQ(RateText(total, done), text) << done << " of " << total;
        }
}

} // namespace

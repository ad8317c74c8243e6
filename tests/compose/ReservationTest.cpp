#include "compose/Reservation.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

QDateTime At(int hour, int minute, int second = 0)
{
    return QDateTime(QDate(2012, 5, 30), QTime(hour, minute, second));
}

ChosenTime Chosen(const QString& date, const QString& hour, const QString& minute)
{
    return {date, hour + u"시"_q, minute + u"분"_q};
}

TEST(Reservation, TheListsRunToAnHourTwentyFourAndHoldZeroMinutesTwice)
{
    const QStringList hours = QStringList(FirstHourItem()) + HourItems();
    EXPECT_EQ(hours.size(), 25);
    EXPECT_EQ(hours.first(), u"00시"_q);
    EXPECT_EQ(hours[1], u"01시"_q);
    EXPECT_EQ(hours.last(), u"24시"_q);
    const QStringList minutes = QStringList(FirstMinuteItem()) + MinuteItems();
    EXPECT_EQ(minutes.size(), 13);
    EXPECT_EQ(minutes[0], u"00분"_q);
    EXPECT_EQ(minutes[1], u"00분"_q);
    EXPECT_EQ(minutes[2], u"05분"_q);
    EXPECT_EQ(minutes.last(), u"55분"_q);
}

struct SuggestionRow
{
    int hour, minute;
    QString hourItem, minuteItem;
};

class Suggestions : public ::testing::TestWithParam<SuggestionRow>
{
};

TEST_P(Suggestions, AreMadeEachForItself)
{
    const SuggestionRow& row = GetParam();
    const QStringList hours = QStringList(FirstHourItem()) + HourItems();
    const QStringList minutes = QStringList(FirstMinuteItem()) + MinuteItems();
    EXPECT_EQ(hours[SuggestedHourIndex(At(row.hour, row.minute))], row.hourItem);
    EXPECT_EQ(minutes[SuggestedMinuteIndex(At(row.hour, row.minute))], row.minuteItem);
}

INSTANTIATE_TEST_SUITE_P(Times, Suggestions,
                         ::testing::Values(SuggestionRow{10, 0, u"10시"_q, u"10분"_q},
                                           SuggestionRow{10, 44, u"10시"_q, u"50분"_q},
                                           SuggestionRow{10, 49, u"10시"_q, u"55분"_q},
                                           SuggestionRow{10, 52, u"10시"_q, u"00분"_q},
                                           SuggestionRow{10, 55, u"11시"_q, u"05분"_q},
                                           SuggestionRow{23, 57, u"00시"_q, u"05분"_q}));

TEST(Reservation, TheSuggestionOfEightMinutesToTheHourLiesInThePast)
{
    EXPECT_EQ(CheckReservation(At(10, 52), Chosen(u"2012-05-30"_q, u"10"_q, u"00"_q)),
              ReservationVerdict::TimeInThePast);
}

TEST(Reservation, ThePresentMinutePassesAndTheOneBeforeDoesNot)
{
    EXPECT_EQ(CheckReservation(At(14, 5), Chosen(u"2012-05-30"_q, u"14"_q, u"05"_q)),
              ReservationVerdict::Good);
    EXPECT_EQ(CheckReservation(At(14, 5, 59), Chosen(u"2012-05-30"_q, u"14"_q, u"05"_q)),
              ReservationVerdict::Good);
    EXPECT_EQ(CheckReservation(At(14, 6), Chosen(u"2012-05-30"_q, u"14"_q, u"05"_q)),
              ReservationVerdict::TimeInThePast);
}

TEST(Reservation, ADayBeforeTodayIsRefusedWhateverItsTime)
{
    EXPECT_EQ(CheckReservation(At(0, 0), Chosen(u"2012-05-29"_q, u"23"_q, u"55"_q)),
              ReservationVerdict::DayInThePast);
    EXPECT_EQ(CheckReservation(At(23, 59), Chosen(u"2012-05-31"_q, u"00"_q, u"00"_q)),
              ReservationVerdict::Good);
}

TEST(Reservation, TheHourTwentyFourOfTodayIsStillToCome)
{
    EXPECT_EQ(CheckReservation(At(23, 59), Chosen(u"2012-05-30"_q, u"24"_q, u"00"_q)),
              ReservationVerdict::Good);
}

TEST(Reservation, TheTextHasFivePartsJoinedByColons)
{
    EXPECT_EQ(ReservationText(Chosen(u"2012-05-30"_q, u"14"_q, u"05"_q)), u"2012:05:30:14:05"_q);
}

} // namespace

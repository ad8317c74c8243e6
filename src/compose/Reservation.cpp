#include "compose/Reservation.h"

#include "runtime/Numbers.h"

namespace tsms {

namespace {

constexpr qint64 FiveMinutes = 300; // seconds

QString HourItem(int hour)
{
    return TwoDigits(hour) + QStringLiteral("시");
}

QString MinuteItem(int minute)
{
    return TwoDigits(minute) + QStringLiteral("분");
}

} // namespace

QString FirstHourItem()
{
    return HourItem(0);
}

QString FirstMinuteItem()
{
    return MinuteItem(0);
}

QStringList HourItems()
{
    QStringList items;
    for (int hour = 1; hour <= 24; ++hour)
        items += HourItem(hour);
    return items;
}

QStringList MinuteItems()
{
    QStringList items;
    for (int minute = 0; minute <= 55; minute += 5)
        items += MinuteItem(minute);
    return items;
}

int SuggestedHourIndex(const QDateTime& now)
{
    return now.addSecs(FiveMinutes).time().hour();
}

int SuggestedMinuteIndex(const QDateTime& now)
{
    return now.addSecs(2 * FiveMinutes).time().minute() / 5 + 1; // behind the first of the two "00분"
}

ReservationVerdict CheckReservation(const QDateTime& now, const ChosenTime& chosen)
{
    const QString now14 = now.toString(QStringLiteral("yyyyMMdd HHmmss"));
    const QString chosen14 = QString(chosen.date).remove(u'-') + u' ' + chosen.hourItem.first(2) +
                             chosen.minuteItem.first(2) + QStringLiteral("00");
    const QString nowDay = now14.first(8);
    const QString chosenDay = chosen14.first(8);
    if (nowDay > chosenDay)
        return ReservationVerdict::DayInThePast;
    // Minutes only: the seconds of the present minute do not make it the past.
    if (nowDay == chosenDay && now14.sliced(9, 4) > chosen14.sliced(9, 4))
        return ReservationVerdict::TimeInThePast;
    return ReservationVerdict::Good;
}

QString ReservationText(const ChosenTime& chosen)
{
    return QString(chosen.date).replace(u'-', u':') + u':' + chosen.hourItem.first(2) + u':' +
           chosen.minuteItem.first(2);
}

} // namespace tsms

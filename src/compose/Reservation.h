#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace tsms {

/// The first items of the two lists, which stand there from the load of the dialog.
QString FirstHourItem();   ///< "00시"
QString FirstMinuteItem(); ///< "00분"

/// The hours that a tick of the reservation box appends: "01시" to "24시".
QStringList HourItems();
/// The minutes that it appends: "00분" to "55분" in steps of five. With the first item "00분" stands twice.
QStringList MinuteItems();

/// The places that the lists suggest at `now`: the hour five minutes from now, and the minute ten minutes
/// from now rounded down to a multiple of five. Each for itself, so near a full hour the pair may lie in the
/// past; that is meant, and refused when sent.
int SuggestedHourIndex(const QDateTime& now);
int SuggestedMinuteIndex(const QDateTime& now);

/// The chosen time as the dialog's controls show it.
struct ChosenTime
{
    QString date;       ///< year, month and day joined by "-"
    QString hourItem;   ///< "05시"
    QString minuteItem; ///< "10분"
};

enum class ReservationVerdict {
    Good,
    DayInThePast,
    TimeInThePast,
};

/// Compares the chosen time with `now`. The present minute still passes.
ReservationVerdict CheckReservation(const QDateTime& now, const ChosenTime& chosen);

/// Year, month, day, hour and minute joined by ":": the form in which the gateway takes a reservation.
QString ReservationText(const ChosenTime& chosen);

} // namespace tsms

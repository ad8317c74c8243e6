#pragma once

#include <QDate>
#include <QString>

namespace tsms {

/// The first day that a field takes; the server's dates begin there.
inline constexpr QDate EarliestDate = QDate::fromJulianDay(2361331); // 1753-01-01
inline constexpr QDate LatestDate = QDate::fromJulianDay(5373484);   // 9999-12-31

/// YYYY-MM-DD, whatever the locale.
QString DateText(QDate date);

/// Reads a date as people write it: eight digits, or year, month and day with a hyphen, a dot, a slash, a
/// blank or "년", "월", "일" between. Of what is none, or none that exists, an invalid date.
QDate ReadDate(const QString& text);

enum class DatePart : int { Year, Month, Day };

/// Where a part stands in a text with two hyphens. The parts need not be whole.
struct PartPlace
{
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const PartPlace&, const PartPlace&) = default;
};

/// Whether the text has two hyphens, and so all three parts.
bool IsInParts(const QString& text);
PartPlace PlaceOf(const QString& text, DatePart part);
/// The part that a caret is in.
DatePart PartAt(const QString& text, qsizetype caret);
/// How many digits a part has when it is whole.
int DigitsOf(DatePart part);

/// The date with one part moved on by `steps`, or back. A day that a month does not have becomes its last.
QDate Stepped(QDate date, DatePart part, int steps);

} // namespace tsms

#include "toolkit/fields/DateText.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

namespace tsms {

QString DateText(QDate date)
{
    return QLocale::c().toString(date, QStringLiteral("yyyy-MM-dd"));
}

QDate ReadDate(const QString& text)
{
    static const QRegularExpression digits(QStringLiteral("^\\s*([0-9]{4})([0-9]{2})([0-9]{2})\\s*$"));
    static const QRegularExpression parts(
        QStringLiteral("^\\s*([0-9]{4})\\s*[-./년\\s]\\s*([0-9]{1,2})\\s*[-./월\\s]\\s*([0-9]{1,2})"
                       "\\s*[.일]?\\s*$"));
    QRegularExpressionMatch match = digits.match(text);
    if (!match.hasMatch())
        match = parts.match(text);
    const QDate date(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    return date >= EarliestDate && date <= LatestDate ? date : QDate();
}

bool IsInParts(const QString& text)
{
    return text.count(u'-') == 2;
}

PartPlace PlaceOf(const QString& text, DatePart part)
{
    qsizetype start = 0;
    for (int i = 0; i < static_cast<int>(part); ++i)
        start = text.indexOf(u'-', start) + 1;
    const qsizetype end = text.indexOf(u'-', start);
    return {start, (end < 0 ? text.size() : end) - start};
}

DatePart PartAt(const QString& text, qsizetype caret)
{
    return DatePart(std::min<qsizetype>(text.first(caret).count(u'-'), int(DatePart::Day)));
}

int DigitsOf(DatePart part)
{
    return part == DatePart::Year ? 4 : 2;
}

QDate Stepped(QDate date, DatePart part, int steps)
{
    const QDate stepped = part == DatePart::Year    ? date.addYears(steps)
                          : part == DatePart::Month ? date.addMonths(steps)
                                                    : date.addDays(steps);
    return std::clamp(stepped, EarliestDate, LatestDate);
}

} // namespace tsms

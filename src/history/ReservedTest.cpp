#include "history/ReservedTest.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace tsms {

namespace {

/// Of a text as the log has it, which is read for each row of a list: the toolkit's reader, to which any
/// other is left, would take a tenth of a search.
QDate DayOf(QStringView text)
{
    constexpr QStringView shape = u"0000-00-00";
    const auto fits = [](QChar c, QChar place) {
        return place == u'-' ? c == place : c >= u'0' && c <= u'9';
    };
    if (!std::equal(text.begin(), text.end(), shape.begin(), shape.end(), fits))
        return QDate::fromString(text, Qt::ISODate);
    const auto number = [text](qsizetype from, qsizetype to) {
        int value = 0;
        for (; from < to; ++from)
            value = 10 * value + (text[from].unicode() - u'0');
        return value;
    };
    return QDate(number(0, 4), number(5, 7), number(8, 10));
}

} // namespace

bool IsReserved(QStringView sendTime, QDate today)
{
    const QDate sendDay = DayOf(Trimmed(sendTime).left(10));
    if (!sendDay.isValid())
        throw RuntimeError(TypeMismatch);
    return sendDay.addDays(-1) >= today;
}

} // namespace tsms

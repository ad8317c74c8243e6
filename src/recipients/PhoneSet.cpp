#include "recipients/PhoneSet.h"

#include "runtime/Text.h"

namespace tsms {

namespace {

/// The digits of a number behind a 1, so that leading zeros count. 0 for a number that has anything else.
quint64 DigitsOf(const QString& number)
{
    constexpr qsizetype mostDigits = 18;
    if (number.size() > mostDigits)
        return 0;
    quint64 digits = 1;
    for (const QChar c : number) {
        if (c < u'0' || c > u'9')
            return 0;
        digits = digits * 10 + (c.unicode() - u'0');
    }
    return digits;
}

} // namespace

QString ComparedNumber(QStringView number)
{
    return Trim(number).removeIf([](QChar c) { return c == u'-' || c == u'/' || c == u'.'; });
}

bool PhoneSet::Contains(QStringView number) const
{
    const QString compared = ComparedNumber(number);
    const quint64 digits = DigitsOf(compared);
    return (digits != 0 ? digits_.value(digits) : others_.value(compared)) > 0;
}

bool PhoneSet::InsertNew(QStringView number)
{
    int& count = CountOf(number);
    if (count > 0)
        return false;
    ++count;
    return true;
}

void PhoneSet::Remove(QStringView number)
{
    int& count = CountOf(number);
    if (count > 0)
        --count;
}

void PhoneSet::Clear()
{
    digits_.clear();
    others_.clear();
}

int& PhoneSet::CountOf(QStringView number)
{
    const QString compared = ComparedNumber(number);
    const quint64 digits = DigitsOf(compared);
    return digits != 0 ? digits_[digits] : others_[compared];
}

} // namespace tsms

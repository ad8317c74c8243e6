#include "recipients/PhoneSet.h"

#include "runtime/Text.h"

namespace tsms {

namespace {

bool IsSeparator(QChar c)
{
    return c == u'-' || c == u'/' || c == u'.';
}

/// The digits of a number's compared form behind a 1, so that leading zeros count. 0 where it has anything
/// else.
quint64 DigitsOf(QStringView number)
{
    constexpr quint64 most = 1'000'000'000'000'000'000; // 18 digits
    quint64 digits = 1;
    for (const QChar c : Trimmed(number)) {
        if (IsSeparator(c))
            continue;
        if (c < u'0' || c > u'9' || digits >= most)
            return 0;
        digits = digits * 10 + (c.unicode() - u'0');
    }
    return digits;
}

} // namespace

QString ComparedNumber(QStringView number)
{
    return Trim(number).removeIf(IsSeparator);
}

bool PhoneSet::Contains(QStringView number) const
{
    const quint64 digits = DigitsOf(number);
    return (digits != 0 ? digits_.value(digits) : others_.value(ComparedNumber(number))) > 0;
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
    const quint64 digits = DigitsOf(number);
    return digits != 0 ? digits_[digits] : others_[ComparedNumber(number)];
}

} // namespace tsms

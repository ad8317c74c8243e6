#include "addressbook/RecipientSheet.h"

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

ListedNumbers::ListedNumbers(const RecipientSheet& list) : list_(list)
{
    const int rows = list_.MaxRows();
    digits_.reserve(rows);
    for (int row = 1; row <= rows; ++row) {
        const QString phone = list_.PhoneText(row);
        if (!phone.isEmpty() && !list_.RowHidden(row))
            ++RowsWith(phone);
    }
}

bool ListedNumbers::Take(int row, const QString& phone)
{
    int& rows = RowsWith(phone);
    if (rows > 0)
        return false;
    if (list_.RowHidden(row))
        return true;
    ++rows;
    const QString former = list_.PhoneText(row);
    if (!former.isEmpty())
        --RowsWith(former);
    return true;
}

int& ListedNumbers::RowsWith(const QString& phone)
{
    const QString number = ComparedNumber(phone);
    const quint64 digits = DigitsOf(number);
    return digits != 0 ? digits_[digits] : others_[number];
}

} // namespace tsms

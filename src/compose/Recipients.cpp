#include "compose/Recipients.h"

#include "runtime/Text.h"

#include <algorithm>
#include <array>

namespace tsms {

std::int32_t CountFilled(const RecipientRows& rows)
{
    std::int32_t filled = 0;
    for (int row = 1; row <= rows.MaxRows(); ++row)
        if (!IsBlank(rows.PhoneText(row)))
            ++filled;
    return filled;
}

std::int32_t CountRecipients(const RecipientRows& rows)
{
    std::int32_t recipients = 0;
    for (int row = 1; row <= rows.MaxRows(); ++row)
        if (!rows.RowHidden(row) && !IsBlank(rows.PhoneText(row)))
            ++recipients;
    return recipients;
}

bool HasMobilePrefix(QStringView number)
{
    static constexpr std::array<QStringView, 6> prefixes{u"010", u"011", u"016", u"017", u"018", u"019"};
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](QStringView prefix) { return number.startsWith(prefix); });
}

} // namespace tsms

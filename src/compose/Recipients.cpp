#include "compose/Recipients.h"

#include "runtime/Text.h"

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

} // namespace tsms

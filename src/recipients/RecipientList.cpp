#include "recipients/RecipientList.h"

#include "runtime/Text.h"

namespace tsms {

std::int32_t RecipientList::Filled() const
{
    std::int32_t filled = 0;
    for (int row = 1; row <= Rows(); ++row)
        if (!IsBlank(Phone(row)))
            ++filled;
    return filled;
}

std::int32_t RecipientList::Count() const
{
    std::int32_t recipients = 0;
    for (int row = 1; row <= Rows(); ++row)
        if (!IsRemoved(row) && !IsBlank(Phone(row)))
            ++recipients;
    return recipients;
}

} // namespace tsms

#pragma once

#include <QString>

#include <cstdint>

namespace tsms {

/// The recipient list as the checks and the run read it. Rows are counted from 1.
class RecipientRows
{
public:
    virtual ~RecipientRows() = default;
    virtual int MaxRows() const = 0;
    virtual bool RowHidden(int row) const = 0;
    virtual QString NameText(int row) const = 0;  ///< as it stands in the cell
    virtual QString PhoneText(int row) const = 0; ///< as it stands in the cell
};

/// Rows with any number at all; removed (hidden) rows count here.
std::int32_t CountFilled(const RecipientRows& rows);

/// Rows with any number that are not removed: the recipients, whether their numbers are good or not.
std::int32_t CountRecipients(const RecipientRows& rows);

} // namespace tsms

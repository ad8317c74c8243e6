#pragma once

#include "compose/Recipients.h"

namespace tsms {

class fpSpread;

/// The recipient grid as the checks and the run read it.
class GridRecipients final : public RecipientRows
{
public:
    explicit GridRecipients(const fpSpread& grid) : grid_(grid) {}
    int MaxRows() const override;
    bool RowHidden(int row) const override;
    QString NameText(int row) const override;
    QString PhoneText(int row) const override;

private:
    const fpSpread& grid_;
};

} // namespace tsms

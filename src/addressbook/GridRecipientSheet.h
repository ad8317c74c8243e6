#pragma once

#include "addressbook/RecipientSheet.h"

namespace tsms {

class fpSpread;

/// The recipient grid as the reader of recipient files works on it. As long as this lives, the grid draws
/// nothing.
class GridRecipientSheet final : public RecipientSheet
{
public:
    explicit GridRecipientSheet(fpSpread& grid);
    ~GridRecipientSheet() override;
    GridRecipientSheet(const GridRecipientSheet&) = delete;
    GridRecipientSheet& operator=(const GridRecipientSheet&) = delete;

    int MaxRows() const override;
    void SetMaxRows(int rows) override;
    bool RowHidden(int row) const override;
    QString PhoneText(int row) const override;
    void Write(int row, const QString& number, const QString& name, const QString& phone) override;

private:
    fpSpread& grid_;
};

} // namespace tsms

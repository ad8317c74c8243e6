#pragma once

#include "compose/SentRows.h"

namespace tsms {

class fpSpread;

/// The grid of sent messages as the cancellation run reads it.
class GridSentRows final : public SentRows
{
public:
    explicit GridSentRows(const fpSpread& grid) : grid_(grid) {}
    int MaxRows() const override;
    bool IsRowTicked(int row) const override;
    QString KeyText(int row) const override;
    QString NumberText(int row) const override;
    QString TimeText(int row) const override;

private:
    const fpSpread& grid_;
};

} // namespace tsms

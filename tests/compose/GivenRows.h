#pragma once

#include "compose/Recipients.h"

#include <vector>

namespace tsms::test {

/// A recipient list without a grid and without names.
class GivenRows final : public RecipientRows
{
public:
    struct Row
    {
        QString phone;
        bool hidden = false;
    };
    explicit GivenRows(std::vector<Row> given) : rows_(std::move(given)) {}
    int MaxRows() const override { return static_cast<int>(rows_.size()); }
    bool RowHidden(int row) const override { return At(row).hidden; }
    QString NameText(int) const override { return {}; }
    QString PhoneText(int row) const override { return At(row).phone; }

private:
    const Row& At(int row) const { return rows_[static_cast<std::size_t>(row) - 1]; }

    std::vector<Row> rows_;
};

} // namespace tsms::test

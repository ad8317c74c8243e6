#pragma once

#include "recipients/RecipientList.h"

#include <utility>
#include <vector>

namespace tsms::test {

/// A recipient list without a grid.
class ListOfRows final : public RecipientList
{
public:
    struct Row
    {
        QString number = {};
        QString name = {};
        QString phone = {};
        bool removed = false;

        friend bool operator==(const Row&, const Row&) = default;
    };

    explicit ListOfRows(std::vector<Row> given = {}) : rows(std::move(given)) {}

    int Rows() const override { return static_cast<int>(rows.size()); }
    QString Name(int row) const override { return At(row).name; }
    QString Phone(int row) const override { return At(row).phone; }
    bool IsRemoved(int row) const override { return At(row).removed; }
    void Reset() override { rows.assign(20, {}); }
    void Resize(int count) override { rows.resize(static_cast<std::size_t>(count)); }
    void Write(int row, QString name, QString phone) override
    {
        At(row).name = std::move(name);
        At(row).phone = std::move(phone);
    }
    void WriteRunningNumber(int row, QString number) override { At(row).number = std::move(number); }
    void WriteThirdValue(int, QString) override {}
    void InOneGo(const std::function<void()>& changes) override { changes(); }

    std::vector<Row> rows;

private:
    const Row& At(int row) const { return rows.at(static_cast<std::size_t>(row) - 1); }
    Row& At(int row) { return rows.at(static_cast<std::size_t>(row) - 1); }
};

} // namespace tsms::test

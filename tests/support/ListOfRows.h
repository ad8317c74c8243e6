#pragma once

#include "addressbook/RecipientRecord.h"
#include "addressbook/RecipientSheet.h"
#include "runtime/MobileNumber.h"

#include <QByteArray>

#include <cmath>
#include <vector>

namespace tsms::test {

/// A recipient list without a grid.
class ListOfRows final : public RecipientSheet
{
public:
    struct Row
    {
        QString number = {};
        QString name = {};
        QString phone = {};
        bool hidden = false;

        friend bool operator==(const Row&, const Row&) = default;
    };

    explicit ListOfRows(std::vector<Row> given = {}) : rows(std::move(given)) {}

    int MaxRows() const override { return static_cast<int>(rows.size()); }
    void SetMaxRows(int count) override { rows.resize(static_cast<std::size_t>(count)); }
    bool RowHidden(int row) const override { return At(row).hidden; }
    QString PhoneText(int row) const override { return At(row).phone; }
    void Write(int row, const QString& number, const QString& name, const QString& phone) override
    {
        At(row) = {number, name, phone, At(row).hidden};
    }

    std::vector<Row> rows;

private:
    const Row& At(int row) const { return rows[static_cast<std::size_t>(row) - 1]; }
    Row& At(int row) { return rows[static_cast<std::size_t>(row) - 1]; }
};

/// What the reading of a recipient file comes to when the whole list is gone through for each record.
inline void ReadByScans(const QByteArray& bytes, ListOfRows& list)
{
    const double records = static_cast<double>(bytes.size()) / RecipientRecord::Size;
    list.SetMaxRows(static_cast<int>(std::nearbyint(records + 20)));
    int target = 1;
    for (int i = 1; i <= records; ++i) {
        const RecipientRecord record =
            RecipientRecord::Of(bytes.mid((i - 1) * RecipientRecord::Size, RecipientRecord::Size));
        if (!HasMobilePrefix(record.phone))
            continue;
        bool listed = false;
        for (int row = 1; row <= list.MaxRows(); ++row)
            listed = listed || (!list.RowHidden(row) &&
                                ComparedNumber(list.PhoneText(row)) == ComparedNumber(record.phone));
        if (listed)
            continue;
        list.Write(target, QString::number(target), record.name, record.phone);
        ++target;
    }
}

} // namespace tsms::test

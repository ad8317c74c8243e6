#include "addressbook/BrowseList.h"

#include "addressbook/BookGrids.h"
#include "runtime/CellSource.h"
#include "runtime/Text.h"
#include "store/engine/Recordset.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"

#include <vector>

namespace tsms {

namespace {

/// The fields of a query in columns that have others between them.
class PlacedCells final : public CellSource
{
public:
    /// `columns` names, field by field, the columns that take them, in ascending order.
    PlacedCells(std::shared_ptr<const Recordset> records, const std::vector<int>& columns)
        : records_(std::move(records)), fields_(static_cast<std::size_t>(columns.back()), NoField)
    {
        int field = 0;
        for (const int column : columns)
            fields_[static_cast<std::size_t>(column) - 1] = field++;
    }

    int Rows() const override { return records_->RecordCount(); }
    int Cols() const override { return static_cast<int>(fields_.size()); }

    QString Text(int col, int row) const override
    {
        const int field = fields_[static_cast<std::size_t>(col) - 1];
        return field == NoField ? QString() : records_->Text(row - 1, field);
    }

private:
    static constexpr int NoField = -1;

    std::shared_ptr<const Recordset> records_;
    std::vector<int> fields_; // by column
};

} // namespace

void BrowseList::ShowMembers(const std::shared_ptr<const Recordset>& records)
{
    const std::vector<int> columns{MemberCode, MemberGroup, MemberName, MemberPhone};
    grid_.Cells().SetMaxRows(records->RecordCount());
    grid_.SetDataSource(std::make_shared<PlacedCells>(records, columns));
}

void BrowseList::ShowGroups(const std::shared_ptr<const Recordset>& records)
{
    const std::vector<int> columns{GroupCode, GroupName};
    const int last = records->RecordCount() + 1;
    grid_.Cells().SetMaxRows(last);
    grid_.SetDataSource(std::make_shared<PlacedCells>(records, columns));
    grid_.Cells().SetText(GroupCode, last, QString());
    grid_.Cells().SetText(GroupName, last, OtherGroup());
}

QList<BookPerson> BrowseList::TickedMembers() const
{
    QList<BookPerson> ticked;
    for (int row = 1; row <= grid_.Cells().MaxRows(); ++row)
        if (grid_.Cells().CellPicture(MemberTick, row) == CheckTicked)
            ticked += {TextOf(MemberCode, row), TextOf(MemberName, row), TextOf(MemberPhone, row)};
    return ticked;
}

QStringList BrowseList::TickedGroups() const
{
    QStringList codes;
    for (int row = 1; row <= grid_.Cells().MaxRows(); ++row)
        if (grid_.Cells().CellPicture(GroupTick, row) == CheckTicked)
            codes += Trim(TextOf(GroupCode, row));
    return codes;
}

QString BrowseList::ActiveText(int column) const
{
    return Trim(TextOf(column, grid_.ActiveRow()));
}

QString BrowseList::TextOf(int column, int row) const
{
    return GridHelper().GetCellText(grid_, column, row);
}

QString OtherGroup()
{
    return QStringLiteral("기타");
}

} // namespace tsms

#include "recipients/GridRecipientList.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Fonts.h"
#include "toolkit/look/Theme.h"

#include <algorithm>
#include <utility>

namespace tsms {

namespace {

using List = GridRecipientList;

constexpr int FirstRows = 20;
constexpr int NameCharacters = 6;
constexpr int PhoneCharacters = 13;

void SetWidths(fpSpread& grid)
{
    constexpr double widths[] = {2.0, 5.0, 10.5, 1.5};
    for (int column = List::RunningNumberColumn; column <= List::RemoveColumn; ++column) {
        grid.Cells().SetText(column, 0, QString());
        grid.SetColWidth(column, widths[column - 1]);
    }
}

void SetCellTypes(fpSpread& grid)
{
    grid.Cells().SetType(List::RunningNumberColumn, SpreadModel::CellType::StaticText);
    grid.Cells().SetAlignment(List::RunningNumberColumn, Qt::AlignCenter);
    grid.Cells().SetType(List::NameColumn, SpreadModel::CellType::Edit);
    grid.Cells().SetMaxLength(List::NameColumn, NameCharacters);
    grid.Cells().SetAlignment(List::NameColumn, Qt::AlignCenter);
    grid.Cells().SetType(List::PhoneColumn, SpreadModel::CellType::Edit);
    grid.Cells().SetMaxLength(List::PhoneColumn, PhoneCharacters);
    grid.Cells().SetAlignment(List::PhoneColumn, Qt::AlignCenter);
    grid.Cells().SetButton(List::RemoveColumn, QStringLiteral("x"), theme::Strip, theme::White);
    grid.Cells().SetType(List::ThirdValueColumn, SpreadModel::CellType::StaticText);
    grid.SetColHidden(List::ThirdValueColumn, true);
}

/// The columns have no titles.
void TellOfColumns(fpSpread& grid)
{
    grid.Cells().SetWords(List::RunningNumberColumn, QStringLiteral("번호"));
    grid.Cells().SetWords(List::NameColumn, QStringLiteral("받는사람"));
    grid.Cells().SetWords(List::PhoneColumn, QStringLiteral("수신번호"));
    grid.Cells().SetWords(List::RemoveColumn, QStringLiteral("삭제"));
}

} // namespace

int GridRecipientList::Rows() const
{
    return grid_.Cells().MaxRows();
}

QString GridRecipientList::Name(int row) const
{
    return grid_.Cells().Text(NameColumn, row);
}

QString GridRecipientList::Phone(int row) const
{
    return grid_.Cells().Text(PhoneColumn, row);
}

bool GridRecipientList::IsRemoved(int row) const
{
    return grid_.RowHidden(row);
}

void GridRecipientList::Reset()
{
    grid_.Reset();
    grid_.setFont(theme::Font());
    grid_.SetBackgroundColor(theme::White);
    grid_.SetRowHeight(0, 15);
    grid_.SetRowHeight(SpreadModel::All, 13.5);
    grid_.SetGridColor(theme::Line);
    grid_.SetHeadersVisible(false, false);
    grid_.Cells().SetMaxCols(ThirdValueColumn);
    SetWidths(grid_);
    SetCellTypes(grid_);
    TellOfColumns(grid_);
    grid_.Cells().SetMaxRows(FirstRows);
    grid_.Cells().SetColors(RunningNumberColumn, SpreadModel::All, theme::Strip, theme::White);
    grid_.Cells().SetColors(NameColumn, SpreadModel::All, theme::Ground, QColor(Qt::black));
    for (int i = 1; i <= FirstRows; ++i)
        WriteRunningNumber(i, TwoDigits(i));
}

void GridRecipientList::Resize(int rows)
{
    grid_.Cells().SetMaxRows(rows);
}

void GridRecipientList::Write(int row, QString name, QString phone)
{
    grid_.Cells().SetText(NameColumn, row, std::move(name));
    grid_.Cells().SetText(PhoneColumn, row, std::move(phone));
}

void GridRecipientList::WriteRunningNumber(int row, QString number)
{
    grid_.Cells().SetText(RunningNumberColumn, row, std::move(number));
}

void GridRecipientList::WriteThirdValue(int row, QString value)
{
    grid_.Cells().SetText(ThirdValueColumn, row, std::move(value));
}

void GridRecipientList::InOneGo(const std::function<void()>& changes)
{
    grid_.InOneGo(changes);
}

void GridRecipientList::RemoveActive()
{
    grid_.SetRowHidden(grid_.ActiveRow(), true);
    InOneGo([this] { NumberAnew(); });
}

void GridRecipientList::NumberAnew()
{
    Counter16 row(0);
    Counter16 n(1);
    while (row.Value() < Rows()) {
        ++row;
        if (IsRemoved(row.Value()))
            continue;
        WriteRunningNumber(row.Value(), TwoDigits(n.Value()));
        ++n;
    }
}

void GridRecipientList::Paste(const QList<QStringList>& rows)
{
    const int firstColumn = grid_.ActiveCol() == PhoneColumn ? PhoneColumn : NameColumn;
    const int firstRow = std::max(grid_.ActiveRow(), 1);
    InOneGo([&] {
        AddNumberedRows(static_cast<int>(rows.size()) - CountOnView(firstRow));
        int row = firstRow;
        for (const QStringList& values : rows) {
            while (IsRemoved(row))
                ++row;
            for (int i = 0; i < values.size() && firstColumn + i <= PhoneColumn; ++i)
                grid_.Cells().EnterText(firstColumn + i, row, values[i]);
            ++row;
        }
    });
}

void GridRecipientList::AddNumberedRows(int count)
{
    if (count <= 0)
        return;
    const int before = Rows();
    const int number = CountOnView(1);
    Resize(before + count);
    for (int i = 1; i <= count; ++i)
        WriteRunningNumber(before + i, TwoDigits(number + i));
}

/// From that row to the last.
int GridRecipientList::CountOnView(int first) const
{
    int count = 0;
    for (int row = first; row <= Rows(); ++row)
        if (!IsRemoved(row))
            ++count;
    return count;
}

void GridRecipientList::WalkOnEnter()
{
    int column = grid_.ActiveCol() + 1;
    int row = grid_.ActiveRow();
    if (column == RemoveColumn) {
        ++row;
        column = NameColumn;
    }
    grid_.SetActiveCell(column, row);
}

void GridRecipientList::GoToFreeName()
{
    int row = 1;
    while (row <= Rows() && !IsFree(row))
        ++row;
    grid_.SetActiveCell(NameColumn, row <= Rows() ? row : grid_.ActiveRow());
}

/// On view, without a name and without a number.
bool GridRecipientList::IsFree(int row) const
{
    return !IsRemoved(row) && IsBlank(Name(row)) && IsBlank(Phone(row));
}

} // namespace tsms

#include "recipients/GridRecipientList.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Theme.h"

#include <algorithm>

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
        grid.SetText(column, 0, QString());
        grid.SetColWidth(column, widths[column - 1]);
    }
}

void SetCellTypes(fpSpread& grid)
{
    grid.SetColType(List::RunningNumberColumn, fpSpread::CellType::StaticText);
    grid.SetColAlignment(List::RunningNumberColumn, Qt::AlignCenter);
    grid.SetColType(List::NameColumn, fpSpread::CellType::Edit);
    grid.SetColMaxLength(List::NameColumn, NameCharacters);
    grid.SetColAlignment(List::NameColumn, Qt::AlignCenter);
    grid.SetColType(List::PhoneColumn, fpSpread::CellType::Edit);
    grid.SetColMaxLength(List::PhoneColumn, PhoneCharacters);
    grid.SetColAlignment(List::PhoneColumn, Qt::AlignCenter);
    grid.SetColButton(List::RemoveColumn, QStringLiteral("x"), theme::Strip, theme::White);
    grid.SetColType(List::ThirdValueColumn, fpSpread::CellType::StaticText);
    grid.SetColHidden(List::ThirdValueColumn, true);
}

/// The columns have no titles.
void TellOfColumns(fpSpread& grid)
{
    grid.SetColWords(List::RunningNumberColumn, QStringLiteral("번호"));
    grid.SetColWords(List::NameColumn, QStringLiteral("받는사람"));
    grid.SetColWords(List::PhoneColumn, QStringLiteral("수신번호"));
    grid.SetColWords(List::RemoveColumn, QStringLiteral("삭제"));
}

} // namespace

int GridRecipientList::Rows() const
{
    return grid_.MaxRows();
}

QString GridRecipientList::Name(int row) const
{
    return grid_.GetText(NameColumn, row);
}

QString GridRecipientList::Phone(int row) const
{
    return grid_.GetText(PhoneColumn, row);
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
    grid_.SetRowHeight(fpSpread::All, 13.5);
    grid_.SetGridColor(theme::Line);
    grid_.SetHeadersVisible(false, false);
    grid_.SetMaxCols(ThirdValueColumn);
    SetWidths(grid_);
    SetCellTypes(grid_);
    TellOfColumns(grid_);
    grid_.SetMaxRows(FirstRows);
    grid_.SetRangeColors(RunningNumberColumn, fpSpread::All, theme::Strip, theme::White);
    grid_.SetRangeColors(NameColumn, fpSpread::All, theme::Ground, QColor(Qt::black));
    for (int i = 1; i <= FirstRows; ++i)
        WriteRunningNumber(i, TwoDigits(i));
}

void GridRecipientList::Resize(int rows)
{
    grid_.SetMaxRows(rows);
}

void GridRecipientList::Write(int row, const QString& name, const QString& phone)
{
    grid_.SetText(NameColumn, row, name);
    grid_.SetText(PhoneColumn, row, phone);
}

void GridRecipientList::WriteRunningNumber(int row, const QString& number)
{
    grid_.SetText(RunningNumberColumn, row, number);
}

void GridRecipientList::WriteThirdValue(int row, const QString& value)
{
    grid_.SetText(ThirdValueColumn, row, value);
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
                grid_.EnterText(firstColumn + i, row, values[i]);
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

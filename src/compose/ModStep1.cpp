#include "compose/ModStep1.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Theme.h"

#include <algorithm>

namespace tsms {

namespace {

constexpr int FirstRows = 20;
constexpr int NameCharacters = 6;
constexpr int PhoneCharacters = 13;

void LayOutColumns(fpSpread& grid, GridHelper& helper)
{
    constexpr double widths[] = {2.0, 5.0, 10.5, 1.5};
    for (int column = NumberColumn; column <= RemoveColumn; ++column) {
        grid.SetText(column, 0, QString());
        grid.SetColWidth(column, widths[column - 1]);
        if (column == NumberColumn)
            helper.FormatColumn(grid, column, 2);
    }
}

void SetCellTypes(fpSpread& grid)
{
    grid.SetColType(NumberColumn, fpSpread::CellType::StaticText);
    grid.SetColAlignment(NumberColumn, Qt::AlignCenter);
    grid.SetColType(NameColumn, fpSpread::CellType::Edit);
    grid.SetColMaxLength(NameColumn, NameCharacters);
    grid.SetColAlignment(NameColumn, Qt::AlignCenter);
    grid.SetColType(PhoneColumn, fpSpread::CellType::Edit);
    grid.SetColMaxLength(PhoneColumn, PhoneCharacters);
    grid.SetColAlignment(PhoneColumn, Qt::AlignCenter);
    grid.SetColButton(RemoveColumn, QStringLiteral("x"), theme::Strip, theme::White);
    grid.SetColType(ThirdValueColumn, fpSpread::CellType::StaticText);
    grid.SetColHidden(ThirdValueColumn, true);
}

bool IsEmptyOnView(const fpSpread& grid, int row)
{
    return !grid.RowHidden(row) && IsBlank(grid.GetText(NameColumn, row)) &&
           IsBlank(grid.GetText(PhoneColumn, row));
}

/// The columns have no titles.
void TellOfColumns(fpSpread& grid)
{
    grid.SetColWords(NumberColumn, QStringLiteral("번호"));
    grid.SetColWords(NameColumn, QStringLiteral("받는사람"));
    grid.SetColWords(PhoneColumn, QStringLiteral("수신번호"));
    grid.SetColWords(RemoveColumn, QStringLiteral("삭제"));
}

/// From that row to the last.
int CountOnView(const fpSpread& grid, int first)
{
    int count = 0;
    for (int row = first; row <= grid.MaxRows(); ++row)
        if (!grid.RowHidden(row))
            ++count;
    return count;
}

void AddNumberedRows(fpSpread& grid, int count)
{
    if (count <= 0)
        return;
    const int before = grid.MaxRows();
    const int number = CountOnView(grid, 1);
    grid.SetMaxRows(before + count);
    for (int i = 1; i <= count; ++i)
        grid.SetText(NumberColumn, before + i, TwoDigits(number + i));
}

} // namespace

void InitRecipientGrid(fpSpread& grid)
{
    GridHelper helper;
    grid.Reset();
    grid.setFont(theme::Font());
    grid.SetBackgroundColor(theme::White);
    grid.SetRowHeight(0, 15);
    grid.SetRowHeight(fpSpread::All, 13.5);
    grid.SetGridColor(theme::Line);
    grid.SetHeadersVisible(false, false);
    grid.SetMaxCols(ThirdValueColumn);
    LayOutColumns(grid, helper);
    SetCellTypes(grid);
    TellOfColumns(grid);
    grid.SetMaxRows(FirstRows);
    helper.SetRangeColors(grid, NumberColumn, fpSpread::All, theme::Strip, theme::White);
    helper.SetRangeColors(grid, NameColumn, fpSpread::All, theme::Ground, QColor(Qt::black));
    for (int i = 1; i <= FirstRows; ++i)
        grid.SetText(NumberColumn, i, TwoDigits(i));
}

void RemoveActiveRecipient(fpSpread& grid)
{
    grid.SetRowHidden(grid.ActiveRow(), true);
    Counter16 row(0);
    Counter16 n(1);
    while (row.Value() < grid.MaxRows()) {
        ++row;
        if (grid.RowHidden(row.Value()))
            continue;
        grid.SetText(NumberColumn, row.Value(), TwoDigits(n.Value()));
        ++n;
    }
}

void WalkOnEnter(fpSpread& grid)
{
    int column = grid.ActiveCol() + 1;
    int row = grid.ActiveRow();
    if (column == RemoveColumn) {
        ++row;
        column = NameColumn;
    }
    grid.SetActiveCell(column, row);
}

void GoToFreeName(fpSpread& grid)
{
    int row = 1;
    while (row <= grid.MaxRows() && !IsEmptyOnView(grid, row))
        ++row;
    grid.SetActiveCell(NameColumn, row <= grid.MaxRows() ? row : grid.ActiveRow());
}

void PutRecipients(fpSpread& grid, const QList<QStringList>& rows)
{
    const int firstColumn = grid.ActiveCol() == PhoneColumn ? PhoneColumn : NameColumn;
    const int firstRow = std::max(grid.ActiveRow(), 1);
    grid.SetReDraw(false);
    AddNumberedRows(grid, static_cast<int>(rows.size()) - CountOnView(grid, firstRow));
    int row = firstRow;
    for (const QStringList& values : rows) {
        while (grid.RowHidden(row))
            ++row;
        for (int i = 0; i < values.size() && firstColumn + i <= PhoneColumn; ++i)
            grid.EnterText(firstColumn + i, row, values[i]);
        ++row;
    }
    grid.SetReDraw(true);
}

} // namespace tsms

#include "history/GridSheet.h"

#include "runtime/Text.h"
#include "toolkit/grid/fpSpread.h"

namespace tsms {

namespace {

SheetAlignment AlignmentOf(Qt::Alignment alignment)
{
    if (alignment & Qt::AlignHCenter)
        return SheetAlignment::Center;
    return alignment & Qt::AlignRight ? SheetAlignment::Right : SheetAlignment::General;
}

SheetColumn ColumnOf(const fpSpread& grid, int col)
{
    SheetColumn column;
    column.width = grid.ColWidthInDigits(col);
    column.hidden = grid.ColHidden(col);
    column.number = grid.Cells().IsNumber(col) || grid.Cells().Type(col) == SpreadModel::CellType::Number;
    column.alignment = AlignmentOf(grid.Cells().Alignment(col));
    return column;
}

QString CellText(const fpSpread& grid, int col, int sheetRow)
{
    const int row = sheetRow - 1;
    if (row == 0)
        return Trim(grid.Cells().Text(col, 0));
    return grid.Cells().CellPicture(col, row) >= 0 ? QString() : grid.Cells().Text(col, row);
}

} // namespace

Sheet SheetOf(const fpSpread& grid)
{
    Sheet sheet;
    for (int col = 1; col <= grid.Cells().MaxCols(); ++col)
        sheet.columns.push_back(ColumnOf(grid, col));
    sheet.rows = grid.Cells().MaxRows() + sheet.titleRows;
    sheet.text = [&grid, text = QString()](int col, int row) mutable -> QStringView {
        text = CellText(grid, col, row);
        return text;
    };
    return sheet;
}

} // namespace tsms

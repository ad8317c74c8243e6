#include "toolkit/grid/GridHelper.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Theme.h"

namespace tsms {

QString GridHelper::GetCellText(const fpSpread& grid, int col, int row) const
{
    return grid.Cells().Text(col, row);
}

void GridHelper::PrepareGrid(fpSpread& grid) const
{
    grid.Reset();
    grid.setFont(theme::Font());
    grid.SetHeadersVisible(true, false);
    grid.SetGridColor(theme::Line);
    grid.SetBackgroundColor(theme::White);
}

void GridHelper::LayOut(fpSpread& grid, const std::vector<GridColumn>& columns) const
{
    int col = 0;
    for (const GridColumn& column : columns) {
        ++col;
        grid.Cells().SetText(col, 0, column.title);
        grid.SetColWidth(col, column.width);
        if (column.format == GridColumn::Format::Centred)
            FormatColumn(grid, col, 2);
        if (column.format == GridColumn::Format::Number)
            NumberColumn(grid, col);
        if (column.back.isValid())
            SetRangeColors(grid, col, SpreadModel::All, column.back, column.text);
    }
    grid.Cells().SetMaxCols(col);
}

void GridHelper::FormatColumn(fpSpread& grid, int col, int format) const
{
    grid.Cells().SetAlignment(col, format == 2   ? Qt::AlignHCenter
                                   : format == 1 ? Qt::AlignRight
                                                 : Qt::AlignLeft);
}

void GridHelper::NumberColumn(fpSpread& grid, int col) const
{
    grid.Cells().SetNumber(col, true);
}

void GridHelper::SetRangeColors(fpSpread& grid, int col, int row, const QColor& back,
                                const QColor& text) const
{
    grid.Cells().SetColors(col, row, back, text);
}

void GridHelper::HideColumn(fpSpread& grid, int col) const
{
    grid.SetColHidden(col, true);
}

void GridHelper::ClearGrid(fpSpread& grid, bool flag) const
{
    if (flag)
        grid.SetDataSource(nullptr);
    grid.Cells().SetMaxRows(0);
}

} // namespace tsms

#include "toolkit/grid/GridHelper.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Fonts.h"
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

void GridHelper::SetUpList(fpSpread& grid, double titleHeight, double rowHeight,
                           const std::vector<GridColumn>& columns) const
{
    PrepareGrid(grid);
    grid.Cells().SetMaxRows(0); // before the titles: they would take the room of all rows
    grid.SetRowHeight(0, titleHeight);
    grid.SetRowHeight(SpreadModel::All, rowHeight);
    LayOut(grid, columns);
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
            grid.Cells().SetNumber(col, true);
        if (column.back.isValid())
            grid.Cells().SetColors(col, SpreadModel::All, column.back, column.text);
    }
    grid.Cells().SetMaxCols(col);
}

void GridHelper::FormatColumn(fpSpread& grid, int col, int format) const
{
    grid.Cells().SetAlignment(col, format == 2   ? Qt::AlignHCenter
                                   : format == 1 ? Qt::AlignRight
                                                 : Qt::AlignLeft);
}

} // namespace tsms

#pragma once

namespace tsms {

struct Sheet;
class SheetCells;

/// Numbers from 1; none where both are 0.
struct CellRange
{
    int first = 0;
    int last = 0;

    bool IsEmpty() const { return last == 0; }
};

/// The columns from the first to the last cell of a row. In a title row each column has a cell, since it is
/// yellow without a text too.
CellRange UsedColumns(const Sheet& sheet, const SheetCells& cells, int row);

/// The smallest rectangle around all cells.
struct UsedArea
{
    CellRange rows;
    CellRange columns;
};

UsedArea FindUsedArea(const Sheet& sheet, const SheetCells& cells);

} // namespace tsms

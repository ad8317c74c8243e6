#include "spreadsheet/write/UsedCells.h"

#include "spreadsheet/write/Sheet.h"
#include "spreadsheet/write/SheetCells.h"

#include <algorithm>

namespace tsms {

namespace {

void Include(CellRange& into, const CellRange& other)
{
    into = into.IsEmpty() ? other
                          : CellRange{std::min(into.first, other.first), std::max(into.last, other.last)};
}

} // namespace

CellRange UsedColumns(const Sheet& sheet, const SheetCells& cells, int row)
{
    if (row <= sheet.titleRows)
        return {cells.Columns() > 0 ? 1 : 0, cells.Columns()};
    int first = 1;
    int last = cells.Columns();
    while (last > 0 && cells.IsEmpty(last, row))
        --last;
    while (first < last && cells.IsEmpty(first, row))
        ++first;
    return {last > 0 ? first : 0, last};
}

UsedArea FindUsedArea(const Sheet& sheet, const SheetCells& cells)
{
    UsedArea area;
    for (int row = 1; row <= cells.Rows(); ++row) {
        const CellRange columns = UsedColumns(sheet, cells, row);
        if (columns.IsEmpty())
            continue;
        Include(area.rows, {row, row});
        Include(area.columns, columns);
    }
    return area;
}

} // namespace tsms

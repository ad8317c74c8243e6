#pragma once

#include <QColor>
#include <QString>

namespace tsms {

class fpSpread;

/// The helper object that serves grids.
class GridHelper
{
public:
    /// The text of a cell; empty outside the grid. The one way in which operations read cells.
    QString GetCellText(const fpSpread& grid, int col, int row) const;

    /// The common preparation at the head of a grid's set-up: back to the defaults, then the house look with
    /// column titles and without row titles.
    void PrepareGrid(fpSpread& grid) const;

    /// A display format: 0 left, 1 right, 2 centred.
    void FormatColumn(fpSpread& grid, int col, int format) const;

    /// Marks a column as a column of numbers; display only.
    void NumberColumn(fpSpread& grid, int col) const;

    /// Colours a column (row -1) or a cell.
    void SetRangeColors(fpSpread& grid, int col, int row, const QColor& back, const QColor& text) const;

    void HideColumn(fpSpread& grid, int col) const;

    /// Removes all rows. The flag says whether the data source is let go as well.
    void ClearGrid(fpSpread& grid, bool flag) const;
};

} // namespace tsms

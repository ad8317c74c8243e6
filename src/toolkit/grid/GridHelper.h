#pragma once

#include <QColor>
#include <QString>

#include <vector>

namespace tsms {

class fpSpread;

/// A column as the set-up of a grid tells it.
struct GridColumn
{
    enum class Format { Plain, Centred, Number };

    QString title;
    double width;
    Format format = Format::Plain;
    QColor back = {}; ///< without one both colours are those of the grid
    QColor text = Qt::black;
};

/// The helper object that serves grids.
class GridHelper
{
public:
    /// The text of a cell; empty outside the grid. The one way in which operations read cells.
    QString GetCellText(const fpSpread& grid, int col, int row) const;

    /// The common preparation at the head of a grid's set-up: back to the defaults, then the house look with
    /// column titles and without row titles.
    void PrepareGrid(fpSpread& grid) const;

    /// Makes these all the columns of a grid, from the first on: titles, widths, formats and colours.
    void LayOut(fpSpread& grid, const std::vector<GridColumn>& columns) const;

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

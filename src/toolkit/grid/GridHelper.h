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

    /// Makes a grid an empty list of these columns: prepared, with rows of these heights in points.
    void SetUpList(fpSpread& grid, double titleHeight, double rowHeight,
                   const std::vector<GridColumn>& columns) const;

    /// Makes these all the columns of a grid, from the first on: titles, widths, formats and colours.
    void LayOut(fpSpread& grid, const std::vector<GridColumn>& columns) const;

    /// A display format: 0 left, 1 right, 2 centred.
    void FormatColumn(fpSpread& grid, int col, int format) const;
};

} // namespace tsms

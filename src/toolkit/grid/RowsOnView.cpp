#include "toolkit/grid/RowsOnView.h"

#include "toolkit/grid/fpSpread.h"

#include <QHeaderView>

#include <algorithm>

namespace tsms {

int HeightOfRows(const fpSpread& grid, int rows)
{
    const QHeaderView& titles = *grid.horizontalHeader();
    const int titleHeight = titles.isHidden() ? 0 : titles.minimumHeight();
    return titleHeight + rows * grid.verticalHeader()->defaultSectionSize() + 2 * grid.frameWidth();
}

void ShowRows(fpSpread& grid, int rows, int pixels, int least)
{
    const int rowHeight = grid.verticalHeader()->defaultSectionSize();
    const int less = (pixels + rowHeight - 1) / rowHeight;
    grid.setFixedHeight(HeightOfRows(grid, std::max(rows - less, least)));
}

} // namespace tsms

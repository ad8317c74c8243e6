#include "history/GridSentRows.h"

#include "history/ModStep2.h"
#include "history/SendListMarks.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

namespace tsms {

int GridSentRows::MaxRows() const
{
    return grid_.Cells().MaxRows();
}

bool GridSentRows::IsRowTicked(int row) const
{
    return MarkOf(grid_, row) == CheckTicked;
}

QString GridSentRows::KeyText(int row) const
{
    return GridHelper().GetCellText(grid_, SendListKey, row);
}

QString GridSentRows::NumberText(int row) const
{
    return GridHelper().GetCellText(grid_, SendListNo, row);
}

QString GridSentRows::TimeText(int row) const
{
    return GridHelper().GetCellText(grid_, SendListTime, row);
}

} // namespace tsms

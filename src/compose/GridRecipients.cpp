#include "compose/GridRecipients.h"

#include "compose/ModStep1.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

namespace tsms {

int GridRecipients::MaxRows() const
{
    return grid_.MaxRows();
}

bool GridRecipients::RowHidden(int row) const
{
    return grid_.RowHidden(row);
}

QString GridRecipients::NameText(int row) const
{
    return GridHelper().GetCellText(grid_, NameColumn, row);
}

QString GridRecipients::PhoneText(int row) const
{
    return GridHelper().GetCellText(grid_, PhoneColumn, row);
}

} // namespace tsms

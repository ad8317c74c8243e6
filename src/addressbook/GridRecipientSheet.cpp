#include "addressbook/GridRecipientSheet.h"

#include "services/RecipientColumn.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

namespace tsms {

GridRecipientSheet::GridRecipientSheet(fpSpread& grid) : grid_(grid)
{
    grid_.SetReDraw(false);
}

GridRecipientSheet::~GridRecipientSheet()
{
    grid_.SetReDraw(true);
}

int GridRecipientSheet::MaxRows() const
{
    return grid_.MaxRows();
}

void GridRecipientSheet::SetMaxRows(int rows)
{
    grid_.SetMaxRows(rows);
}

bool GridRecipientSheet::RowHidden(int row) const
{
    return grid_.RowHidden(row);
}

QString GridRecipientSheet::PhoneText(int row) const
{
    return GridHelper().GetCellText(grid_, PhoneColumn, row);
}

void GridRecipientSheet::Write(int row, const QString& number, const QString& name, const QString& phone)
{
    grid_.SetText(NumberColumn, row, number);
    grid_.SetText(NameColumn, row, name);
    grid_.SetText(PhoneColumn, row, phone);
}

} // namespace tsms

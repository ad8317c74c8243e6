#include "addressbook/ChosenList.h"

#include "addressbook/BookGrids.h"
#include "runtime/Text.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"

namespace tsms {

ChosenList::ChosenList(fpSpread& grid) : grid_(grid)
{
    InitChosenGrid(grid_);
}

void ChosenList::AddMembers(const QList<BookPerson>& members)
{
    Append(TakeUnchosen(members, numbers_));
}

void ChosenList::AddGroup(const QList<BookPerson>& group)
{
    Append(TakeUpToChosen(group, numbers_));
}

void ChosenList::Append(const QList<BookPerson>& people)
{
    if (people.isEmpty())
        return;
    int row = grid_.Cells().MaxRows();
    grid_.SetReDraw(false);
    grid_.Cells().SetMaxRows(row + static_cast<int>(people.size()));
    for (const BookPerson& person : people) {
        ++row;
        grid_.Cells().SetText(ChosenCode, row, Trim(person.code));
        grid_.Cells().SetCellPicture(ChosenTick, row, CheckTicked);
        grid_.Cells().SetText(ChosenName, row, Trim(person.name));
        grid_.Cells().SetText(ChosenPhone, row, Trim(person.phone));
    }
    grid_.SetReDraw(true);
}

void ChosenList::HideActiveRow()
{
    const int row = grid_.ActiveRow();
    if (grid_.RowHidden(row))
        return; // its number may stand in another row by now
    numbers_.Remove(GridHelper().GetCellText(grid_, ChosenPhone, row));
    grid_.SetRowHidden(row, true);
}

void ChosenList::Clear()
{
    grid_.SetReDraw(false);
    grid_.SetDataSource(nullptr);
    grid_.Cells().SetMaxRows(0);
    grid_.SetReDraw(true);
    numbers_.Clear();
}

} // namespace tsms

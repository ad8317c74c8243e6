#include "addressbook/HandOver.h"

#include "addressbook/BookGrids.h"
#include "runtime/Text.h"
#include "services/RecipientColumn.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"

namespace tsms {

namespace {

/// 0 when there is none.
int FirstFreeRow(const fpSpread& recipients)
{
    for (int row = 1; row <= recipients.MaxRows(); ++row)
        if (IsBlank(GridHelper().GetCellText(recipients, PhoneColumn, row)))
            return row;
    return 0;
}

} // namespace

int CountChosen(const fpSpread& chosen)
{
    int ticked = 0;
    for (int row = 1; row <= chosen.MaxRows(); ++row)
        if (chosen.CellPicture(ChosenTick, row) == CheckTicked)
            ++ticked;
    return ticked;
}

void HandOver(const fpSpread& chosen, fpSpread& recipients)
{
    const GridHelper helper;
    const int start = FirstFreeRow(recipients);
    recipients.SetReDraw(false);
    recipients.SetMaxRows(recipients.MaxRows() + CountChosen(chosen));
    for (int j = 0; j < chosen.MaxRows(); ++j) {
        if (chosen.RowHidden(j + 1))
            continue;
        recipients.SetText(NameColumn, start + j, Trim(helper.GetCellText(chosen, ChosenName, j + 1)));
        recipients.SetText(PhoneColumn, start + j, Trim(helper.GetCellText(chosen, ChosenPhone, j + 1)));
    }
    recipients.SetReDraw(true);
}

} // namespace tsms

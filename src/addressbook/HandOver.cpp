#include "addressbook/HandOver.h"

#include "addressbook/BookGrids.h"
#include "recipients/RecipientList.h"
#include "runtime/Text.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"

namespace tsms {

namespace {

/// 0 when there is none.
int FirstFreeRow(const RecipientList& recipients)
{
    for (int row = 1; row <= recipients.Rows(); ++row)
        if (IsBlank(recipients.Phone(row)))
            return row;
    return 0;
}

} // namespace

int CountChosen(const fpSpread& chosen)
{
    int ticked = 0;
    for (int row = 1; row <= chosen.Cells().MaxRows(); ++row)
        if (chosen.Cells().CellPicture(ChosenTick, row) == CheckTicked)
            ++ticked;
    return ticked;
}

void HandOver(const fpSpread& chosen, RecipientList& recipients)
{
    const GridHelper helper;
    const int start = FirstFreeRow(recipients);
    recipients.InOneGo([&] {
        recipients.Resize(recipients.Rows() + CountChosen(chosen));
        for (int j = 0; j < chosen.Cells().MaxRows(); ++j)
            if (!chosen.RowHidden(j + 1))
                recipients.Write(start + j, Trim(helper.GetCellText(chosen, ChosenName, j + 1)),
                                 Trim(helper.GetCellText(chosen, ChosenPhone, j + 1)));
    });
}

} // namespace tsms

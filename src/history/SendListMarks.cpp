#include "history/SendListMarks.h"

#include "history/ModStep2.h"
#include "history/ReservedTest.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

namespace tsms {

CheckPicture FirstMark(const QString& status, const QString& sendTime, QDate today)
{
    if (Trim(status) == QStringView(u"2"))
        return CheckLocked;
    return IsReserved(sendTime, today) ? CheckEmpty : CheckLocked;
}

void SetFirstMarks(fpSpread& list, QDate today)
{
    const GridHelper helper;
    const int rows = list.Cells().MaxRows();
    list.InOneGo([&] {
        for (Counter16 row; row.Value() < rows;) {
            ++row;
            const QString status = helper.GetCellText(list, SendListStatus, row.Value());
            const QString time = helper.GetCellText(list, SendListTime, row.Value());
            list.Cells().SetCellPicture(SendListStatus, row.Value(), FirstMark(status, time, today));
        }
    });
}

CheckPicture MarkOf(const fpSpread& list, int row)
{
    return static_cast<CheckPicture>(list.Cells().CellPicture(SendListStatus, row));
}

void InvertMark(fpSpread& list, int row)
{
    switch (MarkOf(list, row)) {
    case CheckEmpty:
        list.Cells().SetCellPicture(SendListStatus, row, CheckTicked);
        break;
    case CheckTicked:
        list.Cells().SetCellPicture(SendListStatus, row, CheckEmpty);
        break;
    default:
        break;
    }
}

void InvertMarks(fpSpread& list)
{
    list.InOneGo([&] {
        for (int row = 1; row <= list.Cells().MaxRows(); ++row)
            InvertMark(list, row);
    });
}

std::int32_t CountTicked(const fpSpread& list)
{
    std::int32_t ticked = 0;
    for (int row = 1; row <= list.Cells().MaxRows(); ++row)
        if (MarkOf(list, row) == CheckTicked)
            ++ticked;
    return ticked;
}

} // namespace tsms

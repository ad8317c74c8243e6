#include "history/ModStep2.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

#include <QColor>
#include <QString>

namespace tsms {

namespace {

struct Column
{
    QString title;
    double width;
    bool centred;
    QColor back;
};

} // namespace

void InitSendListGrid(fpSpread& grid)
{
    const GridHelper helper;
    const QColor wordBack(228, 234, 244);
    const QColor nameBack(255, 255, 214);
    const Column columns[] = {
        {QString(), 7.5, true, {}},
        {QStringLiteral("선택"), 7, true, {}},
        {QStringLiteral("번호"), 8, true, {}},
        {QStringLiteral("상태"), 6.5, true, wordBack},
        {QStringLiteral("받는사람"), 12, false, nameBack},
        {QStringLiteral("수신번호"), 11, false, {}},
        {QStringLiteral("보낸시간"), 14, true, {}},
        {QStringLiteral("보낸메시지"), 30, false, {}},
        {QStringLiteral("실패코드"), 7, true, {}},
        {QStringLiteral("실패사유"), 50, false, {}},
    };
    helper.PrepareGrid(grid);
    grid.SetRowCursor(true);
    grid.SetRowHeight(0, 16);
    grid.SetRowHeight(fpSpread::All, 16);
    int col = 0;
    for (const Column& column : columns) {
        ++col;
        grid.SetText(col, 0, column.title);
        grid.SetColWidth(col, column.width);
        if (column.centred)
            helper.FormatColumn(grid, col, 2);
        if (column.back.isValid())
            helper.SetRangeColors(grid, col, fpSpread::All, column.back, Qt::black);
    }
    grid.SetMaxCols(col);
    grid.SetMaxRows(0);
    helper.HideColumn(grid, SendListKey);
}

} // namespace tsms

#include "history/ModStep2.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

#include <QColor>
#include <QString>

namespace tsms {

void InitSendListGrid(fpSpread& grid)
{
    using enum GridColumn::Format;
    GridHelper().SetUpList(grid, 16, 16,
                           {{QString(), 7.5, Centred},
                            {QStringLiteral("선택"), 7, Centred},
                            {QStringLiteral("번호"), 8, Centred},
                            {QStringLiteral("상태"), 6.5, Centred, QColor(228, 234, 244)},
                            {QStringLiteral("받는사람"), 12, Plain, QColor(255, 255, 214)},
                            {QStringLiteral("수신번호"), 11},
                            {QStringLiteral("보낸시간"), 14, Centred},
                            {QStringLiteral("보낸메시지"), 30},
                            {QStringLiteral("실패코드"), 7, Centred},
                            {QStringLiteral("실패사유"), 50}});
    grid.SetRowCursor(true);
    grid.SetColHidden(SendListKey, true);
}

} // namespace tsms

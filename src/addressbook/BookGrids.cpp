#include "addressbook/BookGrids.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"

#include <vector>

namespace tsms {

namespace {

constexpr QColor NameBack{250, 250, 250};

/// The first column is out of sight, the second has the ticks, and from `firstButton` on stand buttons with
/// the words of their titles.
void LayOutBook(fpSpread& grid, const std::vector<GridColumn>& columns, CheckPicture tick, int firstButton,
                const QColor& buttonFace)
{
    GridHelper().SetUpList(grid, 15, 14, columns);
    grid.Cells().SetPictures(PlainCheckPictures());
    grid.SetRowCursor(true);
    grid.SetColHidden(1, true);
    grid.Cells().SetType(2, SpreadModel::CellType::Picture);
    grid.Cells().SetCellPicture(2, SpreadModel::All, tick);
    for (int col = firstButton; col <= grid.Cells().MaxCols(); ++col)
        grid.Cells().SetButton(col, grid.Cells().Text(col, 0), buttonFace, theme::Text);
}

} // namespace

void InitChosenGrid(fpSpread& grid)
{
    using enum GridColumn::Format;
    LayOutBook(grid,
               {{QStringLiteral("번호"), 3, Centred},
                {QStringLiteral("체크"), 4, Centred},
                {QStringLiteral("성명"), 9, Centred, NameBack, QColor()},
                {QStringLiteral("전화번호"), 13, Centred},
                {QStringLiteral("삭제"), 4, Centred}},
               CheckTicked, ChosenDelete, theme::White);
}

void InitMemberGrid(fpSpread& grid)
{
    using enum GridColumn::Format;
    LayOutBook(grid,
               {{QStringLiteral("번호"), 3, Centred},
                {QStringLiteral("체크"), 3, Centred},
                {QStringLiteral("그룹"), 6, Centred},
                {QStringLiteral("이름"), 6, Centred, NameBack, QColor()},
                {QStringLiteral("전화번호"), 11.7, Centred},
                {QStringLiteral("수정"), 4, Centred},
                {QStringLiteral("삭제"), 4, Centred}},
               CheckEmpty, MemberEdit, theme::ButtonFace);
}

void InitGroupGrid(fpSpread& grid)
{
    using enum GridColumn::Format;
    LayOutBook(grid,
               {{QStringLiteral("번호"), 3, Centred},
                {QStringLiteral("체크"), 3, Centred},
                {QStringLiteral("그룹"), 24, Centred},
                {QStringLiteral("수정"), 4, Centred},
                {QStringLiteral("삭제"), 4, Centred}},
               CheckEmpty, GroupEdit, theme::ButtonFace);
}

void TurnTick(fpSpread& grid, int tickColumn, int row)
{
    const bool empty = grid.Cells().CellPicture(tickColumn, row) == CheckEmpty;
    grid.Cells().SetCellPicture(tickColumn, row, empty ? CheckTicked : CheckEmpty);
}

} // namespace tsms

#include "addressbook/BookGrids.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"

#include <vector>

namespace tsms {

namespace {

constexpr QColor NameBack{250, 250, 250};

enum class Cell { Text, Name, Tick, Button };

struct Column
{
    QString title;
    double width;
    Cell cell;
};

void LayOut(fpSpread& grid, const std::vector<Column>& columns, CheckPicture tick, const QColor& buttonFace)
{
    const GridHelper helper;
    helper.PrepareGrid(grid);
    grid.SetPictures(PlainCheckPictures());
    grid.SetRowCursor(true);
    grid.SetRowHeight(0, 15);
    grid.SetRowHeight(fpSpread::All, 14);
    int col = 0;
    for (const Column& column : columns) {
        ++col;
        grid.SetText(col, 0, column.title);
        grid.SetColWidth(col, column.width);
        grid.SetColAlignment(col, Qt::AlignCenter);
        if (column.cell == Cell::Name)
            helper.SetRangeColors(grid, col, fpSpread::All, NameBack, QColor());
        if (column.cell == Cell::Tick) {
            grid.SetColType(col, fpSpread::CellType::Picture);
            grid.SetCellPicture(col, fpSpread::All, tick);
        }
        if (column.cell == Cell::Button)
            grid.SetColButton(col, column.title, buttonFace, theme::Text);
    }
    grid.SetMaxCols(col);
    grid.SetMaxRows(0);
    helper.FormatColumn(grid, 1, 2);
    helper.HideColumn(grid, 1);
}

} // namespace

void InitChosenGrid(fpSpread& grid)
{
    LayOut(grid,
           {{QStringLiteral("번호"), 3, Cell::Text},
            {QStringLiteral("체크"), 4, Cell::Tick},
            {QStringLiteral("성명"), 9, Cell::Name},
            {QStringLiteral("전화번호"), 13, Cell::Text},
            {QStringLiteral("삭제"), 4, Cell::Button}},
           CheckTicked, theme::White);
}

void InitMemberGrid(fpSpread& grid)
{
    LayOut(grid,
           {{QStringLiteral("번호"), 3, Cell::Text},
            {QStringLiteral("체크"), 3, Cell::Tick},
            {QStringLiteral("그룹"), 6, Cell::Text},
            {QStringLiteral("이름"), 6, Cell::Name},
            {QStringLiteral("전화번호"), 11.7, Cell::Text},
            {QStringLiteral("수정"), 4, Cell::Button},
            {QStringLiteral("삭제"), 4, Cell::Button}},
           CheckEmpty, theme::ButtonFace);
}

void InitGroupGrid(fpSpread& grid)
{
    LayOut(grid,
           {{QStringLiteral("번호"), 3, Cell::Text},
            {QStringLiteral("체크"), 3, Cell::Tick},
            {QStringLiteral("그룹"), 24, Cell::Text},
            {QStringLiteral("수정"), 4, Cell::Button},
            {QStringLiteral("삭제"), 4, Cell::Button}},
           CheckEmpty, theme::ButtonFace);
}

void TurnTick(fpSpread& grid, int tickColumn, int row)
{
    const bool empty = grid.CellPicture(tickColumn, row) == CheckEmpty;
    grid.SetCellPicture(tickColumn, row, empty ? CheckTicked : CheckEmpty);
}

} // namespace tsms

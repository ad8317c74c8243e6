#include "history/GridSheet.h"

#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class GridSheet : public ::testing::Test
{
protected:
    GridSheet()
    {
        grid.Cells().SetMaxCols(3);
        grid.Cells().SetMaxRows(2);
        grid.Cells().SetText(1, 0, u" 이름 "_q);
        grid.Cells().SetText(1, 1, u"김하늘"_q);
        grid.Cells().SetText(2, 2, u" 12"_q);
    }
    QString Text(int col, int row) const { return SheetOf(grid).text(col, row).toString(); }

    fpSpread grid;
};

TEST_F(GridSheet, HasTheTitlesTrimmedAboveTheRows)
{
    EXPECT_EQ(SheetOf(grid).rows, 3);
    EXPECT_EQ(SheetOf(grid).titleRows, 1);
    EXPECT_EQ(Text(1, 1), u"이름"_q);
    EXPECT_EQ(Text(1, 2), u"김하늘"_q);
    EXPECT_EQ(Text(2, 3), u" 12"_q);
    EXPECT_EQ(Text(3, 3), QString());
}

TEST_F(GridSheet, BearsTheNameOfTheFirstSheet)
{
    EXPECT_EQ(SheetOf(grid).name, u"Sheet1"_q);
}

TEST_F(GridSheet, LeavesRowTitlesOut)
{
    grid.Cells().SetText(0, 1, u"발송건수"_q);
    EXPECT_EQ(SheetOf(grid).columns.size(), 3U);
    EXPECT_EQ(Text(1, 2), u"김하늘"_q);
}

TEST_F(GridSheet, TakesAHiddenColumnAlong)
{
    grid.SetColHidden(1, true);
    const Sheet sheet = SheetOf(grid);
    ASSERT_EQ(sheet.columns.size(), 3U);
    EXPECT_TRUE(sheet.columns[0].hidden);
    EXPECT_FALSE(sheet.columns[1].hidden);
    EXPECT_EQ(Text(1, 2), u"김하늘"_q);
}

TEST_F(GridSheet, HasRoomForWhatHasRoomInTheGrid)
{
    grid.SetColWidth(1, 11);
    grid.SetColWidth(2, 22);
    const Sheet sheet = SheetOf(grid);
    EXPECT_GE(sheet.columns[0].width, 13);
    EXPECT_LE(sheet.columns[0].width, 16);
    EXPECT_EQ(sheet.columns[1].width, 2 * sheet.columns[0].width);
}

TEST_F(GridSheet, KeepsAlignments)
{
    GridHelper().FormatColumn(grid, 2, 2);
    grid.Cells().SetNumber(3, true);
    const Sheet sheet = SheetOf(grid);
    EXPECT_EQ(sheet.columns[2].alignment, SheetAlignment::Right);
    EXPECT_EQ(sheet.columns[0].alignment, SheetAlignment::General);
    EXPECT_EQ(sheet.columns[1].alignment, SheetAlignment::Center);
}

TEST_F(GridSheet, HasNumbersInColumnsOfNumbersInGroupsOrAsTheyStand)
{
    grid.Cells().SetNumber(2, true);
    grid.Cells().SetType(3, SpreadModel::CellType::Number);
    grid.Cells().SetText(3, 1, u"12"_q);
    const Sheet sheet = SheetOf(grid);
    EXPECT_FALSE(sheet.columns[0].number);
    EXPECT_TRUE(sheet.columns[1].number);
    EXPECT_TRUE(sheet.columns[2].number);
    EXPECT_EQ(Text(3, 2), u"12"_q);
}

TEST_F(GridSheet, HasNothingWhereThereIsAPicture)
{
    grid.Cells().SetText(2, 1, u"1"_q);
    EXPECT_EQ(Text(2, 2), u"1"_q);
    grid.Cells().SetCellPicture(2, 1, 0);
    EXPECT_EQ(Text(2, 2), QString());
}

} // namespace

} // namespace tsms::test

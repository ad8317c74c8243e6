#include "toolkit/grid/GridHelper.h"
#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"

#include <QHeaderView>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class OneCell final : public CellSource
{
public:
    int Rows() const override { return 1; }
    int Cols() const override { return 1; }
    QString Text(int, int) const override { return QStringLiteral("bound"); }
};

class GridHelperTest : public ::testing::Test
{
protected:
    QVariant Role(int col, int row, int role) const
    {
        return grid.model()->index(row - 1, col - 1).data(role);
    }

    fpSpread grid;
    GridHelper helper;
};

TEST_F(GridHelperTest, GetCellTextGivesTheTextAsItStands)
{
    grid.Cells().SetText(2, 3, u" 010 "_q);
    EXPECT_EQ(helper.GetCellText(grid, 2, 3), u" 010 "_q);
}

TEST_F(GridHelperTest, GetCellTextIsEmptyForAnEmptyCellAndOutsideTheGrid)
{
    grid.Cells().SetText(2, 3, u"010"_q);
    EXPECT_EQ(helper.GetCellText(grid, 2, 4), QString());
    EXPECT_EQ(helper.GetCellText(grid, -1, 99999), QString());
}

TEST_F(GridHelperTest, GetCellTextReadsABoundCell)
{
    grid.SetDataSource(std::make_shared<OneCell>());
    EXPECT_EQ(helper.GetCellText(grid, 1, 1), u"bound"_q);
}

TEST_F(GridHelperTest, PrepareGridBeginsAnew)
{
    grid.Cells().SetText(1, 1, u"x"_q);
    grid.Cells().SetMaxRows(3);
    grid.SetColHidden(2, true);
    helper.PrepareGrid(grid);
    EXPECT_EQ(grid.Cells().Text(1, 1), QString());
    EXPECT_FALSE(grid.ColHidden(2));
    EXPECT_TRUE(grid.horizontalHeader()->isVisibleTo(&grid));
    EXPECT_FALSE(grid.verticalHeader()->isVisibleTo(&grid));
    EXPECT_EQ(grid.font().pointSizeF(), 9.0);
}

TEST_F(GridHelperTest, FormatTwoCentresAColumn)
{
    helper.FormatColumn(grid, 3, 2);
    EXPECT_EQ(Role(3, 1, Qt::TextAlignmentRole).toInt(), int{Qt::AlignCenter});
    EXPECT_NE(Role(2, 1, Qt::TextAlignmentRole).toInt(), int{Qt::AlignCenter});
}

TEST_F(GridHelperTest, FormatOnePutsAColumnToTheRightAndAnyOtherToTheLeft)
{
    helper.FormatColumn(grid, 2, 1);
    helper.FormatColumn(grid, 3, 0);
    EXPECT_EQ(Role(2, 1, Qt::TextAlignmentRole).toInt(), int{Qt::AlignRight | Qt::AlignVCenter});
    EXPECT_EQ(Role(3, 1, Qt::TextAlignmentRole).toInt(), int{Qt::AlignLeft | Qt::AlignVCenter});
}

TEST_F(GridHelperTest, NumberColumnIsDisplayOnly)
{
    grid.Cells().SetText(3, 1, u"12000"_q);
    helper.NumberColumn(grid, 3);
    EXPECT_TRUE(grid.Cells().IsNumber(3));
    EXPECT_EQ(grid.Cells().Text(3, 1), u"12000"_q);
}

TEST_F(GridHelperTest, SetRangeColorsWithRowMinusOneColoursTheColumn)
{
    helper.SetRangeColors(grid, 1, -1, QColor(182, 204, 211), Qt::white);
    for (const int row : {1, 2, 500}) {
        EXPECT_EQ(Role(1, row, Qt::BackgroundRole).value<QColor>(), QColor(182, 204, 211)) << row;
        EXPECT_EQ(Role(1, row, Qt::ForegroundRole).value<QColor>(), QColor(Qt::white)) << row;
    }
    EXPECT_FALSE(Role(2, 1, Qt::BackgroundRole).isValid());
}

TEST_F(GridHelperTest, SetRangeColorsWithARowColoursOneCell)
{
    helper.SetRangeColors(grid, 1, 2, Qt::red, Qt::white);
    EXPECT_TRUE(Role(1, 2, Qt::BackgroundRole).isValid());
    EXPECT_FALSE(Role(1, 1, Qt::BackgroundRole).isValid());
}

TEST_F(GridHelperTest, HideColumnHidesItAndKeepsItsTexts)
{
    grid.Cells().SetText(1, 1, u"7"_q);
    helper.HideColumn(grid, 1);
    EXPECT_TRUE(grid.isColumnHidden(0));
    EXPECT_EQ(grid.Cells().Text(1, 1), u"7"_q);
}

TEST_F(GridHelperTest, ClearGridRemovesAllRows)
{
    grid.Cells().SetText(1, 0, u"title"_q);
    grid.Cells().SetText(1, 1, u"x"_q);
    helper.ClearGrid(grid, false);
    EXPECT_EQ(grid.Cells().MaxRows(), 0);
    EXPECT_EQ(grid.Cells().Text(1, 0), u"title"_q);
    grid.Cells().SetMaxRows(2);
    EXPECT_EQ(grid.Cells().Text(1, 1), QString());
}

TEST_F(GridHelperTest, ClearGridRemovesTheRowsOfASource)
{
    for (const bool flag : {false, true}) {
        grid.Cells().SetMaxRows(1);
        grid.SetDataSource(std::make_shared<OneCell>());
        helper.ClearGrid(grid, flag);
        grid.Cells().SetMaxRows(1);
        EXPECT_EQ(grid.Cells().Text(1, 1), QString()) << flag;
    }
}

} // namespace

} // namespace tsms::test

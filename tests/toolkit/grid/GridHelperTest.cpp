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

TEST_F(GridHelperTest, SetUpListLeavesTheTitlesAndNoRow)
{
    grid.Cells().SetMaxRows(3);
    grid.Cells().SetText(1, 1, u"가"_q);
    helper.SetUpList(grid, 16, 14, {{u"번호"_q, 3}, {u"이름"_q, 9}});
    EXPECT_EQ(grid.Cells().MaxRows(), 0);
    EXPECT_EQ(grid.Cells().MaxCols(), 2);
    EXPECT_EQ(grid.Cells().Text(2, 0), u"이름"_q);
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

} // namespace

} // namespace tsms::test

#include "account/ModStep3.h"
#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"

#include <QHeaderView>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

struct Column
{
    int col;
    const char16_t* title;
    double width;
    bool centred;
    bool number;
    QColor back;

    friend void PrintTo(const Column& column, std::ostream* out) { *out << "column " << column.col; }
};

class ChargeColumns : public ::testing::TestWithParam<Column>
{
};

TEST_P(ChargeColumns, AreLaidOut)
{
    const Column& column = GetParam();
    fpSpread grid;
    InitChargeGrid(grid);
    grid.Cells().SetMaxRows(1);
    const QModelIndex cell = grid.model()->index(0, column.col - 1);
    EXPECT_EQ(grid.Cells().Text(column.col, 0), QString::fromUtf16(column.title));
    EXPECT_EQ(grid.ColWidth(column.col), column.width);
    EXPECT_EQ(grid.Cells().IsNumber(column.col), column.number);
    EXPECT_EQ(cell.data(Qt::TextAlignmentRole).toInt() == int{Qt::AlignCenter}, column.centred);
    EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QColor>(), column.back);
    EXPECT_EQ(grid.ColHidden(column.col), column.col == ChargeKey);
}

INSTANTIATE_TEST_SUITE_P(AllSeven, ChargeColumns,
                         ::testing::Values(Column{1, u"", 7.5, true, false, {}},
                                           Column{2, u"충전일시", 13, true, false, QColor(228, 234, 244)},
                                           Column{3, u"건수", 9, false, true, QColor(255, 255, 214)},
                                           Column{4, u"금액", 10, false, true, QColor(253, 241, 227)},
                                           Column{5, u"단가", 6, true, false, {}},
                                           Column{6, u"메모사항", 38.7, false, false, {}},
                                           Column{7, u"등록일시", 18, false, false, {}}));

TEST(ChargeGrid, HasSevenColumnsAndNoRows)
{
    fpSpread grid;
    InitChargeGrid(grid);
    EXPECT_EQ(grid.Cells().MaxCols(), 7);
    EXPECT_EQ(grid.Cells().MaxRows(), 0);
}

TEST(MonthGrid, HasTwelveMonthsAndATotal)
{
    fpSpread grid;
    InitMonthGrid(grid);
    EXPECT_EQ(grid.Cells().MaxRows(), 4);
    ASSERT_EQ(grid.Cells().MaxCols(), 13);
    EXPECT_EQ(grid.Cells().Text(1, 0), u"1월"_q);
    EXPECT_EQ(grid.Cells().Text(9, 0), u"9월"_q);
    EXPECT_EQ(grid.Cells().Text(12, 0), u"12월"_q);
    EXPECT_EQ(grid.Cells().Text(13, 0), u"전체합계"_q);
    EXPECT_EQ(grid.ColWidth(0), 8);
    EXPECT_EQ(grid.ColWidth(1), 7);
    EXPECT_EQ(grid.ColWidth(12), 7);
    EXPECT_EQ(grid.ColWidth(13), 8);
    EXPECT_TRUE(grid.Cells().IsNumber(1));
    EXPECT_TRUE(grid.Cells().IsNumber(12));
    EXPECT_FALSE(grid.Cells().IsNumber(13));
    EXPECT_TRUE(grid.model()->index(0, 12).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
}

TEST(MonthGrid, ShowsItsTitlesOnBothSides)
{
    fpSpread grid;
    InitMonthGrid(grid);
    EXPECT_TRUE(grid.horizontalHeader()->isVisibleTo(&grid));
    EXPECT_TRUE(grid.verticalHeader()->isVisibleTo(&grid));
    EXPECT_EQ(grid.horizontalHeader()->height(), 23);
    EXPECT_EQ(grid.rowHeight(0), 27);
}

struct FigureRow
{
    int row;
    const char16_t* title;
    QColor text;
    QColor back;

    friend void PrintTo(const FigureRow& figures, std::ostream* out) { *out << "row " << figures.row; }
};

class MonthRows : public ::testing::TestWithParam<FigureRow>
{
};

TEST_P(MonthRows, HaveATitleAndColours)
{
    fpSpread grid;
    InitMonthGrid(grid);
    EXPECT_EQ(grid.Cells().Text(0, GetParam().row), QString::fromUtf16(GetParam().title));
    for (const int col : {1, 13}) {
        const QModelIndex cell = grid.model()->index(GetParam().row - 1, col - 1);
        EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>(), GetParam().text);
        EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QColor>(), GetParam().back);
    }
}

INSTANTIATE_TEST_SUITE_P(AllFour, MonthRows,
                         ::testing::Values(FigureRow{1, u"발송건수", QColor(0, 0, 0), QColor(240, 240, 240)},
                                           FigureRow{2, u"성공", QColor(0, 0, 255), QColor(232, 236, 243)},
                                           FigureRow{3, u"실패", QColor(255, 0, 0), QColor(253, 241, 227)},
                                           FigureRow{4, u"수신율", QColor(0, 0, 0), QColor(240, 240, 240)}));

TEST(MonthGrid, LosesItsFiguresWhenItIsLaidOutAnew)
{
    fpSpread grid;
    InitMonthGrid(grid);
    grid.Cells().SetText(3, MonthSent, u"12"_q);
    grid.Cells().SetText(MonthTotalColumn, MonthSent, u"12"_q);
    InitMonthGrid(grid);
    EXPECT_EQ(grid.Cells().Text(3, MonthSent), QString());
    EXPECT_EQ(grid.Cells().Text(MonthTotalColumn, MonthSent), QString());
}

} // namespace

} // namespace tsms::test

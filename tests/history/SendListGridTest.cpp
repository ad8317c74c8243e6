#include "history/ModStep2.h"
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
    QColor back;
};

class SendListColumns : public ::testing::TestWithParam<Column>
{
protected:
    SendListColumns()
    {
        InitSendListGrid(grid);
        grid.Cells().SetMaxRows(2);
    }
    QVariant Role(int role) const { return grid.model()->index(1, GetParam().col - 1).data(role); }

    fpSpread grid;
};

TEST_P(SendListColumns, AreLaidOut)
{
    const Column& column = GetParam();
    EXPECT_EQ(grid.Cells().Text(column.col, 0), QString::fromUtf16(column.title));
    EXPECT_EQ(grid.ColWidth(column.col), column.width);
    const int alignment = Role(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    EXPECT_EQ(alignment == Qt::AlignHCenter, column.centred);
    EXPECT_EQ(Role(Qt::BackgroundRole).value<QColor>(), column.back);
    EXPECT_EQ(Role(Qt::ForegroundRole).value<QColor>(), column.back.isValid() ? QColor(Qt::black) : QColor());
    EXPECT_EQ(grid.ColHidden(column.col), column.col == SendListKey);
    EXPECT_EQ(grid.Cells().Type(column.col), SpreadModel::CellType::StaticText);
}

INSTANTIATE_TEST_SUITE_P(
    AllTen, SendListColumns,
    ::testing::Values(Column{1, u"", 7.5, true, {}}, Column{2, u"선택", 7, true, {}},
                      Column{3, u"번호", 8, true, {}}, Column{4, u"상태", 6.5, true, QColor(228, 234, 244)},
                      Column{5, u"받는사람", 12, false, QColor(255, 255, 214)},
                      Column{6, u"수신번호", 11, false, {}}, Column{7, u"보낸시간", 14, true, {}},
                      Column{8, u"보낸메시지", 30, false, {}}, Column{9, u"실패코드", 7, true, {}},
                      Column{10, u"실패사유", 50, false, {}}));

TEST(SendListGrid, HasTenColumnsAndNoRows)
{
    fpSpread grid;
    InitSendListGrid(grid);
    EXPECT_EQ(grid.Cells().MaxCols(), 10);
    EXPECT_EQ(grid.Cells().MaxRows(), 0);
    EXPECT_EQ(grid.horizontalHeader()->height(), 21);
    EXPECT_EQ(grid.verticalHeader()->defaultSectionSize(), 21);
}

TEST(SendListGrid, LosesItsTicksWhenItIsLaidOutAnew)
{
    fpSpread grid;
    InitSendListGrid(grid);
    grid.Cells().SetMaxRows(1);
    grid.Cells().SetCellPicture(SendListStatus, 1, 1);
    InitSendListGrid(grid);
    grid.Cells().SetMaxRows(1);
    EXPECT_EQ(grid.Cells().CellPicture(SendListStatus, 1), -1);
}

} // namespace

} // namespace tsms::test

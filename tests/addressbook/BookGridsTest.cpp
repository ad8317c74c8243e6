#include "support/program/AddressBook.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/look/Theme.h"

#include <QHeaderView>

using namespace tsms;
using namespace tsms::test;

namespace {

struct Column
{
    QString title;
    double width;
    SpreadModel::CellType type;
};

constexpr auto Text = SpreadModel::CellType::StaticText;
constexpr auto Picture = SpreadModel::CellType::Picture;
constexpr auto Button = SpreadModel::CellType::Button;

class BookGrids : public AddressBookTest
{
protected:
    static void ExpectLayout(fpSpread& grid, const QList<Column>& columns, int defaultTick)
    {
        ASSERT_EQ(grid.Cells().MaxCols(), columns.size());
        for (int col = 1; col <= columns.size(); ++col) {
            const Column& column = columns[col - 1];
            EXPECT_EQ(grid.Cells().Text(col, 0), column.title);
            EXPECT_EQ(grid.ColWidth(col), column.width);
            EXPECT_EQ(grid.Cells().Type(col), column.type) << col;
            EXPECT_EQ(grid.ColHidden(col), col == 1);
            if (column.type == Button) {
                EXPECT_EQ(grid.Cells().Text(col, 1), column.title);
            }
            const int alignment = grid.model()->index(0, col - 1).data(Qt::TextAlignmentRole).toInt();
            EXPECT_EQ(alignment, int(Qt::AlignCenter)) << col;
        }
        EXPECT_EQ(grid.Cells().CellPicture(2, 1), defaultTick);
        EXPECT_EQ(grid.horizontalHeader()->height(), 20); // 15 points
        EXPECT_EQ(grid.rowHeight(0), 19);                 // 14 points
        EXPECT_TRUE(grid.horizontalHeader()->isVisible());
        EXPECT_FALSE(grid.verticalHeader()->isVisible());
    }

    static QColor Back(fpSpread& grid, int column)
    {
        return grid.model()->index(0, column - 1).data(Qt::BackgroundRole).value<QBrush>().color();
    }

    /// As it is drawn in the first row, beside its caption.
    static QColor ButtonFace(fpSpread& grid, int column)
    {
        const QRect button = grid.visualRect(grid.model()->index(0, column - 1));
        return grid.viewport()->grab().toImage().pixelColor(button.left() + 5, button.center().y());
    }
};

TEST_F(BookGrids, TheBrowseListOfMembersHasSevenColumns)
{
    InBook([this] {
        ExpectLayout(Browse(),
                     {{u"번호"_q, 3, Text},
                      {u"체크"_q, 3, Picture},
                      {u"그룹"_q, 6, Text},
                      {u"이름"_q, 6, Text},
                      {u"전화번호"_q, 11.7, Text},
                      {u"수정"_q, 4, Button},
                      {u"삭제"_q, 4, Button}},
                     0);
        EXPECT_EQ(Back(Browse(), MemberName), QColor(0xFA, 0xFA, 0xFA));
    });
}

TEST_F(BookGrids, TheBrowseListOfGroupsHasFiveColumns)
{
    InBook([this] {
        ShowGroups();
        ExpectLayout(Browse(),
                     {{u"번호"_q, 3, Text},
                      {u"체크"_q, 3, Picture},
                      {u"그룹"_q, 24, Text},
                      {u"수정"_q, 4, Button},
                      {u"삭제"_q, 4, Button}},
                     0);
    });
}

TEST_F(BookGrids, TheChosenListHasFiveColumns)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        ExpectLayout(Chosen(),
                     {{u"번호"_q, 3, Text},
                      {u"체크"_q, 4, Picture},
                      {u"성명"_q, 9, Text},
                      {u"전화번호"_q, 13, Text},
                      {u"삭제"_q, 4, Button}},
                     1);
        EXPECT_EQ(Back(Chosen(), ChosenName), QColor(0xFA, 0xFA, 0xFA));
    });
}

TEST_F(BookGrids, TheButtonsOfTheChosenListAreWhiteAndThoseOfTheBrowseListAreNot)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        EXPECT_EQ(ButtonFace(Chosen(), ChosenDelete), QColor(0xFF, 0xFF, 0xFF));
        EXPECT_EQ(ButtonFace(Browse(), MemberEdit), theme::ButtonFace);
    });
}

TEST_F(BookGrids, TheDialogsWordsAreItsOwn)
{
    InBook([this] {
        EXPECT_EQ(Book().windowTitle(), u"주소록"_q);
        EXPECT_EQ(program.On<Label>(Book(), u"lblTitle1(1)"_q).Caption(), u"주소록"_q);
        EXPECT_EQ(program.On<Label>(Book(), u"lblTitle1(0)"_q).Caption(), u"문자메시지 발송 주소록"_q);
        EXPECT_EQ(program.On<Label>(Book(), u"lblChosen"_q).Caption(), u"문자메시지 발송대상"_q);
        EXPECT_EQ(program.On<RadioButton>(Book(), u"OptType(0)"_q).Caption(), u"개인"_q);
        EXPECT_EQ(program.On<RadioButton>(Book(), u"OptType(1)"_q).Caption(), u"그룹"_q);
        EXPECT_EQ(program.On<PushButton>(Book(), u"BtnFuncAdd(0)"_q).Caption(), u"추가"_q);
        EXPECT_EQ(program.On<PushButton>(Book(), u"BtnFuncAdd(1)"_q).Caption(), u"제거"_q);
        EXPECT_EQ(program.On<PushButton>(Book(), u"BtnFunc(0)"_q).Caption(), u"포함(F12)"_q);
        EXPECT_EQ(program.On<PushButton>(Book(), u"BtnFunc(1)"_q).Caption(), u"취소(ESC)"_q);
    });
}

TEST_F(BookGrids, EveryControlHasANameAndNoNameStandsTwice)
{
    InBook([this] {
        QStringList names;
        for (const QWidget* widget : Book().findChildren<QWidget*>()) {
            const bool own = QByteArray(widget->metaObject()->className()).startsWith("tsms::");
            const bool surface = dynamic_cast<const Panel*>(widget) && widget->objectName().isEmpty();
            if (own && !surface)
                names += widget->objectName();
        }
        EXPECT_FALSE(names.contains(QString()));
        EXPECT_EQ(names.removeDuplicates(), 0);
        EXPECT_GT(names.size(), 14);
    });
}

} // namespace

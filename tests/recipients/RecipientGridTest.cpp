#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QSignalSpy>

using namespace tsms;
using namespace tsms::test;

namespace {

class RecipientGrid : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    fpSpread& Grid() { return program.Recipients(); }
    void Remove(int row) { ClickCell(Grid(), 4, row); }
    QStringList VisibleNumbers()
    {
        QStringList numbers;
        for (int row = 1; row <= Grid().Cells().MaxRows(); ++row)
            if (!Grid().RowHidden(row))
                numbers += Grid().Cells().Text(1, row);
        return numbers;
    }

    /// The texts of a column's cells.
    QStringList Texts(int column, int first, int last)
    {
        QStringList texts;
        for (int row = first; row <= last; ++row)
            texts += Grid().Cells().Text(column, row);
        return texts;
    }

    /// The row whose name the keyboard comes to in a list of so many rows, the first of which is filled.
    int RowReachedByTab(int rows)
    {
        Grid().Cells().SetMaxRows(rows);
        program.List({{u"가"_q, u"010-1"_q}});
        program.Control(u"txtSendNo"_q).setFocus();
        Grid().setFocus(Qt::TabFocusReason);
        EXPECT_EQ(Grid().ActiveCol(), 2);
        return Grid().ActiveRow();
    }

    Program program;
};

TEST_F(RecipientGrid, StartsWithTwentyNumberedEmptyRows)
{
    EXPECT_EQ(Grid().Cells().MaxRows(), 20);
    EXPECT_EQ(Grid().Cells().MaxCols(), 5);
    for (int row = 1; row <= 20; ++row) {
        EXPECT_EQ(Grid().Cells().Text(1, row), u"%1"_q.arg(row, 2, 10, QChar(u'0')));
        for (int column : {2, 3, 5})
            EXPECT_EQ(Grid().Cells().Text(column, row), QString());
    }
    EXPECT_TRUE(Grid().ColHidden(5));
    for (int column = 1; column <= 5; ++column)
        EXPECT_EQ(Grid().Cells().Text(column, 0), QString());
}

TEST_F(RecipientGrid, IsLaidOutAsItShould)
{
    const double widths[] = {2.0, 5.0, 10.5, 1.5};
    for (int column = 1; column <= 4; ++column)
        EXPECT_EQ(Grid().ColWidth(column), widths[column - 1]);
    EXPECT_EQ(Grid().Cells().Type(1), SpreadModel::CellType::StaticText);
    EXPECT_EQ(Grid().Cells().Type(2), SpreadModel::CellType::Edit);
    EXPECT_EQ(Grid().Cells().Type(3), SpreadModel::CellType::Edit);
    EXPECT_EQ(Grid().Cells().Type(4), SpreadModel::CellType::Button);
    EXPECT_EQ(Grid().Cells().Type(5), SpreadModel::CellType::StaticText);
    EXPECT_EQ(Grid().Cells().Text(4, 7), u"x"_q);
    EXPECT_FALSE(Grid().horizontalHeader()->isVisibleTo(&Grid()));
    EXPECT_FALSE(Grid().verticalHeader()->isVisibleTo(&Grid()));
    EXPECT_EQ(Grid().rowHeight(0), 18); // 13.5 points
    const auto cell = [&](int column, int role) {
        return Grid().model()->index(2, column - 1).data(role).value<QBrush>().color();
    };
    EXPECT_EQ(cell(1, Qt::BackgroundRole), QColor(182, 204, 211));
    EXPECT_EQ(cell(1, Qt::ForegroundRole), QColor(Qt::white));
    EXPECT_EQ(cell(2, Qt::BackgroundRole), QColor(240, 240, 240));
    EXPECT_EQ(cell(2, Qt::ForegroundRole), QColor(Qt::black));
    for (int column : {1, 2, 3})
        EXPECT_EQ(Grid().model()->index(2, column - 1).data(Qt::TextAlignmentRole).toInt(),
                  int(Qt::AlignCenter));
}

TEST_F(RecipientGrid, TheButtonsAboveItReadAsTheyShould)
{
    const QStringList captions{u"주소록"_q, u"엑셀파일"_q, u"비우기"_q};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(program.The<PushButton>(u"BtnFuncMain(%1)"_q.arg(i)).Caption(), captions[i]);
}

TEST_F(RecipientGrid, TheButtonsOpenTheirDialogsUnlessBusy)
{
    int opened = 0;
    for (const auto& [button, dialog] : {std::pair(u"BtnFuncMain(0)"_q, u"dlgSMSGroupSelect"_q),
                                         std::pair(u"BtnFuncMain(1)"_q, u"MakeSMSExcel"_q)}) {
        WhenShown(dialog, [&](QWidget& form) {
            ++opened;
            PressKey(form, Qt::Key_F12);
            EXPECT_TRUE(form.isVisible());
            PressKey(form, Qt::Key_Escape);
        });
        program.Click(button);
        program.session.Busy = true;
        program.Click(button);
        program.session.Busy = false;
    }
    EXPECT_EQ(opened, 2);
}

TEST_F(RecipientGrid, TheActiveRowIsRemovedWhateverRowTheClickReports)
{
    Grid().SetActiveCell(4, 5);
    Q_EMIT Grid().Click(4, 9);
    EXPECT_TRUE(Grid().RowHidden(5));
    EXPECT_FALSE(Grid().RowHidden(9));
}

TEST_F(RecipientGrid, EnterInTheButtonColumnStays)
{
    Grid().SetActiveCell(4, 2);
    PressKey(Grid(), Qt::Key_Return);
    EXPECT_EQ(Grid().ActiveCol(), 4);
    EXPECT_EQ(Grid().ActiveRow(), 2);
}

TEST_F(RecipientGrid, EnterWalksPastRemovedRows)
{
    Remove(2);
    ClickCell(Grid(), 3, 1);
    PressKey(Grid(), Qt::Key_Return);
    EXPECT_EQ(Grid().ActiveRow(), 3);
    EXPECT_EQ(Grid().ActiveCol(), 2);
}

TEST_F(RecipientGrid, ARemovedRowIsHiddenKeepsItsContentAndTheRestIsNumberedAnew)
{
    program.List({{u"가"_q, u"01011111111"_q}, {u"나"_q, u"01022222222"_q}, {u"다"_q, u"01033333333"_q}});
    Remove(3);
    EXPECT_TRUE(Grid().RowHidden(3));
    EXPECT_EQ(Grid().Cells().Text(2, 3), u"다"_q);
    EXPECT_EQ(Grid().Cells().Text(3, 3), u"01033333333"_q);
    const QStringList numbers = VisibleNumbers();
    ASSERT_EQ(numbers.size(), 19);
    EXPECT_EQ(numbers.first(), u"01"_q);
    EXPECT_EQ(numbers[2], u"03"_q);
    EXPECT_EQ(numbers.last(), u"19"_q);
}

TEST_F(RecipientGrid, ARemovalIsOneChangeOnView)
{
    const QSignalSpy changes(Grid().model(), &QAbstractItemModel::dataChanged);
    Remove(3);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(RecipientGrid, NumberingReachesRowsThatWereAddedWithoutANumber)
{
    Grid().Cells().SetMaxRows(21);
    EXPECT_EQ(Grid().Cells().Text(1, 21), QString());
    Remove(1);
    EXPECT_EQ(Grid().Cells().Text(1, 21), u"20"_q);
}

TEST_F(RecipientGrid, FromTheHundredthRowOnTheNumbersWrap)
{
    Grid().Cells().SetMaxRows(105);
    Remove(1);
    EXPECT_EQ(Grid().Cells().Text(1, 101), u"00"_q);
    EXPECT_EQ(Grid().Cells().Text(1, 102), u"01"_q);
}

TEST_F(RecipientGrid, WhileBusyNothingIsRemovedAndNothingEmptied)
{
    program.List({{u"가"_q, u"01011111111"_q}});
    program.session.Busy = true;
    Remove(1);
    program.Click(u"BtnFuncMain(2)"_q);
    EXPECT_FALSE(Grid().RowHidden(1));
    EXPECT_EQ(Grid().Cells().Text(2, 1), u"가"_q);
    program.session.Busy = false;
}

TEST_F(RecipientGrid, AClickOnAnotherColumnRemovesNothing)
{
    for (int column : {1, 2, 3}) {
        ClickCell(Grid(), column, 2);
        EXPECT_FALSE(Grid().RowHidden(2));
    }
}

TEST_F(RecipientGrid, EnterWalksFromNameToNumberToTheNextName)
{
    ClickCell(Grid(), 1, 1);
    PressKey(Grid(), Qt::Key_Return);
    EXPECT_EQ(Grid().ActiveCol(), 2);
    PressKey(Grid(), Qt::Key_Return);
    EXPECT_EQ(Grid().ActiveCol(), 3);
    PressKey(Grid(), Qt::Key_Return);
    EXPECT_EQ(Grid().ActiveCol(), 2);
    EXPECT_EQ(Grid().ActiveRow(), 2);
}

TEST_F(RecipientGrid, EnterWhileACellIsTypedIntoKeepsTheTextAndWalks)
{
    ClickCell(Grid(), 2, 1);
    TypeText(Grid(), u"홍길동\n01012345678\n"_q);
    EXPECT_EQ(Grid().Cells().Text(2, 1), u"홍길동"_q);
    EXPECT_EQ(Grid().Cells().Text(3, 1), u"01012345678"_q);
    EXPECT_EQ(Grid().ActiveCol(), 2);
    EXPECT_EQ(Grid().ActiveRow(), 2);
}

TEST_F(RecipientGrid, TabWalksAsEnterDoesWhileACellIsEdited)
{
    ClickCell(Grid(), 2, 1);
    for (const QString& text : {u"홍길동"_q, u"01012345678"_q}) {
        TypeText(Grid(), text);
        PressKey(Grid(), Qt::Key_Tab);
    }
    EXPECT_EQ(Grid().Cells().Text(2, 1), u"홍길동"_q);
    EXPECT_EQ(Grid().Cells().Text(3, 1), u"01012345678"_q);
    EXPECT_EQ(Grid().ActiveCol(), 2);
    EXPECT_EQ(Grid().ActiveRow(), 2);
    EXPECT_TRUE(Grid().hasFocus());
    PressKey(Grid(), Qt::Key_Tab);
    EXPECT_TRUE(program.Control(u"txtSendNo"_q).hasFocus());
}

TEST_F(RecipientGrid, TheKeyboardComesToTheFirstEmptyRowOnView)
{
    program.List({{u"가"_q, u"010-1"_q}, {QString(), u"010-2"_q}, {u"다"_q, QString()}});
    Grid().SetRowHidden(4, true);
    program.Control(u"txtSendNo"_q).setFocus();
    PressKey(program.Control(u"txtSendNo"_q), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Grid().hasFocus());
    EXPECT_EQ(Grid().ActiveCol(), 2);
    EXPECT_EQ(Grid().ActiveRow(), 5);
}

TEST_F(RecipientGrid, TheKeyboardComesToTheLastRowWhereThatAloneIsEmpty)
{
    EXPECT_EQ(RowReachedByTab(2), 2);
}

TEST_F(RecipientGrid, TheKeyboardComesToANameAlsoInAFullList)
{
    EXPECT_EQ(RowReachedByTab(1), 1);
}

TEST_F(RecipientGrid, EscapeGivesACellThatIsEditedBackAndAsksNothing)
{
    program.List({{u"가"_q, u"010-1"_q}});
    ClickCell(Grid(), 2, 1);
    TypeText(Grid(), u"나"_q);
    PressKey(*program.form, Qt::Key_Escape);
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_EQ(Grid().Cells().Text(2, 1), u"가"_q);
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(RecipientGrid, EnterWalksWhileBusyToo)
{
    ClickCell(Grid(), 2, 1);
    program.session.Busy = true;
    PressKey(Grid(), Qt::Key_Return);
    EXPECT_EQ(Grid().ActiveCol(), 3);
    program.session.Busy = false;
}

TEST_F(RecipientGrid, EnterInTheLastNumberStaysAndAddsNoRow)
{
    ClickCell(Grid(), 3, 20);
    PressKey(Grid(), Qt::Key_Return);
    EXPECT_EQ(Grid().ActiveCol(), 3);
    EXPECT_EQ(Grid().ActiveRow(), 20);
    EXPECT_EQ(Grid().Cells().MaxRows(), 20);
}

TEST_F(RecipientGrid, EmptyingAfterRemovalsBringsAllTwentyRowsBackWithoutAQuestion)
{
    program.List({{u"가"_q, u"01011111111"_q}});
    Remove(1);
    Remove(2);
    program.Click(u"BtnFuncMain(2)"_q);
    EXPECT_EQ(VisibleNumbers().size(), 20);
    EXPECT_EQ(Grid().Cells().Text(2, 1), QString());
    EXPECT_EQ(Grid().Cells().Text(3, 1), QString());
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(RecipientGrid, ANameStopsAtSixCharactersAndANumberAtThirteen)
{
    TypeIntoCell(Grid(), 2, 1, u"가나다라마바사"_q);
    EXPECT_EQ(Grid().Cells().Text(2, 1), u"가나다라마바"_q);
    TypeIntoCell(Grid(), 3, 1, u"01234567890123"_q);
    EXPECT_EQ(Grid().Cells().Text(3, 1), u"0123456789012"_q);
}

TEST_F(RecipientGrid, AProgramMayWriteLongerTexts)
{
    Grid().Cells().SetText(2, 1, u"가나다라마바사"_q);
    EXPECT_EQ(Grid().Cells().Text(2, 1).size(), 7);
}

TEST_F(RecipientGrid, AHundredThousandPastedCharactersAreCut)
{
    ClickCell(Grid(), 3, 1);
    PasteText(Grid(), QString(u"1"_q).repeated(100000));
    Grid().CommitEdit();
    EXPECT_EQ(Grid().Cells().Text(3, 1), QString(u"1"_q).repeated(13));
}

TEST_F(RecipientGrid, RowsOfASpreadsheetFillTheRowsFromTheActiveCellOn)
{
    ClickCell(Grid(), 2, 4);
    PasteText(Grid(), u"김하늘\t010-0000-0001\t서울\r\n 이바다 \t 010-0000-0002 \t부산\r\n"_q);
    EXPECT_EQ(Texts(2, 3, 7), QStringList({u""_q, u"김하늘"_q, u"이바다"_q, u""_q, u""_q}));
    EXPECT_EQ(Texts(3, 4, 6), QStringList({u"010-0000-0001"_q, u"010-0000-0002"_q, u""_q}));
    EXPECT_EQ(Grid().Cells().Text(4, 4), u"x"_q);
    EXPECT_EQ(Grid().Cells().Text(5, 4), QString());
    EXPECT_EQ(Grid().Cells().MaxRows(), 20);
    EXPECT_EQ(Grid().ActiveRow(), 4);
}

TEST_F(RecipientGrid, AnEmptyListTakesThemWithoutAClickIntoIt)
{
    program.Click(u"BtnFuncMain(2)"_q);
    Grid().setFocus();
    ASSERT_EQ(Grid().ActiveCol(), 1);
    PasteText(Grid(), u"김하늘\t010-0000-0001\n이바다\t010-0000-0002\n"_q);
    EXPECT_EQ(Texts(2, 1, 3), QStringList({u"김하늘"_q, u"이바다"_q, u""_q}));
    EXPECT_EQ(Grid().Cells().Text(1, 1), u"01"_q);
}

TEST_F(RecipientGrid, AColumnOfNumbersGoesIntoTheNumberColumn)
{
    ClickCell(Grid(), 3, 1);
    PasteText(Grid(), u"010-1\n\n010-3\tx"_q);
    EXPECT_EQ(Texts(3, 1, 4), QStringList({u"010-1"_q, u""_q, u"010-3"_q, u""_q}));
    EXPECT_EQ(Texts(2, 1, 3), QStringList({u""_q, u""_q, u""_q}));
    EXPECT_EQ(Grid().Cells().Text(4, 3), u"x"_q);
}

TEST_F(RecipientGrid, AColumnOfNamesLeavesTheNumbersAsTheyAre)
{
    program.List({{u"가"_q, u"010-1"_q}, {u"나"_q, u"010-2"_q}});
    ClickCell(Grid(), 2, 1);
    PasteText(Grid(), u"김하늘\n이바다\n"_q);
    EXPECT_EQ(Texts(2, 1, 2), QStringList({u"김하늘"_q, u"이바다"_q}));
    EXPECT_EQ(Texts(3, 1, 2), QStringList({u"010-1"_q, u"010-2"_q}));
}

TEST_F(RecipientGrid, PastedRowsPassOverTheRemovedOnes)
{
    program.List({{u"가"_q, u"010-1"_q}, {u"나"_q, u"010-2"_q}, {u"다"_q, u"010-3"_q}});
    Remove(2);
    ClickCell(Grid(), 2, 1);
    PasteText(Grid(), u"김하늘\t010-8\n이바다\t010-9\n"_q);
    EXPECT_EQ(Texts(2, 1, 3), QStringList({u"김하늘"_q, u"나"_q, u"이바다"_q}));
    EXPECT_EQ(Texts(3, 1, 3), QStringList({u"010-8"_q, u"010-2"_q, u"010-9"_q}));
}

TEST_F(RecipientGrid, PastedOnARemovedActiveRowTheyBeginInTheNextOne)
{
    Remove(1);
    ASSERT_TRUE(Grid().RowHidden(1));
    Grid().SetActiveCell(2, 2);
    Remove(2);
    PasteText(Grid(), u"김하늘\t010-8\n이바다\t010-9\n"_q);
    for (int row : {1, 2})
        EXPECT_EQ(Grid().Cells().Text(2, row), QString()) << row;
    EXPECT_EQ(VisibleNumbers().size(), 18);
}

TEST_F(RecipientGrid, TheListGrowsForWhatIsPastedAndIsNumberedOn)
{
    Remove(3);
    ClickCell(Grid(), 2, 19);
    PasteText(Grid(), u"가\t1\n나\t2\n다\t3\n라\t4\n"_q);
    EXPECT_EQ(Grid().Cells().MaxRows(), 22);
    EXPECT_EQ(Texts(2, 19, 22), QStringList({u"가"_q, u"나"_q, u"다"_q, u"라"_q}));
    EXPECT_EQ(VisibleNumbers().mid(18), QStringList({u"19"_q, u"20"_q, u"21"_q}));
    EXPECT_EQ(Grid().Cells().Text(4, 22), u"x"_q);
}

TEST_F(RecipientGrid, PastedValuesAreCutAtTheLimitsOfTheirColumns)
{
    ClickCell(Grid(), 2, 1);
    PasteText(Grid(), u"가나다라마바사\t01234567890123\n가\t1"_q);
    EXPECT_EQ(Texts(2, 1, 2), QStringList({u"가나다라마바"_q, u"가"_q}));
    EXPECT_EQ(Texts(3, 1, 2), QStringList({u"0123456789012"_q, u"1"_q}));
}

TEST_F(RecipientGrid, NothingIsPastedOnARemoveButton)
{
    Grid().SetActiveCell(4, 1);
    Grid().setFocus();
    PasteText(Grid(), u"가\t1\n나\t2"_q);
    EXPECT_EQ(Texts(2, 1, 2), QStringList({u""_q, u""_q}));
    EXPECT_EQ(Grid().Cells().Text(4, 1), u"x"_q);
}

TEST_F(RecipientGrid, RowsSurviveAChangeOfPage)
{
    program.List({{u"가"_q, u"01011111111"_q}});
    program.Click(u"BtnToolbarDis(1)"_q);
    program.Click(u"BtnToolbarDis(0)"_q);
    EXPECT_EQ(Grid().Cells().Text(3, 1), u"01011111111"_q);
}

TEST_F(RecipientGrid, TenThousandRowsAreRenumberedByARemoval)
{
    Grid().Cells().SetMaxRows(10000);
    Remove(1);
    EXPECT_EQ(Grid().Cells().Text(1, 10000), u"99"_q);
}

TEST_F(RecipientGrid, BeyondSixteenBitsTheNumberingEndsInAnErrorThatTheProgramSurvives)
{
    Grid().Cells().SetMaxRows(32768);
    program.desktop.AllowBoxes();
    Remove(1);
    ASSERT_EQ(program.desktop.boxes.size(), 1);
    EXPECT_EQ(program.desktop.boxes[0].style, MsgBoxCritical);
    EXPECT_TRUE(program.desktop.boxes[0].text.contains(u"6"_q));
    EXPECT_TRUE(Grid().RowHidden(1));
}

} // namespace

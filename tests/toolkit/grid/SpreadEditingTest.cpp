#include "toolkit/grid/SpreadBench.h"

#include "toolkit/fields/LimitRule.h"

#include <QClipboard>

namespace tsms::test {

namespace {

using SpreadEditingTest = SpreadBench;

TEST_F(SpreadEditingTest, ArrowsWalkFromCellToCellPastHiddenRows)
{
    Show();
    grid.SetActiveCell(2, 1);
    grid.SetRowHidden(2, true);
    Press(Qt::Key_Down);
    EXPECT_EQ(grid.ActiveRow(), 3);
    Press(Qt::Key_Right);
    EXPECT_EQ(grid.ActiveCol(), 3);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(grid.ActiveCol(), 4);
    Press(Qt::Key_Up);
    Press(Qt::Key_Left);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(grid.ActiveCol(), 3);
}

TEST_F(SpreadEditingTest, TypingReplacesTheTextOfAnEditCell)
{
    Show();
    grid.Cells().SetText(3, 2, u"010-1111-2222"_q);
    grid.SetActiveCell(3, 2);
    Type("019");
    EXPECT_TRUE(IsEditing());
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 2), u"019"_q);
    EXPECT_FALSE(IsEditing());
    EXPECT_TRUE(grid.hasFocus());
}

TEST_F(SpreadEditingTest, WhatAnInputMethodCommitsReplacesTheTextToo)
{
    Show();
    grid.Cells().SetText(2, 2, u"김구"_q);
    grid.SetActiveCell(2, 2);
    Commit(u"홍"_q);
    Commit(u"길동"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 2), u"홍길동"_q);
}

TEST_F(SpreadEditingTest, AnInputMethodMayComposeBeforeItCommits)
{
    Show();
    grid.SetActiveCell(2, 2);
    EXPECT_TRUE(grid.testAttribute(Qt::WA_InputMethodEnabled));
    grid.Cells().SetText(2, 2, u"김구"_q);
    for (const QString& composed : {u"ㅎ"_q, u"호"_q, u"홍"_q}) {
        QInputMethodEvent composing(composed, {});
        QCoreApplication::sendEvent(QApplication::focusWidget(), &composing);
    }
    EXPECT_EQ(grid.Cells().Text(2, 2), u"김구"_q);
    Commit(u"홍"_q);
    Commit(u"길동"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 2), u"홍길동"_q);
}

TEST_F(SpreadEditingTest, TypingInAStaticCellDoesNothing)
{
    Show();
    grid.Cells().SetText(1, 1, u"01"_q);
    grid.Cells().SetText(1, 5, u"05"_q);
    Type("05");
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(grid.Cells().Text(1, 1), u"01"_q);
}

TEST_F(SpreadEditingTest, TypingStopsAtTheCharacterLimit)
{
    Show();
    grid.SetActiveCell(2, 1);
    Type("abcdefg");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"abcdef"_q);
    grid.SetActiveCell(3, 1);
    Type("01012345678901");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"0101234567890"_q);
}

TEST_F(SpreadEditingTest, AnInputMethodStopsAtTheCharacterLimit)
{
    Show();
    grid.SetActiveCell(2, 1);
    Commit(u"가나다라"_q);
    Commit(u"마바사아"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"가나다라마바"_q);
}

TEST_F(SpreadEditingTest, APasteIntoTheCellOrItsEditorIsCutAtTheLimit)
{
    Show();
    QApplication::clipboard()->setText(QString(100000, u'가'));
    grid.SetActiveCell(2, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(2, 1), u"가가가가가가"_q);
    grid.SetActiveCell(2, 2);
    Press(Qt::Key_F2);
    ASSERT_TRUE(IsEditing());
    Press(Qt::Key_V, Qt::ControlModifier);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 2), u"가가가가가가"_q);
}

TEST_F(SpreadEditingTest, AMillionCharactersAreCutBeforeAnEditorLaysThemOut)
{
    Show();
    grid.SetActiveCell(2, 1);
    Press(Qt::Key_F2);
    const auto* editor = qobject_cast<QLineEdit*>(grid.indexWidget(grid.currentIndex()));
    ASSERT_NE(editor, nullptr);
    qsizetype longest = 0;
    QObject::connect(editor, &QLineEdit::textChanged, editor,
                     [&](const QString& text) { longest = std::max(longest, text.size()); });
    QApplication::clipboard()->setText(QString(1'000'000, u'가'));
    Press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_LE(longest, MostGiven);
    EXPECT_EQ(editor->text(), u"가가가가가가"_q);
}

/// Something put into the middle of the full cell (2, 1), "abcdef".
class FullCell : public SpreadEditingTest
{
protected:
    void Open()
    {
        Show();
        grid.Cells().SetText(2, 1, u"abcdef"_q);
        grid.SetActiveCell(2, 1);
        Press(Qt::Key_F2);
        editor = qobject_cast<QLineEdit*>(grid.indexWidget(grid.currentIndex()));
        ASSERT_NE(editor, nullptr);
        editor->setCursorPosition(2);
    }

    QLineEdit* editor = nullptr;
};

TEST_F(FullCell, KeepsItsEndWhenSomethingIsTypedIntoItsMiddle)
{
    Open();
    Type("x");
    EXPECT_EQ(editor->text(), u"abcdef"_q);
    EXPECT_EQ(editor->cursorPosition(), 2);
    editor->setSelection(2, 1);
    Type("xy");
    EXPECT_EQ(editor->cursorPosition(), 3);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"abxdef"_q);
}

TEST_F(FullCell, TakesOfAPasteWhatFitsInPlaceOfTheSelection)
{
    Open();
    editor->setSelection(1, 2);
    QApplication::clipboard()->setText(u"12345"_q);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor->cursorPosition(), 3);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"a12def"_q);
}

TEST_F(FullCell, TakesOfACommitWhatFitsInPlaceOfTheSelection)
{
    Open();
    editor->setSelection(1, 2);
    Commit(u"가나다"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"a가나def"_q);
}

TEST_F(SpreadEditingTest, TheLimitHalvesNoPairOfUnits)
{
    Show();
    const QString pairs = u"😀😀😀😀"_q; // two units each
    grid.SetActiveCell(3, 1);
    for (int i = 0; i < 2; ++i)
        Commit(pairs);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"😀😀😀😀😀😀"_q);
    grid.SetActiveCell(3, 2);
    QApplication::clipboard()->setText(pairs + pairs);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"😀😀😀😀😀😀"_q);
}

TEST_F(SpreadEditingTest, ATextBeyondTheLimitIsCutByNoLookAtIt)
{
    Show();
    grid.Cells().SetText(2, 1, u"abcdefgh"_q);
    grid.SetActiveCell(2, 1);
    Press(Qt::Key_F2);
    ASSERT_TRUE(IsEditing());
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"abcdefgh"_q);
}

TEST_F(SpreadEditingTest, OfAPastedTextACellTakesTheFirstLine)
{
    Show();
    QApplication::clipboard()->setText(u"홍길동\r\n김구"_q);
    grid.SetActiveCell(2, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(2, 1), u"홍길동"_q);
}

TEST_F(SpreadEditingTest, TheOwnerIsOfferedAPasteFirstOnWhateverCell)
{
    Show();
    QStringList offered;
    bool takes = true;
    grid.OnPaste = [&](const QString& text) {
        offered += text;
        return takes;
    };
    QApplication::clipboard()->setText(u"가\n나"_q);
    for (int column : {1, 2}) {
        grid.SetActiveCell(column, 1);
        Press(Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(offered, QStringList({u"가\n나"_q, u"가\n나"_q}));
    EXPECT_EQ(grid.Cells().Text(2, 1), QString());
    takes = false;
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(2, 1), u"가"_q);
}

TEST_F(SpreadEditingTest, APasteIntoAStaticCellDoesNothing)
{
    Show();
    QApplication::clipboard()->setText(u"x"_q);
    grid.Cells().SetText(1, 1, u"01"_q);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(grid.Cells().Text(1, 1), u"01"_q);
}

TEST_F(SpreadEditingTest, CopyAndCutTakeTheTextOfTheActiveCell)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"010"_q);
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
    grid.Cells().SetText(3, 1, u"011"_q);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"011"_q);
    EXPECT_EQ(grid.Cells().Text(3, 1), QString());
}

TEST_F(SpreadEditingTest, F2AndADoubleClickEditInPlace)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Press(Qt::Key_F2);
    Type("1");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"0101"_q);
    DoubleClickOn(3, 1);
    ASSERT_TRUE(IsEditing());
    Type("2");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"01012"_q);
}

TEST_F(SpreadEditingTest, DeleteClearsAnEditCell)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(grid.Cells().Text(3, 1), QString());
    EXPECT_FALSE(IsEditing());
}

TEST_F(SpreadEditingTest, EscapeLeavesTheTextAsItWas)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Type("9");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
}

TEST_F(SpreadEditingTest, AClickElsewhereCommitsTheEdit)
{
    Show();
    grid.SetActiveCell(3, 1);
    Type("010");
    ClickOn(2, 5);
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
    EXPECT_EQ(grid.ActiveRow(), 5);
}

TEST_F(SpreadEditingTest, LosingTheFocusCommitsTheEdit)
{
    Show();
    grid.SetActiveCell(3, 1);
    Type("010");
    next.setFocus();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
}

TEST_F(SpreadEditingTest, UpAndDownCommitTheEditAndWalkOn)
{
    Show();
    grid.SetActiveCell(3, 2);
    Type("010");
    Press(Qt::Key_Down);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
    EXPECT_EQ(grid.ActiveRow(), 3);
    Type("011");
    Press(Qt::Key_Up);
    EXPECT_EQ(grid.Cells().Text(3, 3), u"011"_q);
    EXPECT_EQ(grid.ActiveRow(), 2);
}

TEST_F(SpreadEditingTest, TabCommitsTheEditAndIsEnterForTheOwner)
{
    Show();
    int seen = 0;
    grid.OnKeyPress = [&](int& key) { seen += key == 13; };
    grid.SetActiveCell(3, 2);
    Type("010");
    Press(Qt::Key_Tab);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(seen, 1);
}

TEST_F(SpreadEditingTest, TabLeavesTheGridWhereNothingIsEdited)
{
    Show();
    grid.SetActiveCell(3, 2);
    Press(Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.ActiveCol(), 3);
}

TEST_F(SpreadEditingTest, ShiftTabCommitsTheEditAndGoesToTheEditCellBefore)
{
    Show();
    grid.SetRowHidden(2, true);
    grid.SetActiveCell(3, 3);
    for (const auto& [col, row] : {std::pair(2, 3), {3, 1}, {2, 1}, {2, 1}}) {
        Type("1");
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(grid.ActiveCol(), col);
        EXPECT_EQ(grid.ActiveRow(), row);
        EXPECT_FALSE(IsEditing());
    }
    EXPECT_EQ(grid.Cells().Text(3, 3), u"1"_q);
    EXPECT_EQ(grid.Cells().Text(2, 2), QString());
}

TEST_F(SpreadEditingTest, TheOwnerIsToldWhenTabComesToTheGrid)
{
    Show();
    int came = 0;
    grid.OnTabInto = [&] { ++came; };
    next.setFocus();
    grid.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(came, 0);
    for (const auto reason : {Qt::TabFocusReason, Qt::BacktabFocusReason}) {
        next.setFocus();
        grid.setFocus(reason);
    }
    EXPECT_EQ(came, 2);
}

TEST_F(SpreadEditingTest, TheOwnerSeesEnterWithTheEditCommitted)
{
    Show();
    QString then;
    grid.OnKeyPress = [&](int& key) {
        if (key != 13)
            return;
        then = grid.Cells().Text(2, 2);
        grid.SetActiveCell(3, 2);
        key = 0;
    };
    grid.SetActiveCell(2, 2);
    Type("abc");
    Press(Qt::Key_Return);
    EXPECT_EQ(then, u"abc"_q);
    EXPECT_EQ(grid.ActiveCol(), 3);
    Type("010");
    Press(Qt::Key_Enter);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
}

TEST_F(SpreadEditingTest, TheOwnerSeesEnterInAnyCell)
{
    Show();
    int seen = 0;
    grid.OnKeyPress = [&](int& key) { seen += key == 13; };
    Press(Qt::Key_Return);
    grid.SetActiveCell(4, 2);
    Press(Qt::Key_Enter);
    EXPECT_EQ(seen, 2);
}

TEST_F(SpreadEditingTest, ASwallowedKeyStartsNoEdit)
{
    Show();
    grid.OnKeyPress = [](int& key) { key = key == 'a' ? 0 : key; };
    grid.SetActiveCell(2, 2);
    Type("a");
    EXPECT_FALSE(IsEditing());
    Type("b");
    EXPECT_TRUE(IsEditing());
}

TEST_F(SpreadEditingTest, EditingAndArrowsNeverChangeARemovedRow)
{
    Show();
    grid.SetActiveCell(3, 2);
    grid.Cells().SetText(3, 2, u"010"_q);
    grid.SetRowHidden(2, true);
    Type("9");
    Press(Qt::Key_F2);
    Press(Qt::Key_Delete);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
}

TEST_F(SpreadEditingTest, HidingTheRowUnderEditKeepsWhatWasTyped)
{
    Show();
    grid.SetActiveCell(3, 2);
    Type("010");
    grid.SetRowHidden(2, true);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
    EXPECT_FALSE(IsEditing());
}

TEST_F(SpreadEditingTest, ResetEndsAnEditWithoutATrace)
{
    Show();
    grid.SetActiveCell(3, 2);
    Type("010");
    grid.Reset();
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.Cells().Text(3, 2), QString());
}

TEST_F(SpreadEditingTest, OpeningAnEditorAloneOverridesNothing)
{
    Show();
    grid.Cells().SetMaxRows(5);
    grid.SetDataSource(std::make_shared<CountingSource>(5, 5));
    grid.SetActiveCell(3, 2);
    Press(Qt::Key_F2);
    grid.CommitEdit();
    grid.Cells().SetMaxRows(0);
    grid.Cells().SetMaxRows(5);
    EXPECT_EQ(grid.Cells().Text(3, 2), QString());
}

} // namespace

} // namespace tsms::test

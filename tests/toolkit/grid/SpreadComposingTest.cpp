#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// What an input method sends for one key: fcitx5 tells the finished syllable and the one under way each in
/// an event of its own, ibus besides clears what it showed before.
enum class Method { Fcitx5, Ibus };

/// How often a control has lost the focus, if only to gain it again: the input method takes note of each.
class FocusLosses : public QObject
{
public:
    explicit FocusLosses(QObject& control) { control.installEventFilter(this); }

    int count = 0;

private:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::FocusOut;
        return false;
    }
};

/// A grid of names and numbers with the focus on the first name.
class SpreadComposing : public ::testing::TestWithParam<Method>
{
protected:
    void SetUp() override
    {
        window.resize(320, 360);
        grid.setGeometry(10, 10, 300, 300);
        next.setGeometry(10, 320, 100, 24);
        grid.Cells().SetMaxRows(10);
        grid.Cells().SetMaxCols(2);
        grid.Cells().SetType(1, SpreadModel::CellType::Edit);
        grid.Cells().SetMaxLength(1, 6);
        grid.Cells().SetType(2, SpreadModel::CellType::Edit);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        grid.setFocus();
    }

    void Send(const QString& composed, const QString& committed)
    {
        QInputMethodEvent event(composed, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    void Compose(const QString& composed) { Send(composed, QString()); }
    void Commit(const QString& committed)
    {
        Send(QString(), committed);
        if (GetParam() == Method::Ibus)
            Send(QString(), QString());
    }

    /// All but the last syllable are finished when the next one begins; that one stays under way.
    void Write(const QString& text)
    {
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (i > 0)
                Commit(text.sliced(i - 1, 1));
            Compose(text.sliced(i, 1));
        }
    }
    /// A key that the input method has no use for: it finishes first.
    void Press(Qt::Key key, const QString& underWay, Qt::KeyboardModifiers modifiers = {})
    {
        if (!underWay.isEmpty())
            Commit(underWay);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    QLineEdit* Editor() { return qobject_cast<QLineEdit*>(grid.indexWidget(grid.currentIndex())); }

    QWidget window;
    fpSpread grid{&window};
    QLineEdit next{&window};
};

INSTANTIATE_TEST_SUITE_P(Of, SpreadComposing, ::testing::Values(Method::Fcitx5, Method::Ibus),
                         [](const auto& test) { return test.param == Method::Ibus ? "Ibus" : "Fcitx5"; });

TEST_P(SpreadComposing, TheFocusStaysWhereTheFirstSyllableWasBegun)
{
    Write(u"김하늘"_q);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(QApplication::focusWidget(), &grid);
    grid.CommitEdit();
    EXPECT_EQ(QApplication::focusWidget(), &grid);
}

TEST_P(SpreadComposing, TheFocusNeverLeavesTheGridHoweverACellIsEditedAndLeft)
{
    grid.OnKeyPress = [this](int& key) {
        if (key == '\r')
            grid.SetActiveCell(2, grid.ActiveRow());
    };
    FocusLosses losses(grid);
    const auto settle = [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); };
    Write(u"김하늘"_q);
    Press(Qt::Key_Return, u"늘"_q);
    settle();
    Press(Qt::Key_1, QString());
    Press(Qt::Key_Return, QString());
    settle();
    Press(Qt::Key_F2, QString());
    Press(Qt::Key_Escape, QString());
    settle();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"1"_q);
    EXPECT_EQ(losses.count, 0);
    EXPECT_EQ(QApplication::focusWidget(), &grid);
}

TEST_P(SpreadComposing, EverySyllableComesIntoTheCell)
{
    grid.Cells().SetText(1, 1, u"옛이름"_q);
    Write(u"안녕하세요"_q);
    Press(Qt::Key_Return, u"요"_q);
    EXPECT_EQ(grid.Cells().Text(1, 1), u"안녕하세요"_q);
}

TEST_P(SpreadComposing, AKeyThatTheEditorHasNoUseForComesBackOnce)
{
    Compose(u"기"_q);
    for (const auto key : {Qt::Key_Shift, Qt::Key_F12, Qt::Key_CapsLock})
        QTest::keyClick(&grid, key);
    Compose(u"김"_q);
    Press(Qt::Key_Return, u"김"_q);
    EXPECT_EQ(grid.Cells().Text(1, 1), u"김"_q);
}

TEST_P(SpreadComposing, KeysGoToTheEditorThatTheInputMethodOpened)
{
    Write(u"김늘"_q);
    Press(Qt::Key_Left, u"늘"_q);
    Write(u"하"_q);
    Press(Qt::Key_End, u"하"_q);
    Press(Qt::Key_Backspace, QString());
    QTest::keyClick(&grid, '1');
    Press(Qt::Key_Return, QString());
    EXPECT_EQ(grid.Cells().Text(1, 1), u"김하1"_q);
}

TEST_P(SpreadComposing, WalkingOnKeepsWhatIsUnderWay)
{
    for (const auto& [key, col, row] : {std::tuple(Qt::Key_Down, 1, 2), {Qt::Key_Up, 1, 1}}) {
        Write(u"하녕"_q);
        const int from = grid.ActiveRow();
        Press(key, u"녕"_q);
        EXPECT_EQ(grid.Cells().Text(1, from), u"하녕"_q);
        EXPECT_EQ(grid.ActiveCol(), col);
        EXPECT_EQ(grid.ActiveRow(), row);
    }
}

TEST_P(SpreadComposing, EscapeGivesTheCellBack)
{
    grid.Cells().SetText(1, 1, u"옛이름"_q);
    Write(u"하녕"_q);
    Press(Qt::Key_Escape, u"녕"_q);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Cells().Text(1, 1), u"옛이름"_q);
}

TEST_P(SpreadComposing, WhatIsCommittedAsTheFocusLeavesGoesIntoTheCellThatItLeft)
{
    Write(u"하녕"_q);
    next.setFocus();
    QInputMethodEvent late;
    late.setCommitString(u"녕"_q);
    QCoreApplication::sendEvent(&grid, &late);
    QCoreApplication::processEvents();
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Cells().Text(1, 1), u"하녕"_q);
    EXPECT_TRUE(next.hasFocus());
}

TEST_P(SpreadComposing, NeverGoesBeyondTheLimitAndPushesNothingOut)
{
    grid.Cells().SetText(1, 1, u"가나다라마바"_q);
    for (const auto& [place, caret] : {std::pair(Qt::Key_Home, 0), {Qt::Key_End, 6}}) {
        Press(Qt::Key_F2, QString());
        Press(place, QString());
        EXPECT_EQ(Editor()->cursorPosition(), caret);
        Write(u"하녕"_q);
        Press(Qt::Key_Return, u"녕"_q);
        grid.CommitEdit();
        EXPECT_EQ(grid.Cells().Text(1, 1), u"가나다라마바"_q);
    }
}

TEST_P(SpreadComposing, GoesInWhereTheCaretStands)
{
    const QStringList wanted{u"녕김하늘"_q, u"김녕하늘"_q, u"김하녕늘"_q, u"김하늘녕"_q};
    for (int caret = 0; caret < wanted.size(); ++caret) {
        grid.Cells().SetText(1, 1, u"김하늘"_q);
        Press(Qt::Key_F2, QString());
        Editor()->setCursorPosition(caret);
        Write(u"녕"_q);
        Commit(u"녕"_q);
        grid.CommitEdit();
        EXPECT_EQ(grid.Cells().Text(1, 1), wanted[caret]);
    }
}

TEST_P(SpreadComposing, TellsTheInputMethodWhereTheCaretIs)
{
    grid.SetActiveCell(1, 5);
    Compose(u"기"_q);
    QInputMethodQueryEvent query(Qt::ImCursorRectangle);
    QCoreApplication::sendEvent(&grid, &query);
    const QRect caret = query.value(Qt::ImCursorRectangle).toRect();
    const QRect cell = grid.visualRect(grid.currentIndex());
    EXPECT_TRUE(cell.contains(grid.viewport()->mapFrom(&grid, caret.center())));
}

TEST_P(SpreadComposing, AnEmptyEventOpensNothing)
{
    Send(QString(), QString());
    EXPECT_FALSE(grid.IsEditing());
}

TEST_P(SpreadComposing, AnEditorThatWasOpenedByAKeyIsWrittenInTheSameWay)
{
    QTest::keyClick(&grid, Qt::Key_F2);
    ASSERT_TRUE(grid.IsEditing());
    Write(u"하녕"_q);
    Press(Qt::Key_Return, u"녕"_q);
    EXPECT_EQ(grid.Cells().Text(1, 1), u"하녕"_q);
}

} // namespace

} // namespace tsms::test

#include "toolkit/windows/DialogForm.h"

#include "session/Session.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Theme.h"

#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

DialogFrame SampleFrame()
{
    return {.name = u"dlgSample"_q,
            .caption = u"그룹 등록"_q,
            .title = u"그룹 등록"_q,
            .titleLabel = u"lblTitle(1)"_q,
            .note = u"문자메시지 발송그룹을 설정합니다."_q,
            .noteLabel = u"lblTitle(0)"_q,
            .buttons = {u"저장(F12)"_q, u"취소(ESC)"_q},
            .arrowsWalk = true};
}

class SampleDialog : public DialogForm
{
public:
    SampleDialog(Session& session, Desktop& desktop, const DialogFrame& frame)
        : DialogForm(session, desktop, frame)
    {
        for (int i = 0; i < 2; ++i) {
            backing[i] = new FieldPanel(&Body(), QStringLiteral("PLtxtBack(%1)").arg(i));
            field[i] = new TextBox(backing[i], QStringLiteral("txtUpdate(%1)").arg(i));
            field[i]->SetBackColor(theme::White);
            backing[i]->Hold(*field[i]);
            BodyLayout().addWidget(backing[i]);
        }
        memo = new MemoBox(&Body(), u"txtMemo"_q);
        BodyLayout().addWidget(memo);
    }

    FieldPanel* backing[2];
    TextBox* field[2];
    MemoBox* memo;
    QList<int> pressed;

protected:
    void OnButton(int index) override
    {
        pressed += index;
        DialogForm::OnButton(index);
    }
};

class DialogFormTest : public testing::Test
{
protected:
    void Open(const DialogFrame& frame = SampleFrame())
    {
        dialog = std::make_unique<SampleDialog>(session, desktop, frame);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }
    QWidget* Find(const QString& name) { return dialog->findChild<QWidget*>(name); }
    void Press(Qt::Key key) { QTest::keyClick(dialog->focusWidget(), key); }
    QPoint PlaceIn(const QWidget& control) { return control.mapTo(dialog.get(), QPoint(3, 3)); }
    /// Presses at a place of the dialog and moves with the button held. How far the dialog went.
    QPoint Drag(QPoint place, Qt::MouseButton button)
    {
        const QPoint before = dialog->pos();
        const QPoint grip = dialog->mapToGlobal(place);
        QTest::mousePress(dialog->windowHandle(), button, {}, place);
        QMouseEvent move(QEvent::MouseMove, place, grip + QPoint(15, 10), Qt::NoButton, button, {});
        QApplication::sendEvent(dialog.get(), &move);
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
        QTest::mouseRelease(dialog->windowHandle(), button, {}, place);
        return dialog->pos() - before;
    }

    Session session;
    ScriptedDesktop desktop;
    std::unique_ptr<SampleDialog> dialog;
};

TEST_F(DialogFormTest, HasItsFrameByName)
{
    Open();
    EXPECT_EQ(dialog->windowTitle(), u"그룹 등록"_q);
    for (const QString& name : {u"Picture1"_q, u"BtnTopFunc(0)"_q, u"BtnTopFunc(1)"_q, u"lblTitle(1)"_q,
                                u"lblTitle(0)"_q, u"BtnFunc(0)"_q, u"BtnFunc(1)"_q}) {
        ASSERT_NE(Find(name), nullptr) << name.toStdString();
        EXPECT_TRUE(Find(name)->isVisible()) << name.toStdString();
    }
    EXPECT_EQ(dialog->findChild<Label*>(u"lblTitle(1)"_q)->Caption(), u"그룹 등록"_q);
    EXPECT_EQ(dialog->NoteLabel()->Caption(), u"문자메시지 발송그룹을 설정합니다."_q);
    EXPECT_EQ(dialog->Button(0)->Caption(), u"저장(F12)"_q);
    EXPECT_EQ(dialog->Button(1)->Caption(), u"취소(ESC)"_q);
}

TEST_F(DialogFormTest, LeavesOutANoteOrAButtonThatItDoesNotHave)
{
    DialogFrame frame = SampleFrame();
    frame.note.clear();
    frame.buttons[0].clear();
    frame.buttonBase = u"BtnSendS"_q;
    Open(frame);
    EXPECT_EQ(dialog->NoteLabel(), nullptr);
    EXPECT_EQ(dialog->Button(0), nullptr);
    EXPECT_EQ(Find(u"BtnSendS(0)"_q), nullptr);
    EXPECT_NE(Find(u"BtnSendS(1)"_q), nullptr);
}

TEST_F(DialogFormTest, NoWordIsClipped)
{
    Open();
    for (const Label* label : dialog->findChildren<Label*>()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->Caption().toStdString();
        EXPECT_GE(label->height(), label->sizeHint().height()) << label->Caption().toStdString();
    }
    for (const PushButton* button : dialog->findChildren<PushButton*>())
        EXPECT_GE(button->width(), button->sizeHint().width()) << button->Caption().toStdString();
}

TEST_F(DialogFormTest, TheCancelButtonUnloads)
{
    Open();
    QTest::mouseClick(dialog->Button(1), Qt::LeftButton);
    EXPECT_FALSE(dialog->IsLoaded());
    EXPECT_EQ(dialog->pressed, QList<int>{1});
}

TEST_F(DialogFormTest, TheFirstButtonRunsItsHandlerAndStays)
{
    Open();
    QTest::mouseClick(dialog->Button(0), Qt::LeftButton);
    EXPECT_TRUE(dialog->IsLoaded());
    EXPECT_EQ(dialog->pressed, QList<int>{0});
}

TEST_F(DialogFormTest, TheFirstTopButtonDoesNothingAndTheSecondUnloads)
{
    Open();
    QTest::mouseClick(Find(u"BtnTopFunc(0)"_q), Qt::LeftButton);
    EXPECT_TRUE(dialog->IsLoaded());
    QTest::mouseClick(Find(u"BtnTopFunc(1)"_q), Qt::LeftButton);
    EXPECT_FALSE(dialog->IsLoaded());
}

TEST_F(DialogFormTest, F12RunsTheFirstButtonFromAnyControl)
{
    Open();
    for (QWidget* control : {static_cast<QWidget*>(dialog->field[0]), static_cast<QWidget*>(dialog->memo),
                             static_cast<QWidget*>(dialog->Button(1))}) {
        control->setFocus();
        Press(Qt::Key_F12);
    }
    EXPECT_EQ(dialog->pressed, (QList<int>{0, 0, 0}));
}

TEST_F(DialogFormTest, F12DoesNothingWhereItIsNotGiven)
{
    DialogFrame frame = SampleFrame();
    frame.f12RunsButton0 = false;
    Open(frame);
    Press(Qt::Key_F12);
    EXPECT_TRUE(dialog->pressed.isEmpty());
    EXPECT_TRUE(dialog->IsLoaded());
}

TEST_F(DialogFormTest, EscUnloads)
{
    Open();
    dialog->memo->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->IsLoaded());
    EXPECT_TRUE(dialog->pressed.isEmpty());
}

TEST_F(DialogFormTest, WhileBusyKeysAndButtonsAreDead)
{
    Open();
    session.Busy = true;
    Press(Qt::Key_F12);
    Press(Qt::Key_Escape);
    QTest::mouseClick(dialog->Button(0), Qt::LeftButton);
    QTest::mouseClick(dialog->Button(1), Qt::LeftButton);
    QTest::mouseClick(Find(u"BtnTopFunc(1)"_q), Qt::LeftButton);
    dialog->field[0]->setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(dialog->focusWidget(), dialog->field[0]);
    EXPECT_TRUE(dialog->pressed.isEmpty());
    EXPECT_TRUE(dialog->IsLoaded());
    session.Busy = false;
}

TEST_F(DialogFormTest, TitleStripTitleAndSurfaceMoveTheWindowAlsoWhileBusy)
{
    Open();
    session.Busy = true;
    const QRect memo(dialog->memo->mapTo(dialog.get(), QPoint()), dialog->memo->size());
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        EXPECT_EQ(Drag(Find(u"Picture1"_q)->geometry().topLeft() + QPoint(2, 2), button), QPoint(15, 10));
        EXPECT_EQ(Drag(PlaceIn(*Find(u"lblTitle(1)"_q)), button), QPoint(15, 10));
        EXPECT_EQ(Drag(memo.topLeft() - QPoint(3, 3), button), QPoint(15, 10));
    }
    session.Busy = false;
}

TEST_F(DialogFormTest, NoteAndControlsDoNotMoveTheWindow)
{
    Open();
    EXPECT_EQ(Drag(PlaceIn(*dialog->NoteLabel()), Qt::LeftButton), QPoint());
    for (QWidget* control : {Find(u"BtnTopFunc(0)"_q), Find(u"BtnFunc(0)"_q),
                             static_cast<QWidget*>(dialog->memo), static_cast<QWidget*>(dialog->field[0])})
        EXPECT_EQ(Drag(PlaceIn(*control), Qt::RightButton), QPoint()) << control->objectName().toStdString();
}

TEST_F(DialogFormTest, ArrowsMoveWithinAText)
{
    Open();
    dialog->field[0]->SetText(u"abc"_q);
    dialog->field[0]->setFocus();
    dialog->field[0]->SetSelStart(1);
    Press(Qt::Key_Right);
    EXPECT_EQ(dialog->focusWidget(), dialog->field[0]);
    EXPECT_EQ(dialog->field[0]->SelStart(), 2);
    Press(Qt::Key_Left);
    EXPECT_EQ(dialog->field[0]->SelStart(), 1);
}

TEST_F(DialogFormTest, ArrowsLeaveATextAtItsEnds)
{
    Open();
    dialog->field[0]->SetText(u"abc"_q);
    for (const auto key : {Qt::Key_Right, Qt::Key_Down}) {
        dialog->field[0]->setFocus();
        dialog->field[0]->SetSelStart(3);
        Press(key);
        EXPECT_EQ(dialog->focusWidget(), dialog->field[1]);
    }
    for (const auto key : {Qt::Key_Left, Qt::Key_Up}) {
        dialog->field[1]->setFocus();
        dialog->field[1]->SetSelStart(0);
        Press(key);
        EXPECT_EQ(dialog->focusWidget(), dialog->field[0]);
    }
}

TEST_F(DialogFormTest, RightWithASelectionLeavesAtOnceAndTheCaretStays)
{
    Open();
    dialog->field[0]->SetText(u"abcd"_q);
    dialog->field[0]->setFocus();
    dialog->field[0]->Select(1, 2);
    Press(Qt::Key_Right);
    EXPECT_EQ(dialog->focusWidget(), dialog->field[1]);
    EXPECT_EQ(dialog->field[0]->cursorPosition(), 3);
}

TEST_F(DialogFormTest, ABoxReachedByAnArrowKeepsItsCaretAndMarksNothing)
{
    Open();
    dialog->field[1]->SetText(u"abc"_q);
    dialog->field[1]->SetSelStart(2);
    dialog->field[0]->setFocus();
    Press(Qt::Key_Right);
    ASSERT_EQ(dialog->focusWidget(), dialog->field[1]);
    EXPECT_EQ(dialog->field[1]->SelLength(), 0);
    EXPECT_EQ(dialog->field[1]->SelStart(), 2);
}

TEST_F(DialogFormTest, LeftAtTheStartOfTheFirstBoxWrapsToTheLastControl)
{
    Open();
    dialog->field[0]->setFocus();
    dialog->field[0]->SetSelStart(0);
    Press(Qt::Key_Left);
    EXPECT_EQ(dialog->focusWidget(), dialog->Button(1));
}

TEST_F(DialogFormTest, ArrowsStayInTheTextWhereTheDialogDoesNotHandleThem)
{
    DialogFrame frame = SampleFrame();
    frame.arrowsWalk = false;
    Open(frame);
    dialog->field[0]->setFocus();
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    EXPECT_EQ(dialog->focusWidget(), dialog->field[0]);
}

TEST_F(DialogFormTest, ArrowsOnAButtonAreNotTakenForTextBoxes)
{
    Open();
    dialog->Button(0)->setFocus();
    Press(Qt::Key_Right);
    EXPECT_EQ(dialog->focusWidget(), dialog->Button(1));
}

TEST_F(DialogFormTest, ArrowsWalkOutOfAMultiLineBoxToo)
{
    Open();
    dialog->memo->SetText(u"a\r\nb"_q);
    dialog->memo->setFocus();
    dialog->memo->SetSelStart(4);
    Press(Qt::Key_Right);
    EXPECT_EQ(dialog->focusWidget(), dialog->Button(0));
}

TEST_F(DialogFormTest, TabRunsThroughTheBodyAndThenTheFoot)
{
    Open();
    QStringList order;
    for (int i = 0; i < 6; ++i) {
        order += dialog->focusWidget()->objectName();
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{u"txtUpdate(0)"_q, u"txtUpdate(1)"_q, u"txtMemo"_q, u"BtnFunc(0)"_q,
                                  u"BtnFunc(1)"_q, u"txtUpdate(0)"_q}));
}

TEST_F(DialogFormTest, AWhiteBoxAndItsBackingTakeTheFocusColour)
{
    Open();
    dialog->field[0]->setFocus();
    EXPECT_EQ(dialog->field[0]->BackColor(), QColor(255, 224, 192));
    EXPECT_EQ(dialog->backing[0]->BackColor(), QColor(255, 224, 192));
    dialog->field[1]->setFocus();
    EXPECT_EQ(dialog->field[0]->BackColor(), QColor(255, 255, 255));
    EXPECT_EQ(dialog->backing[0]->BackColor(), QColor(255, 255, 255));
    EXPECT_EQ(dialog->field[1]->BackColor(), QColor(255, 224, 192));
}

TEST_F(DialogFormTest, ABoxOfAnotherColourKeepsItAndTurnsWhiteBehindTheFocus)
{
    Open();
    dialog->field[0]->setFocus();
    dialog->field[1]->SetBackColor(QColor(200, 255, 200));
    dialog->backing[1]->SetBackColor(QColor(200, 255, 200));
    dialog->field[1]->setFocus();
    EXPECT_EQ(dialog->field[1]->BackColor(), QColor(200, 255, 200));
    EXPECT_EQ(dialog->backing[1]->BackColor(), QColor(200, 255, 200));
    dialog->field[0]->setFocus();
    EXPECT_EQ(dialog->field[1]->BackColor(), QColor(255, 255, 255));
    EXPECT_EQ(dialog->backing[1]->BackColor(), QColor(255, 255, 255));
}

} // namespace

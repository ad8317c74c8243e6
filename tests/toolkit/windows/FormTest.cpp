#include "toolkit/windows/Form.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/windows/Application.h"

#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

using namespace tsms;
using namespace tsms::test;

namespace {

class TestForm : public Form
{
public:
    TestForm(Session& session, Desktop& desktop, const QString& name = u"frmTest"_q, Kind kind = Kind::Dialog)
        : Form(session, desktop, name, kind)
    {
        resize(300, 200);
        field = new TextBox(this, u"txtField"_q);
        field->setGeometry(10, 50, 100, 24);
    }

    TextBox* field;
    bool agrees = true;
    int asked = 0;
    int activations = 0;
    QList<int> keys;
    std::function<bool(int)> onKey;

protected:
    bool QueryUnload() override
    {
        ++asked;
        return agrees;
    }
    bool KeyDown(int key, Qt::KeyboardModifiers) override
    {
        keys += key;
        return onKey && onKey(key);
    }
    void OnFirstActivation() override { ++activations; }
};

class FormTest : public testing::Test
{
protected:
    void Show(Form& form)
    {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    /// Presses at a place of the form, moves with the button held, and lets go. How far the form went.
    static QPoint Drag(Form& form, QPoint place, Qt::MouseButton button)
    {
        const QPoint before = form.pos();
        QTest::mousePress(form.windowHandle(), button, {}, place);
        Move(form, form.mapToGlobal(place) + QPoint(30, 20), button);
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
        QTest::mouseRelease(form.windowHandle(), button, {}, place);
        return form.pos() - before;
    }
    static void Move(Form& form, QPoint to, Qt::MouseButtons held)
    {
        QMouseEvent move(QEvent::MouseMove, form.mapFromGlobal(to), to, Qt::NoButton, held, {});
        QApplication::sendEvent(&form, &move);
    }

    Session session;
    ScriptedDesktop desktop;
};

TEST_F(FormTest, IsFramelessAndBearsItsName)
{
    const TestForm form(session, desktop);
    EXPECT_TRUE(form.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(form.objectName(), u"frmTest"_q);
}

TEST_F(FormTest, IsLoadedFromItsConstructionToItsUnloading)
{
    EXPECT_TRUE(Form::Loaded().isEmpty());
    {
        TestForm first(session, desktop, u"first"_q);
        TestForm second(session, desktop, u"second"_q);
        EXPECT_EQ(Form::Loaded(), (QList<Form*>{&first, &second}));
        EXPECT_EQ(Form::Find(u"second"_q), &second);
        EXPECT_TRUE(first.Unload());
        EXPECT_FALSE(first.IsLoaded());
        EXPECT_EQ(Form::Find(u"first"_q), nullptr);
    }
    EXPECT_TRUE(Form::Loaded().isEmpty());
}

TEST_F(FormTest, EveryClosingAsksAndMayBeRefused)
{
    TestForm form(session, desktop);
    Show(form);
    form.agrees = false;
    EXPECT_FALSE(form.Unload());
    EXPECT_FALSE(form.close());
    EXPECT_EQ(form.asked, 2);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.IsLoaded());
    form.agrees = true;
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormTest, AnUnloadedFormIsNotAskedAgain)
{
    TestForm form(session, desktop);
    form.Unload();
    form.Unload();
    EXPECT_EQ(form.asked, 1);
}

TEST_F(FormTest, ShownModallyItHoldsItsCallerUntilItIsUnloaded)
{
    TestForm form(session, desktop);
    bool modal = false;
    QTimer::singleShot(0, &form, [&] {
        modal = QApplication::activeModalWidget() == &form;
        form.Unload();
    });
    form.ShowModal();
    EXPECT_TRUE(modal);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FormTest, CodeBehindTheUnloadingStillRunsBeforeTheCallerGoesOn)
{
    TestForm form(session, desktop);
    QStringList order;
    QTimer::singleShot(0, &form, [&] {
        form.Unload();
        order += u"handler"_q;
    });
    form.ShowModal();
    order += u"caller"_q;
    EXPECT_EQ(order, (QStringList{u"handler"_q, u"caller"_q}));
}

TEST_F(FormTest, TheWindowBelowHasTheKeyboardBehindAModalForm)
{
    TestForm main(session, desktop, u"main"_q, Form::Kind::Main);
    Show(main);
    QWidget elsewhere;
    elsewhere.setWindowModality(Qt::ApplicationModal); // or it could not be looked at
    TestForm form(session, desktop);
    QTimer::singleShot(0, &form, [&] {
        elsewhere.show();
        elsewhere.activateWindow();
        form.Unload();
    });
    form.ShowModal();
    elsewhere.setWindowModality(Qt::NonModal);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main, 1000));
}

TEST_F(FormTest, StandsInTheMiddleOfItsOwner)
{
    TestForm main(session, desktop, u"main"_q, Form::Kind::Main);
    main.resize(600, 400);
    Show(main);
    TestForm dialog(session, desktop);
    Show(dialog);
    EXPECT_LE((dialog.geometry().center() - main.geometry().center()).manhattanLength(), 2);
}

TEST_F(FormTest, ADialogDimsTheWindowBelowAsLongAsItIsOnView)
{
    TestForm main(session, desktop, u"main"_q, Form::Kind::Main);
    Show(main);
    const auto brightness = [&main] { return main.grab().toImage().pixelColor(150, 150).lightness(); };
    const int before = brightness();
    {
        TestForm dialog(session, desktop);
        Show(dialog);
        EXPECT_LT(brightness(), before - 20);
        dialog.Unload();
        EXPECT_EQ(brightness(), before);
        Show(dialog);
        EXPECT_LT(brightness(), before - 20);
    }
    EXPECT_EQ(brightness(), before);
}

TEST_F(FormTest, SeesAKeyBeforeTheFocusedControl)
{
    TestForm form(session, desktop);
    Show(form);
    form.field->setFocus();
    QString textWhenSeen = u"not seen"_q;
    form.onKey = [&](int) {
        textWhenSeen = form.field->Text();
        return false;
    };
    QTest::keyClick(form.field, Qt::Key_A);
    EXPECT_EQ(textWhenSeen, QString());
    EXPECT_EQ(form.field->Text(), u"a"_q);
}

TEST_F(FormTest, AKeyThatItUsesUpDoesNotReachTheControl)
{
    TestForm form(session, desktop);
    Show(form);
    form.field->setFocus();
    form.onKey = [](int) { return true; };
    QTest::keyClick(form.field, Qt::Key_A);
    EXPECT_EQ(form.field->Text(), QString());
}

TEST_F(FormTest, AKeyThatNobodyUsesIsSeenOnce)
{
    TestForm form(session, desktop);
    auto* nested = new QWidget(&form);
    auto* inner = new TextBox(nested, u"inner"_q);
    Show(form);
    inner->setFocus();
    QTest::keyClick(inner, Qt::Key_F5);
    QTest::keyClick(inner, Qt::Key_F5);
    QTest::keyClick(&form, Qt::Key_F5);
    QTest::keyClick(&form, Qt::Key_F5);
    EXPECT_EQ(form.keys, (QList<int>{Qt::Key_F5, Qt::Key_F5, Qt::Key_F5, Qt::Key_F5}));
}

TEST_F(FormTest, DoesNotSeeTheKeysOfAnotherForm)
{
    TestForm below(session, desktop, u"below"_q, Form::Kind::Main);
    Show(below);
    TestForm above(session, desktop);
    Show(above);
    above.field->setFocus();
    QTest::keyClick(above.field, Qt::Key_A);
    EXPECT_TRUE(below.keys.isEmpty());
    EXPECT_EQ(above.keys.size(), 1);
}

TEST_F(FormTest, TellsItsFirstActivationAndNoOther)
{
    TestForm form(session, desktop, u"main"_q, Form::Kind::Main);
    Show(form);
    EXPECT_EQ(form.activations, 1);
    QEvent again(QEvent::WindowActivate);
    QApplication::sendEvent(&form, &again);
    EXPECT_EQ(form.activations, 1);
}

TEST_F(FormTest, BusyIsTheSessionsAndShowsTheHourglass)
{
    TestForm form(session, desktop);
    form.SetBusy(true);
    EXPECT_TRUE(session.Busy);
    EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
    form.SetBusy(false);
    EXPECT_FALSE(session.Busy);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

constexpr auto AllButtons = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};

TEST_F(FormTest, IsMovedByItsSurfaceWithAnyButtonAlsoWhileBusy)
{
    TestForm form(session, desktop);
    Show(form);
    form.SetBusy(true);
    for (const auto button : AllButtons)
        EXPECT_EQ(Drag(form, {5, 5}, button), QPoint(30, 20)) << button;
    form.SetBusy(false);
}

TEST_F(FormTest, IsMovedByAPanelThatSaysSoAndByWhatTheMousePassesThere)
{
    TestForm form(session, desktop);
    Panel ground(&form, u"PictBg"_q);
    ground.setGeometry(0, 80, 300, 120);
    ground.SetDragsWindow(true);
    Label words(&ground, u"lblCaption"_q, u"words"_q);
    words.setGeometry(0, 0, 60, 20);
    words.setAttribute(Qt::WA_TransparentForMouseEvents);
    Show(form);
    form.SetBusy(true);
    for (const auto button : AllButtons) {
        EXPECT_EQ(Drag(form, {150, 150}, button), QPoint(30, 20)) << button;
        EXPECT_EQ(Drag(form, {30, 90}, button), QPoint(30, 20)) << button;
    }
    form.SetBusy(false);
}

TEST_F(FormTest, AClickWithAnUnsteadyHandOrADoubleClickMovesNothing)
{
    TestForm form(session, desktop);
    Show(form);
    const QPoint place(150, 150);
    const QPoint before = form.pos();
    QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, place);
    Move(form, form.mapToGlobal(place) + QPoint(QApplication::startDragDistance() - 1, 0), Qt::LeftButton);
    QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, place);
    Move(form, form.mapToGlobal(place) + QPoint(30, 20), Qt::NoButton);
    EXPECT_EQ(form.pos(), before);
}

TEST_F(FormTest, OnceMovingItFollowsTheSmallestMotion)
{
    TestForm form(session, desktop);
    Show(form);
    const QPoint grip = form.mapToGlobal(QPoint(150, 150));
    const QPoint before = form.pos();
    QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, {150, 150});
    Move(form, grip + QPoint(40, 0), Qt::LeftButton);
    Move(form, grip + QPoint(1, 0), Qt::LeftButton);
    QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, {150, 150});
    EXPECT_EQ(form.pos(), before + QPoint(1, 0));
}

TEST_F(FormTest, IsMovedByNothingElse)
{
    TestForm form(session, desktop);
    Panel ground(&form, u"PictBg"_q);
    ground.setGeometry(form.rect());
    ground.SetDragsWindow(true);
    PushButton disabled(&ground, u"BtnDisabled"_q, u"a"_q);
    disabled.setEnabled(false);
    PopupPanel popup(&ground, u"PlDocEdit(0)"_q);
    const std::array<QWidget*, 8> passive{new Panel(&ground, u"PlToolBg(0)"_q),
                                          new Label(&ground, u"Label1"_q, u"a"_q),
                                          new ProgressBar(&ground, u"Progress"_q),
                                          &disabled,
                                          &popup,
                                          new fpSpread(&ground),
                                          new MemoBox(&ground, u"txtMemo"_q),
                                          new TextBox(&ground, u"txtBox"_q)};
    const std::array<QWidget*, 5> active{
        new PushButton(&ground, u"Btn"_q, u"a"_q),
        new PictureButton(&ground, u"BtnTop"_q, u"program"_q, QString(), PictureButton::Look::Idle),
        new ComboBox(&ground, u"CbGroup"_q), new CheckBox(&ground, u"ChkTime"_q, u"a"_q),
        new RadioButton(&ground, u"OptGu"_q, u"a"_q)};
    Show(form);
    const auto dragBy = [&](QWidget* control, Qt::MouseButton button) {
        control->setGeometry(100, 100, 80, 40);
        control->show();
        control->raise();
        EXPECT_EQ(Drag(form, {140, 120}, button), QPoint()) << control->objectName().toStdString() << button;
    };
    for (QWidget* control : passive)
        for (const auto button : AllButtons)
            dragBy(control, button);
    for (QWidget* control : active)
        for (const auto button : {Qt::RightButton, Qt::MiddleButton})
            dragBy(control, button);
}

TEST_F(FormTest, ARightClickInATextBoxOpensItsMenu)
{
    TestForm form(session, desktop);
    Show(form);
    QTest::mousePress(form.windowHandle(), Qt::RightButton, {}, form.field->geometry().center());
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    menu->close();
}

TEST_F(FormTest, StopsFollowingTheMouseWhenTheReleaseWentElsewhere)
{
    TestForm form(session, desktop);
    form.setMouseTracking(true);
    Show(form);
    const QPoint before = form.pos();
    const QPoint grip = form.mapToGlobal(QPoint(5, 5));
    for (const auto held : {Qt::NoButton, Qt::LeftButton}) {
        QTest::mousePress(form.windowHandle(), Qt::RightButton, {}, QPoint(5, 5));
        Move(form, grip + QPoint(30, 20), held);
        EXPECT_EQ(form.pos(), before) << held;
        Move(form, grip + QPoint(30, 20), Qt::RightButton);
        EXPECT_EQ(form.pos(), before) << held;
        QTest::mouseRelease(form.windowHandle(), Qt::RightButton, {}, QPoint(5, 5));
    }
}

TEST_F(FormTest, AnErrorInAHandlerShowsOneBoxAndTheProgramGoesOn)
{
    TestForm form(session, desktop);
    Show(form);
    const Box box{u"프로그램 오류"_q, u"오류번호 : 91\r\n오류내용 : 없음"_q, MsgBoxCritical};
    PushButton button(&form, u"Btn"_q, u"a"_q);
    button.OnClick = [] { throw RuntimeError(91, u"없음"_q); };
    desktop.Expect(box);
    button.Click();
    desktop.Expect(box);
    form.field->OnChange = [] { throw RuntimeError(91, u"없음"_q); };
    QTest::keyClick(form.field, Qt::Key_A);
    desktop.Expect(box);
    form.field->OnChange = {};
    form.onKey = [](int) -> bool { throw RuntimeError(91, u"없음"_q); };
    QTest::keyClick(form.field, Qt::Key_B);
    EXPECT_EQ(desktop.boxes.size(), 3);
    EXPECT_EQ(form.field->Text(), u"ab"_q);
}

TEST_F(FormTest, AnErrorFromElsewhereEndsInTheBoxToo)
{
    TestForm form(session, desktop);
    PushButton button(&form, u"Btn"_q, u"a"_q);
    button.OnClick = [] { throw std::out_of_range("at"); };
    desktop.Expect(
        {u"프로그램 오류"_q,
         u"오류번호 : 440\r\n오류내용 : 프로그램 내부에서 예기치 않은 오류가 발생하였습니다. (at)"_q,
         MsgBoxCritical});
    button.Click();
    EXPECT_EQ(desktop.boxes.size(), 1);
}

TEST_F(FormTest, AHandlerThatSetBusyAndEndsInAnErrorLeavesTheFormAlive)
{
    TestForm form(session, desktop);
    bool busyInBox = true;
    desktop.Expect({u"프로그램 오류"_q, u"오류번호 : 91\r\n오류내용 : 없음"_q, MsgBoxCritical}, AnswerOK,
                   [&] { busyInBox = session.IsBusy(); });
    PushButton button(&form, u"Btn"_q, u"a"_q);
    button.OnClick = [&] {
        form.SetBusy(true);
        desktop.SetMousePointer(MousePointer::Hourglass);
        throw RuntimeError(91, u"없음"_q);
    };
    button.Click();
    EXPECT_FALSE(busyInBox);
    EXPECT_FALSE(form.IsBusy());
    EXPECT_NE(form.cursor().shape(), Qt::WaitCursor);
    EXPECT_EQ(desktop.pointers.last(), MousePointer::Default);
}

TEST_F(FormTest, AnErrorInAnotherHandlerLeavesARunningOperationBusy)
{
    TestForm form(session, desktop);
    desktop.AllowBoxes();
    PushButton button(&form, u"Btn"_q, u"a"_q);
    button.OnClick = [] { throw RuntimeError(91, u"없음"_q); };
    form.SetBusy(true);
    button.Click();
    EXPECT_EQ(desktop.boxes.size(), 1);
    EXPECT_TRUE(form.IsBusy());
    EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
    EXPECT_TRUE(desktop.pointers.isEmpty());
}

TEST_F(FormTest, WithoutAFormAnErrorGoesToTheCaller)
{
    PushButton button(nullptr, u"Btn"_q, u"a"_q);
    button.OnClick = [] { throw RuntimeError(6); };
    EXPECT_THROW(RaiseEvent(button, button.OnClick), RuntimeError);
}

} // namespace

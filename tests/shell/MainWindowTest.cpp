#include "compose/MessageCounter.h"
#include "compose/TemplateEditor.h"
#include "shell/Main.h"
#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

using namespace tsms;
using namespace tsms::test;

namespace {

Box ClosingQuestion()
{
    return {u"프로그램 종료"_q, u"프로그램 종료 : 타른리프 문자메시지을 종료하시겠습니까?"_q, MsgBoxQuestion};
}

class MainWindow : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    bool Shown(const QString& name) { return program.Control(name).isVisible(); }
    /// What the toolbar and the pages look like: "0" for a page on view, "s" for a button with selected look.
    QString Toolbar()
    {
        QString look;
        for (int i = 0; i < 5; ++i)
            look +=
                Shown(u"BtnToolbarEn(%1)"_q.arg(i)) && !Shown(u"BtnToolbarDis(%1)"_q.arg(i)) ? u'S' : u'-';
        return look;
    }
    QString Pages()
    {
        QString look;
        for (int i = 0; i < 4; ++i)
            look += Shown(u"PlToolBg(%1)"_q.arg(i)) ? u'P' : u'-';
        return look;
    }
    void Toolbar(int index) { program.Click(u"BtnToolbarDis(%1)"_q.arg(index)); }
    /// Presses there, moves by (30, 10) and lets go.
    static void Drag(QWidget& surface, QPoint from, Qt::MouseButton button)
    {
        const auto send = [&](QEvent::Type type, QPoint place, Qt::MouseButton changed,
                              Qt::MouseButtons held) {
            QMouseEvent event(type, place, surface.mapToGlobal(from) + (place - from), changed, held,
                              Qt::NoModifier);
            QApplication::sendEvent(&surface, &event);
        };
        send(QEvent::MouseButtonPress, from, button, button);
        send(QEvent::MouseMove, from + QPoint(30, 10), Qt::NoButton, button);
        send(QEvent::MouseButtonRelease, from + QPoint(30, 10), button, Qt::NoButton);
    }
    void EscapeSettings()
    {
        WhenShown(u"dlgSMSSetup"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); });
    }

    Program program;
};

TEST_F(MainWindow, OpensOnTheComposePage)
{
    EXPECT_EQ(program.form->windowTitle(), u"TSMS문자메시지"_q);
    EXPECT_EQ(Toolbar(), u"S----"_q);
    EXPECT_EQ(Pages(), u"P---"_q);
    EXPECT_FALSE(Shown(u"PlDocEdit(0)"_q));
    EXPECT_FALSE(Shown(u"PlDocEdit(1)"_q));
    EXPECT_FALSE(Shown(u"fpSpreadHidden"_q));
}

TEST_F(MainWindow, ToolbarAndPagesStandAtTheirPlaces)
{
    const int lefts[] = {8, 124, 240, 356, 472};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(program.Control(u"BtnToolbarDis(%1)"_q.arg(i)).geometry(), QRect(lefts[i], 48, 115, 32));
        EXPECT_EQ(program.Control(u"BtnToolbarEn(%1)"_q.arg(i)).geometry(), QRect(lefts[i], 44, 115, 36));
    }
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(program.Control(u"PlToolBg(%1)"_q.arg(i)).pos(), QPoint(15, 84));
}

TEST_F(MainWindow, AnIdleButtonSelectsItsPage)
{
    const QStringList looks{u"P---"_q, u"-P--"_q, u"--P-"_q, u"---P"_q};
    for (int i : {1, 2, 3, 0}) {
        Toolbar(i);
        EXPECT_EQ(Pages(), looks[i]);
        EXPECT_EQ(Toolbar()[i], u'S');
        EXPECT_EQ(Toolbar().count(u'S'), 1);
    }
}

TEST(MainWindowAtStart, BuildsAPageThatIsEnteredAheadOfTheFirstPicture)
{
    Program program;
    program.form = Main(program.LaunchLine(), program.services).form;
    ASSERT_TRUE(program.form);
    EXPECT_FALSE(program.form->findChild<QWidget*>(u"PlToolBg(1)"_q));

    program.Click(u"BtnToolbarDis(1)"_q);

    EXPECT_TRUE(program.Control(u"PlToolBg(1)"_q).isVisible());
    EXPECT_EQ(program.Control(u"PlToolBg(1)"_q).geometry().topLeft(), QPoint(15, 84));
    EXPECT_EQ(program.Control(u"PlToolBg(1)"_q).size(), program.Control(u"PlToolBg(0)"_q).size());
    EXPECT_FALSE(program.Control(u"PlToolBg(0)"_q).isVisible());
}

TEST_F(MainWindow, ASelectedButtonDoesNothing)
{
    Toolbar(3);
    program.Click(u"BtnToolbarEn(3)"_q);
    EXPECT_EQ(Pages(), u"---P"_q);
    EXPECT_FALSE(Shown(u"BtnToolbarDis(3)"_q));
}

TEST_F(MainWindow, EachPageGivesTheFocusToItsField)
{
    Toolbar(1);
    EXPECT_TRUE(program.Control(u"txtSerch"_q).hasFocus());
    Toolbar(3);
    EXPECT_TRUE(program.Control(u"txtEditBox"_q).hasFocus());
    Toolbar(0);
    EXPECT_TRUE(program.Control(u"TxtPerSendMsg"_q).hasFocus());
}

TEST_F(MainWindow, SettingsLeaveThePageOnViewAndTheirButtonLit)
{
    Toolbar(1);
    EscapeSettings();
    Toolbar(4);
    EXPECT_EQ(Pages(), u"-P--"_q);
    EXPECT_EQ(Toolbar(), u"----S"_q);
    EXPECT_TRUE(Shown(u"BtnToolbarDis(1)"_q));
    Toolbar(1);
    EXPECT_EQ(Pages(), u"-P--"_q);
    EXPECT_EQ(Toolbar(), u"-S---"_q);
}

TEST_F(MainWindow, TheLitSettingsButtonOpensThemAgainUnlessBusy)
{
    EscapeSettings();
    Toolbar(4);
    int opened = 0;
    WhenShown(u"dlgSMSSetup"_q, [&](QWidget& dialog) {
        ++opened;
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnToolbarEn(4)"_q);
    EXPECT_EQ(opened, 1);
    program.session.Busy = true;
    program.Click(u"BtnToolbarEn(4)"_q);
    program.session.Busy = false;
    EXPECT_EQ(Form::Find(u"dlgSMSSetup"_q), nullptr);
}

TEST_F(MainWindow, PagesSwitchWhileBusyToo)
{
    program.session.Busy = true;
    Toolbar(2);
    EXPECT_EQ(Pages(), u"--P-"_q);
    program.session.Busy = false;
}

TEST_F(MainWindow, MaximiseSaysThatItIsNotSupportedAndChangesNothing)
{
    const QRect before = program.form->geometry();
    program.desktop.Expect({u"창 최대화"_q, u"창 최대화를 지원하지 않습니다.!!!"_q, MsgBoxCritical});
    program.Click(u"BtnWindows(1)"_q);
    EXPECT_EQ(program.form->geometry(), before);
}

TEST_F(MainWindow, AnyButtonOnTheBackgroundDragsTheWindowAlsoWhileBusy)
{
    program.session.Busy = true;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        const QPoint before = program.form->pos();
        Drag(program.Control(u"PictBg"_q), QPoint(400, 20), button);
        EXPECT_EQ(program.form->pos(), before + QPoint(30, 10)) << button;
    }
    program.session.Busy = false;
}

TEST_F(MainWindow, PagesLabelsAndControlsDoNotDragTheWindow)
{
    const QPoint before = program.form->pos();
    for (const QString& name : {u"PlToolBg(0)"_q, u"PlNotes"_q, u"Label3(1)"_q, u"Picture1"_q,
                                u"lblVersion"_q, u"BtnWebPage(0)"_q, u"CbTempCd"_q, u"TxtPerSendMsg"_q})
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
            Drag(program.Control(name), QPoint(3, 3), button);
    Drag(program.Control(u"PlToolBg(0)"_q), QPoint(3, 3), Qt::LeftButton);
    Drag(program.Control(u"Label3(1)"_q), QPoint(3, 3), Qt::LeftButton);
    EXPECT_EQ(program.form->pos(), before);
}

TEST_F(MainWindow, MinimiseMinimises)
{
    program.Click(u"BtnWindows(0)"_q);
    EXPECT_TRUE(program.form->isMinimized());
}

TEST_F(MainWindow, WebButtonsOpenTheAccountsPagesAsTheyStand)
{
    program.Click(u"BtnWebPage(0)"_q);
    program.Click(u"BtnWebPage(1)"_q);
    EXPECT_EQ(program.desktop.pages,
              QStringList({u"http://127.0.0.1:8790/join"_q, u"http://127.0.0.1:8790/charge"_q}));
    EXPECT_EQ(program.The<PushButton>(u"BtnWebPage(0)"_q).Caption(), u"가입하기"_q);
    EXPECT_EQ(program.The<PushButton>(u"BtnWebPage(1)"_q).Caption(), u"문자충전"_q);
}

TEST_F(MainWindow, WhileBusyWindowAndWebButtonsAndEscAreDead)
{
    program.session.Busy = true;
    for (const QString& name :
         {u"BtnWindows(0)"_q, u"BtnWindows(1)"_q, u"BtnWindows(2)"_q, u"BtnWebPage(0)"_q, u"BtnWebPage(1)"_q})
        program.Click(name);
    PressKey(*program.form, Qt::Key_Escape);
    program.session.Busy = false;
    EXPECT_TRUE(program.desktop.events.isEmpty());
    EXPECT_FALSE(program.form->isMinimized());
}

TEST_F(MainWindow, EscAsksAndNoLeavesEverythingAsItWas)
{
    program.Write(u"쓰던 글"_q);
    Toolbar(2);
    program.db.ConnectDB();
    program.desktop.Expect(ClosingQuestion(), AnswerNo);
    PressKey(*program.form, Qt::Key_Escape);
    EXPECT_TRUE(program.form->isVisible());
    EXPECT_EQ(Pages(), u"--P-"_q);
    EXPECT_EQ(program.The<QWidget>(u"TxtPerSendMsg"_q).property("plainText").toString(), u"쓰던 글"_q);
    EXPECT_NE(Form::Find(u"frmSMSMain"_q), nullptr);
    EXPECT_EQ(program.connections.OpenNow(), 1);
}

TEST_F(MainWindow, YesEndsTheProgram)
{
    bool quit = false;
    program.db.ConnectDB();
    ASSERT_TRUE(program.sms.InitSOAP());
    Form other(program.session, program.desktop, u"dlgOther"_q, Form::Kind::Dialog, program.form.get());
    other.show();
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, program.form.get(), [&] { quit = true; });
    program.desktop.Expect(ClosingQuestion(), AnswerYes);
    QTimer::singleShot(0, program.form.get(), [this] { program.Click(u"BtnWindows(2)"_q); });
    QTimer::singleShot(30000, program.form.get(), [] { QApplication::exit(99); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(quit);
    EXPECT_EQ(Form::Find(u"frmSMSMain"_q), nullptr);
    EXPECT_EQ(Form::Find(u"dlgOther"_q), nullptr);
    EXPECT_EQ(program.connections.OpenNow(), 0);
    // Without a client each send fails at once, before any call.
    program.desktop.AllowBoxes();
    EXPECT_FALSE(program.sms.SubmitSMS({}, u"01011111111"_q, {}, u"x"_q, {}, {}, {}, {}));
    EXPECT_EQ(program.gateway.CallCount(), 0);
}

TEST_F(MainWindow, EachEntryToTheAccountPageLaysItsGridsOutAnew)
{
    auto& months = program.The<fpSpread>(u"fpSpreadMonth"_q);
    months.Cells().SetMaxRows(9);
    Toolbar(2);
    EXPECT_EQ(months.Cells().MaxRows(), 4);
    EXPECT_EQ(program.The<fpSpread>(u"fpSpreadCharge"_q).Cells().MaxCols(), 7);
}

TEST_F(MainWindow, AClosingFromOutsideAsksTheSameQuestion)
{
    program.desktop.Expect(ClosingQuestion(), AnswerNo);
    EXPECT_FALSE(program.form->close());
    EXPECT_TRUE(program.form->isVisible());
}

TEST_F(MainWindow, TheFirstActivationShowsTheVersionAndASecondReloadsNothing)
{
    EXPECT_TRUE(program.Caption(u"lblVersion"_q).startsWith(u"Version : "_q));
    const QStringList parts = program.Caption(u"lblVersion"_q).mid(10).split(u'.');
    ASSERT_EQ(parts.size(), 4);
    EXPECT_EQ(parts[2], u"0"_q);
    for (const QString& part : parts)
        EXPECT_EQ(QString::number(part.toInt()), part);
    const auto& version = program.The<Label>(u"lblVersion"_q);
    EXPECT_EQ(version.palette().color(version.backgroundRole()), QColor(210, 210, 210));
    EXPECT_EQ(version.palette().color(version.foregroundRole()), QColor(128, 128, 128));
    const int opens = program.connections.Opens();
    program.The<Label>(u"lblVersion"_q).SetCaption(u"x"_q);
    QWidget other;
    other.show();
    other.activateWindow();
    Settle();
    program.form->activateWindow();
    Settle();
    EXPECT_EQ(program.Caption(u"lblVersion"_q), u"x"_q);
    EXPECT_EQ(program.connections.Opens(), opens);
}

TEST_F(MainWindow, TheBalanceStandsBesideItsCaption)
{
    EXPECT_EQ(program.Caption(u"Label7"_q), u"잔여건수  : "_q);
}

TEST_F(MainWindow, AHundredThousandPastedCharactersHurtNoField)
{
    const QString text = QString(u"가1"_q).repeated(50000);
    int fields = 0;
    for (QWidget* widget : program.form->findChildren<QWidget*>())
        if (auto* field = dynamic_cast<TextField*>(widget)) {
            ++fields;
            PasteText(*widget, text);
            EXPECT_LE(field->Text().size(), field->MaxLength() > 0 ? field->MaxLength() : text.size());
        }
    EXPECT_GE(fields, 5);
}

TEST_F(MainWindow, EveryControlHasANameAndNoNameStandsTwice)
{
    QStringList names;
    for (const QWidget* widget : program.form->findChildren<QWidget*>()) {
        const bool own = QByteArray(widget->metaObject()->className()).startsWith("tsms::");
        const bool control = own && !dynamic_cast<const MessageCounter*>(widget) &&
                             !dynamic_cast<const TemplateEditor*>(widget);
        if (control) {
            EXPECT_FALSE(widget->objectName().isEmpty()) << widget->metaObject()->className();
        }
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"_q))
            names += widget->objectName();
    }
    QStringList unique = names;
    unique.removeDuplicates();
    EXPECT_EQ(names.size(), unique.size());
    EXPECT_GT(names.size(), 100);
}

} // namespace

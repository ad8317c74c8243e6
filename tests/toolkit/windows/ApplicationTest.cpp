#include "toolkit/windows/Application.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "toolkit/windows/Form.h"

#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <QEvent>
#include <QEventLoop>
#include <QIcon>
#include <QImage>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <qpa/qwindowsysteminterface.h>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <new>

#ifdef __x86_64__
#include <cpuid.h>
#endif

using namespace tsms;
using namespace tsms::test;

namespace {

class Thrower : public QObject
{
public:
    int received = 0;
    std::function<void()> raise = [] { throw RuntimeError(91, u"없음"_q); };

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        ++received;
        raise();
        return true;
    }
};

Application& TheApplication()
{
    return *static_cast<Application*>(QCoreApplication::instance());
}

/// The application keeps it.
Session& TheSession()
{
    static Session session;
    return session;
}

TEST(Application, AnErrorThatLeftAnEventHandlerShowsOneBoxAndTheProgramGoesOn)
{
    ScriptedDesktop desktop;
    TheApplication().HandleErrors(TheSession(), desktop);
    Thrower thrower;
    for (int i = 1; i <= 2; ++i) {
        desktop.Expect({u"프로그램 오류"_q, u"오류번호 : 91\r\n오류내용 : 없음"_q, MsgBoxCritical});
        QCoreApplication::postEvent(&thrower, new QEvent(QEvent::User));
        QCoreApplication::processEvents();
        EXPECT_EQ(thrower.received, i);
        EXPECT_EQ(desktop.boxes.size(), i);
    }
}

TEST(Application, AnErrorFromElsewhereEndsInTheBoxToo)
{
    ScriptedDesktop desktop;
    TheApplication().HandleErrors(TheSession(), desktop);
    Thrower thrower;
    thrower.raise = [] { throw std::bad_alloc(); };
    desktop.Expect(
        {u"프로그램 오류"_q,
         u"오류번호 : 440\r\n오류내용 : 프로그램 내부에서 예기치 않은 오류가 발생하였습니다. (std::bad_alloc)"_q,
         MsgBoxCritical});
    QCoreApplication::postEvent(&thrower, new QEvent(QEvent::User));
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop.boxes.size(), 1);
}

TEST(Application, AnErrorThatLeftAnEventHandlerLeavesNoBusyBehind)
{
    ScriptedDesktop desktop;
    desktop.AllowBoxes();
    TheApplication().HandleErrors(TheSession(), desktop);
    Form form(TheSession(), desktop, u"frmTest"_q, Form::Kind::Main);
    Thrower thrower;
    thrower.raise = [&] {
        form.SetBusy(true);
        throw RuntimeError(91, u"없음"_q);
    };
    QCoreApplication::postEvent(&thrower, new QEvent(QEvent::User));
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop.boxes.size(), 1);
    EXPECT_FALSE(TheSession().IsBusy());
}

/// A line of a window, under keys that wait in the queue of the window system.
struct LineUnderKeys
{
    QWidget window;
    QLineEdit line{&window};
    QLineEdit next{&window};

    LineUnderKeys()
    {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        line.setFocus();
    }

    void Queue(Qt::Key key, const QString& text)
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            QWindowSystemInterface::handleKeyEvent(window.windowHandle(), type, key, Qt::NoModifier, text);
    }
    void Commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(QApplication::focusObject(), &event);
    }
};

TEST(Application, AKeyGoesBeforeWhatIsComposedOfTheKeysBehindIt)
{
    LineUnderKeys hand;
    hand.Commit(u"안녕"_q);
    hand.Queue(Qt::Key_Space, u" "_q);
    hand.Commit(u"하세요"_q);
    EXPECT_EQ(hand.line.text(), u"안녕 하세요"_q);
}

TEST(Application, WhatIsComposedBehindATabGoesWhereTheTabLed)
{
    LineUnderKeys hand;
    hand.Queue(Qt::Key_Tab, u"\t"_q);
    hand.Commit(u"안녕"_q);
    EXPECT_EQ(hand.next.text(), u"안녕"_q);
}

TEST(Application, WhatIsWrittenIsNotLostWhereMoreIsWrittenInABoxOfTheKeyBefore)
{
    LineUnderKeys hand;
    QObject::connect(&hand.line, &QLineEdit::returnPressed, [&] {
        QEventLoop box;
        QTimer::singleShot(0, [&] {
            hand.Commit(u"안"_q);
            box.quit();
        });
        box.exec();
    });
    hand.Queue(Qt::Key_Return, u"\r"_q);
    hand.Commit(u"녕"_q);
    EXPECT_EQ(hand.line.text(), u"안녕"_q);
}

TEST(Application, NoKeyEntersAnOperation)
{
    ScriptedDesktop desktop;
    TheApplication().HandleErrors(TheSession(), desktop);
    LineUnderKeys hand;
    TheSession().Busy = true;
    hand.Queue(Qt::Key_A, u"a"_q);
    hand.Commit(u"안녕"_q);
    EXPECT_EQ(hand.line.text(), u"안녕"_q);
    TheSession().Busy = false;
    QCoreApplication::processEvents();
    EXPECT_EQ(hand.line.text(), u"안녕a"_q);
}

TEST(Application, WhatAKeyCommitsItselfGoesBeforeTheNextKey)
{
    LineUnderKeys hand;
    QObject::connect(&hand.line, &QLineEdit::returnPressed, [&] { hand.Commit(u"안녕"_q); });
    hand.Queue(Qt::Key_Return, u"\r"_q);
    hand.Queue(Qt::Key_A, u"a"_q);
    QCoreApplication::processEvents();
    EXPECT_EQ(hand.line.text(), u"안녕a"_q);
}

struct ButtonUnderEnter
{
    QPushButton button;
    int clicks = 0;

    ButtonUnderEnter()
    {
        button.setAutoDefault(true);
        QObject::connect(&button, &QPushButton::clicked, &button, [this] { ++clicks; });
    }

    void Send(QEvent::Type type, quint64 moment, bool repeated = false)
    {
        QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, u"\r"_q, repeated);
        event.setTimestamp(moment);
        QCoreApplication::sendEvent(&button, &event);
    }
};

TEST(Application, EnterThatIsHeldDownPressesAButtonOnce)
{
    ButtonUnderEnter hand;
    hand.Send(QEvent::KeyPress, 100);
    hand.Send(QEvent::KeyRelease, 500, true);
    hand.Send(QEvent::KeyPress, 500, true);
    EXPECT_EQ(hand.clicks, 1);
}

TEST(Application, EnterThatIsToldAsReleasedAndPressedAtOneMomentIsHeldDownToo)
{
    ButtonUnderEnter hand;
    hand.Send(QEvent::KeyPress, 100);
    hand.Send(QEvent::KeyRelease, 500);
    hand.Send(QEvent::KeyPress, 500);
    EXPECT_EQ(hand.clicks, 1);
}

TEST(Application, EnterThatIsPressedTwicePressesAButtonTwice)
{
    ButtonUnderEnter hand;
    for (const quint64 moment : {100, 200}) {
        hand.Send(QEvent::KeyPress, moment);
        hand.Send(QEvent::KeyRelease, moment + 50);
    }
    EXPECT_EQ(hand.clicks, 2);
}

#ifdef __x86_64__
/// Of the vector registers. The processor tells it: XINUSE, "Intel 64 and IA-32 Architectures", volume
/// 1, 13.6.
bool AreUpperHalvesInUse()
{
    constexpr unsigned avxState = 1U << 2U;
    unsigned low = 0;
    unsigned high = 0;
    asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(1));
    return (low & avxState) != 0;
}

bool TellsWhatIsInUse()
{
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    constexpr unsigned xgetbvOfOne = 1U << 2U;
    if (!__builtin_cpu_supports("avx") || __get_cpuid_count(0xD, 1, &a, &b, &c, &d) == 0 ||
        (a & xgetbvOfOne) == 0)
        return false;
    asm volatile("vzeroupper");
    return !AreUpperHalvesInUse(); // some say always that they are
}

TEST(Application, NoEventLeavesTheUpperHalvesOfVectorRegistersInUse)
{
    if (!TellsWhatIsInUse())
        GTEST_SKIP() << "the processor does not tell what is in use";
    bool used = false;
    Thrower filler;
    filler.raise = [&] {
        asm volatile("vpcmpeqd %%xmm15, %%xmm15, %%xmm15\n\tvinsertf128 $1, %%xmm15, %%ymm15, %%ymm15" ::
                         : "xmm15");
        used = AreUpperHalvesInUse();
    };
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&filler, &event);
    EXPECT_TRUE(used);
    EXPECT_FALSE(AreUpperHalvesInUse());
}
#endif

TEST(Application, AWindowBearsTheIconOfTheProgram)
{
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.windowIcon().isNull(); }));
    const QImage icon = window.windowIcon().pixmap(QSize(128, 128), 1.0).toImage();
    EXPECT_EQ(icon.pixelColor(16, 64), QColor(28, 110, 140));  // its ground
    EXPECT_EQ(icon.pixelColor(38, 36), QColor(144, 215, 250)); // the screen of its phone
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

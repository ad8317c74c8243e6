#include "start/Starter.h"
#include "support/server/TestServer.h"
#include "toolkit/fields/Controls.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QtTest/QTest>

namespace tsms::test {

namespace {

class TestDialogTest : public ::testing::Test
{
protected:
    TestDialogTest() : saved_(starter_.Add(database_))
    {
        saved_.keepsPassword = true;
        starter_.connections.Put(saved_);
        starter_.passwords.kept[saved_.id] = PasswordOf(database_);
        starter_.Open();
    }
    /// While it runs.
    void DuringTest(const std::function<void(QWidget&)>& act)
    {
        starter_.Within(u"TestDialog"_q, u"BtnConnection(3)"_q, act);
    }
    /// While it runs; behind it nobody waits until the driver gives a silent server up.
    void DuringSilence(const std::function<void(QWidget&)>& act)
    {
        constexpr int DriversPatience = 10'000;
        QElapsedTimer waited;
        waited.start();
        DuringTest(act);
        EXPECT_LT(waited.elapsed(), DriversPatience);
    }
    /// At its end.
    void InTest(const std::function<void(QWidget&)>& act)
    {
        DuringTest([this, act](QWidget& dialog) {
            AwaitEnd(dialog);
            act(dialog);
        });
    }
    void AwaitEnd(QWidget& dialog)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return RunButton(dialog) == u"다시 시험(F12)"; }));
    }
    bool AwaitLine(QWidget& dialog, int step, const QString& line)
    {
        return QTest::qWaitFor([&] { return Lines(dialog).value(step) == line; }, 2000);
    }
    QString RunButton(QWidget& dialog) { return starter_.On<PushButton>(dialog, u"BtnFunc(0)"_q).Caption(); }
    fpSpread& Steps(QWidget& dialog) { return starter_.On<fpSpread>(dialog, u"fpSpreadSteps"_q); }
    /// Title and result of each step, with "[o]" before those that are ticked.
    QStringList Lines(QWidget& dialog)
    {
        QStringList lines;
        for (int row = 1; row <= Steps(dialog).Cells().MaxRows(); ++row)
            lines += (Steps(dialog).Cells().CellPicture(1, row) == 1 ? u"[o] "_q : u"[ ] "_q) +
                     Steps(dialog).Cells().Text(2, row) + u": "_q + Steps(dialog).Cells().Text(3, row);
        return lines;
    }
    TestServer& Server() { return *database_.Server(); }
    QString Words(QWidget& dialog) { return starter_.On<TextField>(dialog, u"txtWords"_q).Text(); }

    Starter starter_;
    TestDatabase database_{starter_.clock, {2012, 2012}, TestEngine::Server};
    SavedConnection saved_;
};

} // namespace

TEST_F(TestDialogTest, TestsAtOnceAndShowsTicks)
{
    starter_.gatewayFault = u"서버가 없습니다."_q;
    InTest([this](QWidget& dialog) {
        EXPECT_EQ(Lines(dialog),
                  (QStringList{u"[o] ODBC 드라이버: 이상 없음"_q, u"[o] 서버 응답: 이상 없음"_q,
                               u"[o] 로그인: 이상 없음"_q, u"[o] 데이터베이스: 이상 없음"_q,
                               u"[o] 테이블: 이상 없음"_q, u"[o] 2012년 발송내역: 이상 없음"_q,
                               u"[o] 권한: 이상 없음"_q, u"[ ] 문자메시지 서버: 고쳐야 합니다"_q}));
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, ShowsWhatToDoForTheFirstFaultAndForEachOneThatIsChosen)
{
    database_.Execute(u"DROP TABLE SMSCharge"_q);
    starter_.gatewayFault = u"서버가 없습니다."_q;
    InTest([this](QWidget& dialog) {
        EXPECT_EQ(Steps(dialog).ActiveRow(), 5);
        EXPECT_TRUE(Words(dialog).startsWith(u"없는 테이블이 있습니다: SMSCharge"));
        ClickCell(Steps(dialog), 2, 8);
        EXPECT_EQ(Words(dialog), u"서버가 없습니다."_q);
        PressKey(Steps(dialog), Qt::Key_Up);
        EXPECT_EQ(Words(dialog), u"권한: 이상이 없습니다."_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, SaysOfStepsBehindAFaultThatTheyComeLater)
{
    Server().Stop();
    InTest([this](QWidget& dialog) {
        EXPECT_EQ(Lines(dialog)[3], u"[ ] 데이터베이스: 아직 확인하지 못함"_q);
        ClickCell(Steps(dialog), 2, 4);
        EXPECT_EQ(Words(dialog), u"데이터베이스: 위의 것을 고친 다음에 확인할 수 있습니다."_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, TestsAgainOnF12)
{
    database_.Execute(u"DELETE FROM SMSSetup"_q);
    InTest([this](QWidget& dialog) {
        EXPECT_TRUE(Lines(dialog)[4].startsWith(u"[ ]"));
        database_.Execute(u"INSERT INTO SMSSetup (SMSRemainCnt) VALUES (0)"_q);
        PressKey(dialog, Qt::Key_F12);
        AwaitEnd(dialog);
        EXPECT_TRUE(Lines(dialog)[4].startsWith(u"[o]"));
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, ShowsWhatIsTriedWhileTheServerIsSilent)
{
    Server().StaySilentAtPreLogIn();
    DuringSilence([this](QWidget& dialog) {
        EXPECT_TRUE(AwaitLine(dialog, 1, u"[ ] 서버 응답: 확인하는 중…"_q));
        EXPECT_EQ(RunButton(dialog), u"멈춤(F12)"_q);
        ClickCell(Steps(dialog), 2, 2);
        EXPECT_EQ(Words(dialog), u"서버 응답: 확인하고 있습니다. 대답이 없으면 \"멈춤\"을 누르십시오."_q);
        PressKey(dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(Lines(dialog)[1], u"[ ] 서버 응답: 확인하는 중…"_q);
    });
}

TEST_F(TestDialogTest, ShowsALineWhileTheServerStillOwesTheNextOne)
{
    Server().StaySilent();
    DuringSilence([this](QWidget& dialog) {
        EXPECT_TRUE(AwaitLine(dialog, 4, u"[ ] 테이블: 확인하는 중…"_q));
        EXPECT_EQ(Lines(dialog)[3], u"[o] 데이터베이스: 이상 없음"_q);
        PressKey(dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(Lines(dialog)[4], u"[ ] 테이블: 확인하는 중…"_q);
    });
}

TEST_F(TestDialogTest, StopsOnF12AndBeginsAgainOnTheNext)
{
    Server().StaySilentAtPreLogIn();
    DuringSilence([this](QWidget& dialog) {
        EXPECT_TRUE(AwaitLine(dialog, 1, u"[ ] 서버 응답: 확인하는 중…"_q));
        PressKey(dialog, Qt::Key_F12);
        EXPECT_EQ(RunButton(dialog), u"다시 시험(F12)"_q);
        EXPECT_EQ(Lines(dialog)[1], u"[ ] 서버 응답: 아직 확인하지 못함"_q);
        ClickCell(Steps(dialog), 2, 2);
        EXPECT_EQ(Words(dialog), u"서버 응답: 확인하기 전에 멈추었습니다."_q);
        Server().BehaveAgain();
        PressKey(dialog, Qt::Key_F12);
        AwaitEnd(dialog);
        EXPECT_EQ(Lines(dialog)[6], u"[o] 권한: 이상 없음"_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, SaysNothingOfATestThatWasStopped)
{
    Server().StaySilent();
    DuringTest([this](QWidget& dialog) {
        EXPECT_TRUE(AwaitLine(dialog, 4, u"[ ] 테이블: 확인하는 중…"_q));
        PressKey(dialog, Qt::Key_F12);
        AwaitWork();
        EXPECT_EQ(Lines(dialog)[4], u"[ ] 테이블: 아직 확인하지 못함"_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, GoesOnBehindAnErrorThatNobodyForesaw)
{
    starter_.services.gateway = []() -> QString { throw std::runtime_error("no words for it"); };
    starter_.desktop.Expect(UnforeseenBox(u"no words for it"_q));
    InTest([this](QWidget& dialog) {
        EXPECT_EQ(Lines(dialog)[6], u"[o] 권한: 이상 없음"_q);
        EXPECT_EQ(Lines(dialog)[7], u"[ ] 문자메시지 서버: 아직 확인하지 못함"_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, ShowsItsWordsToBeCopiedAndNotChanged)
{
    InTest([this](QWidget& dialog) {
        auto& words = starter_.On<QWidget>(dialog, u"txtWords"_q);
        const QString before = Words(dialog);
        TypeText(words, u"x"_q);
        EXPECT_EQ(Words(dialog), before);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(TestDialogTest, HasATypedPasswordThatWasRefusedAskedForAgain)
{
    saved_.keepsPassword = false;
    starter_.connections.Put(saved_);
    starter_.Open();
    int asked = 0;
    const auto answer = [&](const QString& password) {
        WhenShown(u"PasswordDialog"_q, [this, password, &asked](QWidget& dialog) {
            ++asked;
            WhenShown(u"TestDialog"_q, [this](QWidget& test) {
                AwaitEnd(test);
                PressKey(test, Qt::Key_Escape);
            });
            TypeText(starter_.On<QWidget>(dialog, u"txtUpdate(0)"_q), password + u'\n');
        });
        starter_.Click(u"BtnConnection(3)"_q);
    };
    answer(u"wrong"_q);
    answer(PasswordOf(database_));
    EXPECT_EQ(asked, 2);
    InTest([](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); }); // nobody asks any more
}

} // namespace tsms::test

#include "tsms-start/PrepareDatabase.h"

#include "runtime/RuntimeError.h"
#include "start/Starter.h"
#include "store/embedded/EmbeddedConnection.h"
#include "support/server/TestServer.h"
#include "toolkit/fields/Controls.h"
#include "tsms-start/ConnectionTest.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTimer>
#include <QtTest/QTest>

namespace tsms::test {

namespace {

constexpr YearRange Years{2011, 2012};

/// A server with a database without tables, beside the one that has all of them.
class PreparedDatabase : public ::testing::Test
{
protected:
    PreparedDatabase() : saved_(starter_.Add(full_))
    {
        Connect(saved_)->Execute(u"CREATE DATABASE Empty"_q);
        empty_ = saved_;
        empty_.database = u"Empty"_q;
    }

    TestServer& Server() { return *full_.Server(); }
    std::unique_ptr<Connection> Connect(const SavedConnection& saved)
    {
        std::unique_ptr<Connection> connection = MakeConnections(starter_.clock)();
        connection->ConnectionString = ConnectionTextOf(saved, PasswordOf(full_));
        connection->Open();
        return connection;
    }
    QString ScriptFor(const SavedConnection& saved, YearRange years = Years, const QString& user = {})
    {
        return PreparingScript(*Connect(saved), years, user);
    }
    void Prepare(const QString& user = {}) { RunScript(*Connect(empty_), ScriptFor(empty_, Years, user)); }

    Starter starter_;
    TestDatabase full_{starter_.clock, Years, TestEngine::Server};
    SavedConnection saved_;
    SavedConnection empty_;
};

} // namespace

TEST(BatchesOf, AreWhatStandsBetweenTheLinesGo)
{
    EXPECT_EQ(BatchesOf(u"a\nb\nGO\nc GO\nGO\n\nGO\nd"_q), (QStringList{u"a\nb\n"_q, u"c GO\n"_q, u"d\n"_q}));
    EXPECT_EQ(BatchesOf({}), QStringList());
}

TEST_F(PreparedDatabase, ThatIsEmptyNeedsTheScriptThatTheToolPrints)
{
    EXPECT_EQ(ScriptFor(empty_), ServerScript(Years));
}

TEST_F(PreparedDatabase, WithEverythingNeedsNothing)
{
    EXPECT_EQ(ScriptFor(saved_), QString());
}

TEST_F(PreparedDatabase, ThatLacksAYearNeedsTheScriptOfThatYear)
{
    EXPECT_EQ(ScriptFor(saved_, {2012, 2013}), ServerLogScript(2013));
}

TEST_F(PreparedDatabase, WithoutTheAccountRowNeedsThatRow)
{
    full_.Execute(u"DELETE FROM SMSSetup"_q);
    EXPECT_EQ(ScriptFor(saved_), ServerAccountRow());
}

TEST_F(PreparedDatabase, GivesTheRightsOfAllTablesToWhomIsNamed)
{
    EXPECT_EQ(ScriptFor(saved_, Years, u"sms]x"_q), ServerGrants(u"sms]x"_q, Years));
}

TEST_F(PreparedDatabase, PassesTheConnectionTest)
{
    Server().AddUser(u"clerk"_q, u"duty"_q);
    Prepare();
    ConnectionTest test(empty_, PasswordOf(full_), starter_.clock, MakeConnections(starter_.clock),
                        [] { return QString(); });
    test.Run([] {});
    for (const TestStep& step : test.Steps())
        EXPECT_EQ(step.verdict, TestStep::Verdict::Good) << step.words.toStdString();
    EXPECT_EQ(ScriptFor(empty_), QString());
}

TEST_F(PreparedDatabase, KeepsWhatWasThere)
{
    full_.SetAccount(77);
    full_.Execute(u"DROP TABLE SMSCharge"_q);
    RunScript(*Connect(saved_), ScriptFor(saved_));
    EXPECT_EQ(full_.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"77"_q);
    EXPECT_EQ(full_.Count(u"SMSCharge"_q), 0);
}

TEST_F(PreparedDatabase, IsAsItWasWhenTheServerRefusesOneStatement)
{
    const QString script = ScriptFor(empty_);
    Server().FailWhere(u"CREATE TABLE dbo.SMSLog_2012"_q, {262, 14, 1, u"CREATE TABLE permission denied."_q});
    try {
        RunScript(*Connect(empty_), script);
        ADD_FAILURE() << "nothing was refused";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Description, u"CREATE TABLE permission denied."_q);
    }
    Server().BehaveAgain();
    EXPECT_EQ(ScriptFor(empty_), script);
}

namespace {

/// Ends in an error that no database raises.
class BrokenConnection final : public Connection
{
public:
    bool IsOpen() const override { return false; }
    void Open() override { throw std::runtime_error("no words for it"); }
    void Close() override {}
    std::unique_ptr<Recordset> Query(const Statement&) override { return nullptr; }
    void Execute(const Statement&) override {}
};

class PrepareDialogTest : public PreparedDatabase
{
protected:
    PrepareDialogTest()
    {
        starter_.connections.Put(empty_);
        starter_.Open();
    }
    void InDialog(const std::function<void(QWidget&)>& act)
    {
        starter_.Within(u"PrepareDialog"_q, u"BtnConnection(4)"_q, act);
    }
    void TypeOwner(QWidget& dialog) { starter_.Type(dialog, 1, PasswordOf(full_)); }
    /// To the end.
    void LookAt(QWidget& dialog)
    {
        BeginLook(dialog);
        AwaitEnd(dialog);
    }
    void BeginLook(QWidget& dialog) { ClickOn(starter_.On<QWidget>(dialog, u"BtnLook"_q)); }
    void Make(QWidget& dialog)
    {
        PressKey(dialog, Qt::Key_F12);
        AwaitEnd(dialog);
    }
    void AwaitEnd(QWidget& dialog)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return MakeButton(dialog) == u"만들기(F12)"; }));
    }
    QString MakeButton(QWidget& dialog) { return starter_.On<PushButton>(dialog, u"BtnFunc(0)"_q).Caption(); }
    QString Shown(QWidget& dialog)
    {
        return starter_.On<TextField>(dialog, u"txtScript"_q).Text().replace(u"\r\n"_q, u"\n"_q);
    }
    Box PrepareBox(const QString& words, MsgBoxStyle style) { return {u"데이터베이스 준비"_q, words, style}; }
};

} // namespace

TEST_F(PrepareDialogTest, ShowsTheScriptWordForWordAndThenRunsIt)
{
    InDialog([this](QWidget& dialog) {
        EXPECT_EQ(starter_.Text(dialog, 0), u"sms"_q);
        TypeOwner(dialog);
        starter_.Type(dialog, 2, u"2011-2012"_q);
        LookAt(dialog);
        EXPECT_EQ(Shown(dialog), ServerScript(Years));
        starter_.desktop.Expect(PrepareBox(u"데이터베이스를 준비했습니다."_q, MsgBoxInformation));
        Make(dialog);
        LookAt(dialog);
        EXPECT_EQ(Shown(dialog), u"없는 것이 없습니다. 만들 것도 없습니다."_q);
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(ScriptFor(empty_), QString());
}

TEST_F(PrepareDialogTest, RunsNothingThatItHasNotShown)
{
    const Box first =
        PrepareBox(u"먼저 \"살펴보기\"를 눌러 실행할 스크립트를 보십시오."_q, MsgBoxInformation);
    InDialog([&](QWidget& dialog) {
        starter_.desktop.Expect(first);
        Make(dialog);
        TypeOwner(dialog);
        LookAt(dialog);
        starter_.Type(dialog, 2, u"2012"_q); // what was shown does not hold any more
        starter_.desktop.Expect(first);
        Make(dialog);
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(ScriptFor(empty_), ServerScript(Years));
}

TEST_F(PrepareDialogTest, GivesTheRightsToTheUserThatIsNamed)
{
    Server().AddUser(u"clerk"_q, u"duty"_q);
    starter_.connections.Put(saved_);
    InDialog([this](QWidget& dialog) {
        TypeOwner(dialog);
        starter_.Type(dialog, 2, u"2011-2012"_q);
        starter_.Type(dialog, 3, u"clerk"_q);
        PressKey(starter_.On<QWidget>(dialog, u"txtUpdate(3)"_q), Qt::Key_Return);
        AwaitEnd(dialog);
        EXPECT_EQ(Shown(dialog), ServerGrants(u"clerk"_q, Years));
        starter_.desktop.AllowBoxes();
        Make(dialog);
        PressKey(dialog, Qt::Key_Escape);
    });
    saved_.login = u"clerk"_q;
    ConnectionTest test(saved_, u"duty"_q, starter_.clock, MakeConnections(starter_.clock),
                        [] { return QString(); });
    test.Run([] {});
    for (const TestStep& step : test.Steps())
        EXPECT_EQ(step.verdict, TestStep::Verdict::Good) << step.words.toStdString();
}

TEST_F(PrepareDialogTest, TellsWhatTheServerSays)
{
    InDialog([this](QWidget& dialog) {
        starter_.Type(dialog, 1, u"wrong"_q);
        starter_.desktop.Expect(
            PrepareBox(u"데이터베이스를 살펴보지 못했습니다. \"연결 시험\"에서 원인을 볼 수 있습니다.\r\n\r\n"
                       "서버의 말: Login failed for user 'sms'."_q,
                       MsgBoxCritical));
        LookAt(dialog);
        TypeOwner(dialog);
        LookAt(dialog);
        Server().FailWhere(u"CREATE TABLE"_q, {262, 14, 1, u"CREATE TABLE permission denied."_q});
        starter_.desktop.Expect(PrepareBox(u"데이터베이스가 거절하여 아무것도 만들지 않았습니다.\r\n\r\n"
                                           "서버의 말: CREATE TABLE permission denied."_q,
                                           MsgBoxCritical));
        Make(dialog);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(PrepareDialogTest, GoesOnBehindAnErrorThatNobodyForesaw)
{
    InDialog([this](QWidget& dialog) {
        TypeOwner(dialog);
        starter_.Type(dialog, 2, u"2011-2012"_q);
        starter_.services.makeConnection = [] { return std::make_unique<BrokenConnection>(); };
        starter_.desktop.Expect(UnforeseenBox(u"no words for it"_q));
        LookAt(dialog);
        starter_.services.makeConnection = MakeConnections(starter_.clock);
        LookAt(dialog);
        EXPECT_EQ(Shown(dialog), ServerScript(Years));
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(PrepareDialogTest, CanBeStoppedWhileTheServerIsSilent)
{
    InDialog([this](QWidget& dialog) {
        TypeOwner(dialog);
        starter_.Type(dialog, 2, u"2011-2012"_q);
        Server().StaySilent();
        constexpr int DriversPatience = 10'000;
        QElapsedTimer sinceLook;
        sinceLook.start();
        BeginLook(dialog);
        EXPECT_EQ(MakeButton(dialog), u"멈춤(F12)"_q);
        EXPECT_EQ(Shown(dialog), u"데이터베이스를 살펴보는 중입니다. 대답이 없으면 \"멈춤\"을 누르십시오."_q);
        TypeText(starter_.On<QWidget>(dialog, u"txtUpdate(3)"_q), u"x"_q);
        EXPECT_EQ(starter_.Text(dialog, 3), QString()); // what it looks for is settled
        PressKey(dialog, Qt::Key_F12);
        EXPECT_EQ(MakeButton(dialog), u"만들기(F12)"_q);
        EXPECT_LT(sinceLook.elapsed(), DriversPatience);
        Server().BehaveAgain();
        LookAt(dialog);
        EXPECT_EQ(Shown(dialog), ServerScript(Years));
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(PrepareDialogTest, MakesNothingWhenItIsStoppedBeforeTheEnd)
{
    InDialog([this](QWidget& dialog) {
        TypeOwner(dialog);
        starter_.Type(dialog, 2, u"2011-2012"_q);
        LookAt(dialog);
        const QString script = Shown(dialog);
        // Of its batches the first sets an option, which does not count, and BEGIN TRANSACTION does.
        const int last = static_cast<int>(BatchesOf(script).size());
        const int before = static_cast<int>(Server().Statements().size());
        Server().StaySilent(last);
        PressKey(dialog, Qt::Key_F12);
        EXPECT_TRUE(Server().WaitForStatements(before + last));
        starter_.desktop.Expect(
            PrepareBox(u"멈추었습니다. 만들어졌는지 \"살펴보기\"로 확인하십시오."_q, MsgBoxExclamation));
        PressKey(dialog, Qt::Key_F12);
        AwaitWork();
        LookAt(dialog);
        EXPECT_EQ(Shown(dialog), script);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(PrepareDialogTest, IsStoppedByItsClosing)
{
    InDialog([this](QWidget& dialog) {
        TypeOwner(dialog);
        LookAt(dialog);
        const int before = static_cast<int>(Server().Statements().size());
        Server().StaySilent(2);
        PressKey(dialog, Qt::Key_F12);
        EXPECT_TRUE(Server().WaitForStatements(before + 2));
        starter_.desktop.Expect(
            PrepareBox(u"멈추었습니다. 만들어졌는지 \"살펴보기\"로 확인하십시오."_q, MsgBoxExclamation));
        PressKey(dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(ScriptFor(empty_), ServerScript(Years));
}

TEST_F(PrepareDialogTest, DoesNotSayThatNothingWasMadeWhenTheEndWasNotHeard)
{
    InDialog([this](QWidget& dialog) {
        TypeOwner(dialog);
        starter_.Type(dialog, 2, u"2011-2012"_q);
        LookAt(dialog);
        Server().CutAfter(static_cast<int>(BatchesOf(Shown(dialog)).size()) + 1); // the COMMIT
        starter_.desktop.AllowBoxes();
        Make(dialog);
        EXPECT_TRUE(starter_.desktop.boxes.last().text.startsWith(
            u"데이터베이스의 대답을 끝까지 듣지 못했습니다. 만들어졌는지 \"살펴보기\"로 확인하십시오."));
        LookAt(dialog);
        EXPECT_EQ(Shown(dialog), u"없는 것이 없습니다. 만들 것도 없습니다."_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(PrepareDialogTest, RefusesYearsThatAreNone)
{
    InDialog([this](QWidget& dialog) {
        starter_.Type(dialog, 2, u"2012-2011"_q);
        starter_.desktop.Expect(
            PrepareBox(u"연도는 2010-2030 또는 2026처럼 적어 주십시오."_q, MsgBoxExclamation));
        LookAt(dialog);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(PrepareDialogTest, AddsToAFileTheLogsThatItLacks)
{
    const TestDatabase file(starter_.clock, Years, TestEngine::Embedded);
    starter_.Add(file);
    starter_.Open();
    const auto prepare = [this] { starter_.Click(u"BtnConnection(4)"_q); };
    starter_.desktop.Expect(PrepareBox(u"없는 것이 없습니다. 만들 것도 없습니다."_q, MsgBoxInformation));
    prepare();
    starter_.clock.Set(QDateTime(QDate(2026, 5, 30), QTime(9, 0)));
    starter_.desktop.Expect(
        PrepareBox(u"이 파일에 없는 발송내역 테이블을 만드시겠습니까?\r\n\r\nSMSLog_2026, SMSLog_2020"_q,
                   MsgBoxQuestion),
        AnswerYes);
    starter_.desktop.Expect(PrepareBox(u"데이터베이스를 준비했습니다."_q, MsgBoxInformation));
    prepare();
    EXPECT_EQ(MissingLogYears(file.Path(), starter_.clock), QList<int>());
}

TEST_F(PrepareDialogTest, SaysOfAFileThatIsNoDatabaseWhereTheReasonIsSeen)
{
    SavedConnection saved;
    saved.name = u"시험"_q;
    saved.file = starter_.settings.fileName();
    starter_.connections.Put(saved);
    starter_.Open();
    starter_.desktop.Expect(PrepareBox(u"이 파일에 만들지 못했습니다. \"연결 시험\"에서 원인을 볼 수 "
                                       "있습니다.\r\n\r\n"_q +
                                           saved.file,
                                       MsgBoxCritical));
    starter_.Click(u"BtnConnection(4)"_q);
}

TEST_F(PrepareDialogTest, LeavesTheWindowAliveAndOpenWhileAnotherProgramHoldsTheFile)
{
    const TestDatabase file(starter_.clock, Years, TestEngine::Embedded);
    starter_.Add(file);
    starter_.Open();
    starter_.clock.Set(QDateTime(QDate(2026, 5, 30), QTime(9, 0)));
    EmbeddedConnection other(starter_.clock);
    other.OpenFile(file.Path());
    other.Execute(u"BEGIN TRANSACTION"_q);
    other.Execute(u"DELETE FROM SMSCharge"_q);
    QTimer::singleShot(300, [&] {
        EXPECT_TRUE(starter_.window->IsBusy());
        EXPECT_FALSE(starter_.window->close());
        EXPECT_TRUE(starter_.window->isVisible());
        other.Execute(u"ROLLBACK TRANSACTION"_q);
    });
    starter_.desktop.Expect(
        PrepareBox(u"이 파일에 없는 발송내역 테이블을 만드시겠습니까?\r\n\r\nSMSLog_2026, SMSLog_2020"_q,
                   MsgBoxQuestion),
        AnswerYes);
    starter_.desktop.Expect(PrepareBox(u"데이터베이스를 준비했습니다."_q, MsgBoxInformation));
    starter_.Click(u"BtnConnection(4)"_q);
    EXPECT_FALSE(starter_.window->IsBusy());
}

} // namespace tsms::test

#include "start/Starter.h"

#include "store/engine/ConnectionText.h"
#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLineEdit>

namespace tsms::test {

namespace {

/// The window over a test database, whichever engine the tests run with.
class StartWindowTest : public ::testing::Test
{
protected:
    /// The launch line that reaches the database.
    QString Line()
    {
        Session described;
        database_.Describe(described);
        const bool isFile = described.DBServer == u"(embedded)";
        return QStringList{described.DBCatalog,
                           described.DBServer,
                           isFile ? QString() : described.DBPort,
                           isFile ? QString() : described.DBUser,
                           isFile ? QString() : described.DBPassword,
                           u"1"_q,
                           QString()}
            .join(u'■');
    }
    bool IsServer() { return database_.Server() != nullptr; }

    /// Answers the question for the password, where one comes.
    void ExpectPassword(const QString& password)
    {
        if (IsServer())
            WhenShown(u"PasswordDialog"_q, [this, password](QWidget& dialog) {
                TypeText(starter_.On<QWidget>(dialog, u"txtUpdate(0)"_q), password + u'\n');
            });
    }

    Starter starter_;
    TestDatabase database_{starter_.clock};
};

const QString NothingYet = u"먼저 \"새 연결\"을 눌러 연결을 만드십시오."_q;

} // namespace

TEST_F(StartWindowTest, WithoutConnectionsSaysWhatToDo)
{
    starter_.Open();
    EXPECT_EQ(starter_.Rows(), QList<QStringList>());
    EXPECT_EQ(starter_.The<Label>(u"lblNote"_q).Caption(),
              u"아직 연결이 없습니다. \"새 연결\"을 눌러 하나를 만드십시오."_q);
    EXPECT_EQ(starter_.window->focusWidget(), &starter_.The<QWidget>(u"BtnConnection(0)"_q));
    for (const QString& button : {u"BtnConnection(1)"_q, u"BtnConnection(2)"_q, u"BtnConnection(3)"_q,
                                  u"BtnConnection(4)"_q, u"BtnFunc(0)"_q}) {
        starter_.desktop.Expect(StartBox(NothingYet, MsgBoxInformation));
        starter_.Click(button);
    }
    EXPECT_EQ(starter_.launched, QStringList());
}

TEST_F(StartWindowTest, EnterStartsTheChosenConnectionAndEnds)
{
    starter_.Add(database_);
    starter_.Open();
    ExpectPassword(PasswordOf(database_));
    PressKey(*starter_.window, Qt::Key_Return);
    EXPECT_EQ(starter_.launched, QStringList{Line()});
    EXPECT_FALSE(starter_.window->IsLoaded());
}

TEST_F(StartWindowTest, F12AndADoubleClickStartAsWell)
{
    starter_.Add(database_);
    starter_.Open();
    ExpectPassword(PasswordOf(database_));
    PressKey(*starter_.window, Qt::Key_F12);
    starter_.Open();
    ExpectPassword(PasswordOf(database_));
    DoubleClickCell(starter_.List(), 1, 1);
    EXPECT_EQ(starter_.launched, (QStringList{Line(), Line()}));
}

TEST_F(StartWindowTest, GoesOnBehindAnErrorOfAStartByDoubleClick)
{
    starter_.services.launch = [](const QString&) -> bool { throw std::runtime_error("no words for it"); };
    starter_.Add(database_);
    starter_.Open();
    ExpectPassword(PasswordOf(database_));
    starter_.desktop.Expect(UnforeseenBox(u"no words for it"_q));
    DoubleClickCell(starter_.List(), 1, 1);
    EXPECT_TRUE(starter_.window->IsLoaded());
}

TEST_F(StartWindowTest, HasTheLastStartedConnectionChosen)
{
    starter_.Add(database_, u"가"_q);
    starter_.Add(database_, u"나"_q);
    starter_.Open();
    EXPECT_EQ(starter_.List().ActiveRow(), 2);
    EXPECT_EQ(starter_.window->focusWidget(), &starter_.List());
    PressKey(starter_.List(), Qt::Key_Up);
    ExpectPassword(PasswordOf(database_));
    PressKey(starter_.List(), Qt::Key_Return);
    starter_.Open();
    EXPECT_EQ(starter_.List().ActiveRow(), 1);
}

TEST_F(StartWindowTest, TheStartedProgramComesUp)
{
    Program program;
    Starter starter;
    const SavedConnection saved = starter.Add(program.database);
    ASSERT_TRUE(program.Start(LaunchLineOf(saved, PasswordOf(program.database))));
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
}

TEST_F(StartWindowTest, EscLeavesWithoutAStart)
{
    starter_.Add(database_);
    starter_.Open();
    PressKey(*starter_.window, Qt::Key_Escape);
    EXPECT_FALSE(starter_.window->IsLoaded());
    EXPECT_EQ(starter_.launched, QStringList());
}

TEST_F(StartWindowTest, StaysWhenTheProgramIsNotThere)
{
    starter_.programIsThere = false;
    starter_.Add(database_);
    starter_.Open();
    ExpectPassword(PasswordOf(database_));
    starter_.desktop.Expect(StartBox(
        u"문자메시지 프로그램(tsms)을 시작하지 못했습니다. 이 프로그램과 같은 폴더에 있어야 합니다."_q,
        MsgBoxCritical));
    PressKey(*starter_.window, Qt::Key_Return);
    EXPECT_TRUE(starter_.window->IsLoaded());
}

TEST_F(StartWindowTest, RemovesAConnectionAfterAQuestionAndLeavesTheDatabase)
{
    starter_.Add(database_, u"가"_q);
    starter_.Add(database_, u"나"_q);
    starter_.Open();
    const Box question{
        u"연결 지우기"_q,
        u"연결 \"나\"을(를) 지우시겠습니까?\r\n\r\n데이터베이스와 그 안의 자료는 그대로 남습니다."_q,
        MsgBoxQuestion};
    starter_.desktop.Expect(question, AnswerNo);
    starter_.Click(u"BtnConnection(2)"_q);
    EXPECT_EQ(starter_.Rows().size(), 2);
    starter_.desktop.Expect(question, AnswerYes);
    starter_.Click(u"BtnConnection(2)"_q);
    EXPECT_EQ(starter_.Rows().size(), 1);
    EXPECT_EQ(starter_.List().ActiveRow(), 1);
    EXPECT_TRUE(QFile::exists(database_.Path()) || IsServer());
}

TEST_F(StartWindowTest, RemovesTheKeptPasswordWithItsConnection)
{
    SavedConnection saved = starter_.Add(database_);
    saved.keepsPassword = true;
    starter_.connections.Put(saved);
    starter_.passwords.kept[saved.id] = u"secret"_q;
    starter_.Open();
    starter_.desktop.AllowBoxes(AnswerYes);
    starter_.Click(u"BtnConnection(2)"_q);
    EXPECT_TRUE(starter_.passwords.kept.isEmpty());
}

namespace {

/// A server connection, whatever the engine: nothing is opened.
class StartPassword : public ::testing::Test
{
protected:
    StartPassword()
    {
        saved_.name = u"본사"_q;
        saved_.kind = SavedConnection::Kind::Server;
        saved_.server = u"s"_q;
        saved_.database = u"d"_q;
        saved_.login = u"u"_q;
    }
    void Open(bool keeps)
    {
        saved_.keepsPassword = keeps;
        saved_.id = starter_.connections.Put(saved_);
        starter_.Open();
    }
    void Start() { PressKey(*starter_.window, Qt::Key_F12); }
    QStringList Passwords()
    {
        QStringList passwords;
        for (const QString& line : starter_.launched)
            passwords += line.section(u'■', 4, 4);
        return passwords;
    }

    Starter starter_;
    SavedConnection saved_;
};

} // namespace

TEST_F(StartPassword, IsAskedForWhenItIsNotKept)
{
    Open(false);
    WhenShown(u"PasswordDialog"_q, [this](QWidget& dialog) {
        auto& box = starter_.On<QLineEdit>(dialog, u"txtUpdate(0)"_q);
        EXPECT_EQ(box.echoMode(), QLineEdit::Password);
        EXPECT_EQ(starter_.On<Label>(dialog, u"lblNote"_q).Caption(),
                  u"연결 \"본사\"의 데이터베이스 비밀번호를 입력하십시오."_q);
        TypeText(box, u"a;b"_q);
        ClickOn(starter_.On<QWidget>(dialog, u"BtnFunc(0)"_q));
    });
    Start();
    EXPECT_EQ(Passwords(), QStringList{u"\"a;b\""_q});
}

TEST_F(StartPassword, IsTakenFromTheKeyStoreWithoutAQuestion)
{
    Open(true);
    starter_.passwords.kept[saved_.id] = u"secret"_q;
    Start();
    EXPECT_EQ(Passwords(), QStringList{u"secret"_q});
}

TEST_F(StartPassword, IsAskedForWithTheReasonWhenTheKeyStoreHasNone)
{
    const std::pair<PasswordStore::Outcome, QString> cases[] = {
        {PasswordStore::Outcome::Done, u"※ 암호 보관함에 이 연결의 비밀번호가 없습니다."_q},
        {PasswordStore::Outcome::Failed, u"※ 데스크톱에 암호 보관함이 없거나 열리지 않았습니다."_q}};
    for (const auto& [outcome, why] : cases) {
        starter_.passwords.outcome = outcome;
        Open(true);
        WhenShown(u"PasswordDialog"_q, [&, words = why](QWidget& dialog) {
            EXPECT_EQ(starter_.On<Label>(dialog, u"lblWhy"_q).Caption(), words);
            PressKey(dialog, Qt::Key_Escape);
        });
        Start();
    }
    EXPECT_EQ(starter_.launched, QStringList());
}

TEST_F(StartPassword, ThatNobodyGivesKeepsTheWindowOpen)
{
    Open(false);
    WhenShown(u"PasswordDialog"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); });
    Start();
    EXPECT_TRUE(starter_.window->IsLoaded());
    EXPECT_EQ(starter_.launched, QStringList());
}

TEST_F(StartPassword, StandsInNoSetting)
{
    Open(false);
    WhenShown(u"PasswordDialog"_q, [this](QWidget& dialog) {
        TypeText(starter_.On<QWidget>(dialog, u"txtUpdate(0)"_q), u"hush1234\n"_q);
    });
    Start();
    ASSERT_EQ(Passwords(), QStringList{u"hush1234"_q});
    starter_.settings.sync();
    QFile file(starter_.settings.fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.contains("keepsPassword"));
    EXPECT_FALSE(content.contains("hush1234"));
}

} // namespace tsms::test

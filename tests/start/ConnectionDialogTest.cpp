#include "start/Starter.h"
#include "store/embedded/EmbeddedConnection.h"
#include "toolkit/fields/Controls.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLineEdit>
#include <QTemporaryFile>

namespace tsms::test {

namespace {

enum Field : int { Name = 0, File = 2, ServerName, Port, Database, Login, Password, Number, Caller };

class ConnectionDialogTest : public ::testing::Test
{
protected:
    ConnectionDialogTest() { starter_.Open(); }

    void ChooseServer(QWidget& dialog) { ClickOn(starter_.On<QWidget>(dialog, u"OptKind(1)"_q)); }
    void FillServer(QWidget& dialog)
    {
        starter_.Type(dialog, Name, u"본사"_q);
        ChooseServer(dialog);
        starter_.Type(dialog, ServerName, u" sql.example.kr "_q);
        starter_.Type(dialog, Port, u"x14y34"_q);
        starter_.Type(dialog, Database, u"SmsDb"_q);
        starter_.Type(dialog, Login, u"sms"_q);
        starter_.Type(dialog, Password, u"secret"_q);
    }
    void Keep(QWidget& dialog) { ClickOn(starter_.On<QWidget>(dialog, u"ChkKeep"_q)); }
    void Save(QWidget& dialog) { PressKey(dialog, Qt::Key_F12); }
    Box NewBox(const QString& words, MsgBoxStyle style) { return {u"새 연결"_q, words, style}; }
    Box MakeBox(const QString& file)
    {
        return NewBox(u"아직 없는 파일입니다. 새 데이터베이스를 만드시겠습니까?\r\n\r\n"_q + file,
                      MsgBoxQuestion);
    }
    QString DataFile(const QString& name) { return starter_.services.dataFolder + u'/' + name; }
    int Count(const QString& file, const QString& table)
    {
        EmbeddedConnection connection(starter_.clock);
        connection.OpenFile(file);
        return connection.Query(u"SELECT COUNT(*) FROM "_q + table)->Field(0).toInt();
    }
    /// The one connection of the list.
    SavedConnection Saved() { return starter_.connections.All().value(0); }

    Starter starter_;
};

} // namespace

TEST_F(ConnectionDialogTest, MakesANewDatabaseFileAfterAQuestion)
{
    const QString file = DataFile(u"문자메시지.db"_q);
    starter_.desktop.Expect(MakeBox(file), AnswerYes);
    starter_.New([&](QWidget& dialog) {
        EXPECT_EQ(starter_.Text(dialog, File), file);
        starter_.Type(dialog, Name, u"연습"_q);
        Save(dialog);
    });
    EXPECT_EQ(starter_.Rows(), (QList<QStringList>{{u"연습"_q, file}}));
    EXPECT_EQ(Count(file, u"SMSSetup"_q), 1);
    EXPECT_EQ(Count(file, u"SMSLog_2012"_q), 0);
#ifdef Q_OS_UNIX // elsewhere the rights of the folder decide
    EXPECT_EQ(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
#endif
}

TEST_F(ConnectionDialogTest, FillsANewFileForADemonstration)
{
    starter_.desktop.AllowBoxes(AnswerYes);
    starter_.New([&](QWidget& dialog) {
        starter_.Type(dialog, Name, u"연습"_q);
        ClickOn(starter_.On<QWidget>(dialog, u"ChkDemo"_q));
        Save(dialog);
    });
    EXPECT_GT(Count(Saved().file, u"SMSLog_2012"_q), 100);
}

TEST_F(ConnectionDialogTest, OffersNoDemonstrationToARealGateway)
{
    starter_.services.offersDemo = false;
    starter_.New([&](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QWidget*>(u"ChkDemo"_q), nullptr);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(ConnectionDialogTest, ProposesANameThatIsNotTaken)
{
    starter_.desktop.AllowBoxes(AnswerYes);
    for (const QString& name : {u"가"_q, u"나"_q})
        starter_.New([&](QWidget& dialog) {
            starter_.Type(dialog, Name, name);
            Save(dialog);
        });
    EXPECT_EQ(starter_.Rows(), (QList<QStringList>{{u"가"_q, DataFile(u"문자메시지.db"_q)},
                                                   {u"나"_q, DataFile(u"문자메시지2.db"_q)}}));
    EXPECT_EQ(starter_.List().ActiveRow(), 2);
}

TEST_F(ConnectionDialogTest, StaysWhenNoFileIsWanted)
{
    starter_.desktop.Expect(MakeBox(DataFile(u"문자메시지.db"_q)), AnswerNo);
    starter_.New([&](QWidget& dialog) {
        starter_.Type(dialog, Name, u"연습"_q);
        Save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(starter_.Rows(), QList<QStringList>());
    EXPECT_FALSE(QFile::exists(DataFile(u"문자메시지.db"_q)));
}

TEST_F(ConnectionDialogTest, TakesAFileThatIsThereAndLeavesItAlone)
{
    const TestDatabase there(starter_.clock, {2012, 2012}, TestEngine::Embedded);
    starter_.desktop.fileToPick = there.Path();
    starter_.New([&](QWidget& dialog) {
        starter_.Type(dialog, Name, u"있는 것"_q);
        ClickOn(starter_.On<QWidget>(dialog, u"BtnPickFile"_q));
        EXPECT_EQ(starter_.Text(dialog, File), there.Path());
        Save(dialog);
    });
    EXPECT_EQ(starter_.desktop.filePicks,
              QStringList{u"데이터베이스 파일 고르기 | 데이터베이스 파일(*.db)|*.db"_q});
    EXPECT_EQ(Saved().file, there.Path());
}

TEST_F(ConnectionDialogTest, SaysWhyAFileCannotBeMade)
{
    QTemporaryFile noFolder;
    ASSERT_TRUE(noFolder.open());
    const QString file = noFolder.fileName() + u"/a.db"_q;
    starter_.New([&](QWidget& dialog) {
        starter_.Type(dialog, Name, u"연습"_q);
        starter_.Type(dialog, File, file);
        starter_.desktop.Expect(MakeBox(file), AnswerYes);
        starter_.desktop.Expect(
            NewBox(u"데이터베이스를 만들지 못했습니다.\r\n\r\n이 위치에 파일을 쓸 수 없습니다: "_q + file,
                   MsgBoxCritical));
        Save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(starter_.Rows(), QList<QStringList>());
}

TEST_F(ConnectionDialogTest, SavesAServerWithoutItsPassword)
{
    starter_.New([&](QWidget& dialog) {
        FillServer(dialog);
        Save(dialog);
    });
    EXPECT_EQ(starter_.Rows(), (QList<QStringList>{{u"본사"_q, u"sql.example.kr,1434 / SmsDb"_q}}));
    EXPECT_FALSE(Saved().keepsPassword);
    EXPECT_TRUE(starter_.passwords.kept.isEmpty());
    starter_.settings.sync();
    ::QFile file(starter_.settings.fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("secret"));
}

TEST_F(ConnectionDialogTest, AsksForATypedPasswordNoMoreInThatRun)
{
    starter_.New([&](QWidget& dialog) {
        FillServer(dialog);
        Save(dialog);
    });
    PressKey(*starter_.window, Qt::Key_F12);
    EXPECT_EQ(starter_.launched, QStringList{u"SmsDb■sql.example.kr■1434■sms■secret■1■"_q});
}

TEST_F(ConnectionDialogTest, KeepsThePasswordInTheKeyStoreWhenItIsTold)
{
    starter_.New([&](QWidget& dialog) {
        FillServer(dialog);
        Keep(dialog);
        Save(dialog);
    });
    EXPECT_TRUE(Saved().keepsPassword);
    EXPECT_EQ(starter_.passwords.kept, (QHash<QString, QString>{{Saved().id, u"secret"_q}}));
}

TEST_F(ConnectionDialogTest, SaysThatTheKeyStoreDoesNotKeepIt)
{
    starter_.passwords.outcome = PasswordStore::Outcome::Failed;
    starter_.desktop.Expect(
        NewBox(u"데스크톱의 암호 보관함에 저장하지 못했습니다. 비밀번호는 시작할 때마다 묻습니다."_q,
               MsgBoxExclamation));
    starter_.New([&](QWidget& dialog) {
        FillServer(dialog);
        Keep(dialog);
        Save(dialog);
    });
    EXPECT_FALSE(Saved().keepsPassword);
    EXPECT_EQ(starter_.Rows().size(), 1);
}

TEST_F(ConnectionDialogTest, LeavesAKeptPasswordWhenNoneIsTyped)
{
    starter_.New([&](QWidget& dialog) {
        FillServer(dialog);
        Keep(dialog);
        Save(dialog);
    });
    starter_.Change([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"연결 고치기"_q);
        EXPECT_EQ(starter_.Text(dialog, Password), QString());
        EXPECT_EQ(starter_.On<Label>(dialog, u"lblPasswordNote"_q).Caption(),
                  u"※ 비워 두면 보관된 비밀번호를 그대로 씁니다."_q);
        starter_.Type(dialog, Name, u"지사"_q);
        Save(dialog);
    });
    EXPECT_EQ(Saved().name, u"지사"_q);
    EXPECT_EQ(starter_.passwords.kept, (QHash<QString, QString>{{Saved().id, u"secret"_q}}));
}

TEST_F(ConnectionDialogTest, TakesAPasswordOutOfTheKeyStoreThatIsKeptNoMore)
{
    starter_.New([&](QWidget& dialog) {
        FillServer(dialog);
        Keep(dialog);
        Save(dialog);
    });
    starter_.Change([&](QWidget& dialog) {
        Keep(dialog);
        Save(dialog);
    });
    EXPECT_TRUE(starter_.passwords.kept.isEmpty());
    EXPECT_FALSE(Saved().keepsPassword);
}

TEST_F(ConnectionDialogTest, ShowsTheFieldsOfTheKindThatIsChosen)
{
    starter_.New([&](QWidget& dialog) {
        const auto isShown = [&](int field) {
            return starter_.On<QWidget>(dialog, u"txtUpdate(%1)"_q.arg(field)).isVisible();
        };
        EXPECT_TRUE(isShown(File));
        EXPECT_FALSE(isShown(Login));
        ChooseServer(dialog);
        EXPECT_FALSE(isShown(File));
        EXPECT_TRUE(isShown(Login));
        EXPECT_EQ(starter_.On<QLineEdit>(dialog, u"txtUpdate(7)"_q).echoMode(), QLineEdit::Password);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(ConnectionDialogTest, EnterWalksThroughTheFieldsAndSavesInTheLast)
{
    starter_.desktop.AllowBoxes(AnswerYes);
    starter_.New([&](QWidget& dialog) {
        starter_.Type(dialog, Name, u"연습"_q);
        PressKey(dialog, Qt::Key_Return);
        EXPECT_EQ(dialog.focusWidget()->objectName(), u"OptKind(0)"_q);
        starter_.On<QWidget>(dialog, u"txtUpdate(8)"_q).setFocus();
        PressKey(dialog, Qt::Key_Return);
        EXPECT_EQ(dialog.focusWidget()->objectName(), u"txtUpdate(9)"_q);
        PressKey(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(starter_.Rows().size(), 1);
}

TEST_F(ConnectionDialogTest, TellsAFaultAndStays)
{
    starter_.desktop.Expect(NewBox(u"서버를 입력하여 주십시오."_q, MsgBoxExclamation));
    starter_.New([&](QWidget& dialog) {
        starter_.Type(dialog, Name, u"본사"_q);
        ChooseServer(dialog);
        Save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(starter_.Rows(), QList<QStringList>());
}

} // namespace tsms::test

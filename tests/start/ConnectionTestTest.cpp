#include "tsms-start/ConnectionTest.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "start/Starter.h"
#include "store/engine/DatabaseError.h"
#include "store/odbc/OdbcDrivers.h"
#include "support/server/TestServer.h"

#include <gtest/gtest.h>

#include <QFile>

namespace tsms::test {

namespace {

using Verdict = TestStep::Verdict;

/// The verdicts in one line: "o" good, "x" bad, "?" tried, "." not seen.
QString Verdicts(const ConnectionTest& test)
{
    QString line;
    for (const TestStep& step : test.Steps())
        line += u".?ox"_q[static_cast<int>(step.verdict)];
    return line;
}

/// What is said of the first fault.
QString Words(const ConnectionTest& test)
{
    for (const TestStep& step : test.Steps())
        if (step.verdict == Verdict::Bad)
            return step.words;
    return {};
}

/// A connection whose opening fails.
class Unopened final : public Connection
{
public:
    Unopened(long number, QString words) : error_(number, std::move(words)) {}
    bool IsOpen() const override { return false; }
    void Open() override { throw error_; }
    void Close() override {}
    std::unique_ptr<Recordset> Query(const Statement&) override { throw RuntimeError(ObjectNotSet); }
    void Execute(const Statement&) override { throw RuntimeError(ObjectNotSet); }

private:
    RuntimeError error_;
};

class ServerConnectionTest : public ::testing::Test
{
protected:
    ServerConnectionTest() : saved_(starter_.Add(database_)) {}

    TestServer& Server() { return *database_.Server(); }

    /// Runs the test as it is set up.
    void Run(const ConnectionMaker& maker = {})
    {
        test_ = std::make_unique<ConnectionTest>(saved_, password_, starter_.clock,
                                                 maker ? maker : MakeConnections(starter_.clock),
                                                 [this] { return starter_.gatewayFault; });
        test_->Run([this] { seen_ += Verdicts(*test_); });
    }
    void ExpectFault(const QString& verdicts, const QString& part)
    {
        EXPECT_EQ(Verdicts(*test_), verdicts);
        EXPECT_TRUE(Words(*test_).contains(part)) << Words(*test_).toStdString();
    }
    /// Somebody who has all rights but those of one table that are left out.
    void LogInAsClerk(const QString& withoutTable = {}, const QString& withoutRight = {})
    {
        Server().AddUser(u"clerk"_q, u"duty"_q);
        RunAsOwner(ServerGrants(u"clerk"_q, {2012, 2012}));
        if (!withoutTable.isEmpty())
            RunAsOwner(u"REVOKE %1 ON dbo.%2 FROM [clerk]"_q.arg(withoutRight, withoutTable));
        saved_.login = u"clerk"_q;
        password_ = u"duty"_q;
    }
    void RunAsOwner(const QString& batch)
    {
        const std::unique_ptr<Connection> owner = MakeConnections(starter_.clock)();
        owner->ConnectionString = ConnectionTextOf(saved_, PasswordOf(database_));
        owner->Open();
        owner->Execute(batch);
    }

    Starter starter_;
    TestDatabase database_{starter_.clock, {2012, 2012}, TestEngine::Server};
    SavedConnection saved_;
    QString password_ = PasswordOf(database_);
    std::unique_ptr<ConnectionTest> test_;
    QStringList seen_; ///< as it went on
};

class FileConnectionTest : public ServerConnectionTest
{
protected:
    FileConnectionTest()
    {
        saved_.kind = SavedConnection::Kind::File;
        saved_.file = database_.Path();
    }
};

} // namespace

TEST_F(ServerConnectionTest, OfAGoodConnectionTicksEverything)
{
    Run();
    EXPECT_EQ(Verdicts(*test_), u"oooooooo"_q) << Words(*test_).toStdString();
    QStringList titles;
    for (const TestStep& step : test_->Steps())
        titles += step.title;
    EXPECT_EQ(titles, (QStringList{u"ODBC 드라이버"_q, u"서버 응답"_q, u"로그인"_q, u"데이터베이스"_q,
                                   u"테이블"_q, u"2012년 발송내역"_q, u"권한"_q, u"문자메시지 서버"_q}));
}

TEST_F(ServerConnectionTest, TellsWhatIsTriedAndEachVerdictAsSoonAsItIsKnown)
{
    database_.Execute(u"DROP TABLE SMSCharge"_q);
    Run();
    EXPECT_EQ(seen_, (QStringList{u"????...."_q, u"o???...."_q, u"oo??...."_q, u"ooo?...."_q, u"oooo...."_q,
                                  u"oooo?..."_q, u"oooox..."_q, u"oooox?.."_q, u"ooooxo.."_q, u"ooooxo?."_q,
                                  u"ooooxoo."_q, u"ooooxoo?"_q, u"ooooxooo"_q}));
}

TEST_F(ServerConnectionTest, EndsWhenNobodyWantsToHearMore)
{
    test_ = std::make_unique<ConnectionTest>(saved_, password_, starter_.clock,
                                             MakeConnections(starter_.clock), [] { return QString(); });
    EXPECT_THROW(test_->Run([this] {
        if (Verdicts(*test_).startsWith(u"oooo?"))
            throw 1;
    }),
                 int);
    EXPECT_EQ(Verdicts(*test_), u"oooo?..."_q);
}

TEST_F(ServerConnectionTest, TicksEverythingForSomebodyWithTheGrantsAlone)
{
    LogInAsClerk();
    Run();
    EXPECT_EQ(Verdicts(*test_), u"oooooooo"_q) << Words(*test_).toStdString();
}

TEST_F(ServerConnectionTest, WithoutADriverNamesThePackage)
{
#ifdef Q_OS_WIN
    const QString package = u" msodbcsql.msi"_q;
#else
    const QString package = u"    apt-get install libodbc2 tdsodbc\r\n"_q;
#endif
    Run([] { return std::make_unique<Unopened>(NoDriver, WantedOdbcDrivers()); });
    ExpectFault(u"x......o"_q, package);
    EXPECT_TRUE(Words(*test_).startsWith(WantedOdbcDrivers()));
}

TEST_F(ServerConnectionTest, WithoutAnAnswerNamesTheServer)
{
    Server().Stop();
    Run();
    ExpectFault(u"ox.....o"_q, u"서버 127.0.0.1,%1 이(가) 응답하지 않습니다."_q.arg(saved_.port));
    EXPECT_FALSE(HasRefusedPassword(test_->Steps()));
}

TEST_F(ServerConnectionTest, WithAWrongPasswordNamesTheLogin)
{
    password_ = u"wrong"_q;
    Run();
    ExpectFault(u"oox....o"_q, u"서버가 로그인 sms 을(를) 받아들이지 않았습니다."_q);
    EXPECT_TRUE(Words(*test_).endsWith(u"\r\n\r\n서버의 말: Login failed for user 'sms'."));
    EXPECT_TRUE(HasRefusedPassword(test_->Steps()));
}

TEST_F(ServerConnectionTest, OfALoginThatTheServerRefusesOtherwiseSaysWhy)
{
    Server().RefuseLogIns(
        {{18470, 14, 1, u"Login failed for user 'sms'. Reason: The account is disabled."_q}});
    Run();
    ExpectFault(u"oox....o"_q, u"Reason: The account is disabled."_q);
}

TEST_F(ServerConnectionTest, WithAPasswordThatTheDriverCannotBeToldSaysSo)
{
    password_ = u"a};b"_q;
    Run();
    ExpectFault(u"o.x....o"_q, u"ODBC 드라이버로 넘길 수 없는 글자"_q);
}

TEST_F(ServerConnectionTest, WithoutTheDatabaseNamesItAndWhatMakesIt)
{
    saved_.database = u"Nowhere"_q;
    Run();
    ExpectFault(u"ooox...o"_q, u"    CREATE DATABASE Nowhere COLLATE Korean_Wansung_CI_AS;\r\n"_q);
    EXPECT_FALSE(HasRefusedPassword(test_->Steps()));
}

TEST_F(ServerConnectionTest, NamesTheTablesThatAreMissing)
{
    database_.Execute(u"DROP TABLE SMSCharge"_q);
    database_.Execute(u"DROP TABLE SMSTempLSub"_q);
    Run();
    ExpectFault(u"ooooxooo"_q, u"없는 테이블이 있습니다: SMSTempLSub, SMSCharge\r\n"_q);
}

TEST_F(ServerConnectionTest, TellsATableThatLacksAColumn)
{
    database_.Execute(u"ALTER TABLE SMSCharge RENAME COLUMN Remark TO Memo"_q);
    Run();
    ExpectFault(u"ooooxooo"_q, u"SMSCharge: Invalid column name 'Remark'."_q);
}

TEST_F(ServerConnectionTest, TellsAnAccountTableWithoutItsRow)
{
    database_.Execute(u"DELETE FROM SMSSetup"_q);
    Run();
    ExpectFault(u"ooooxooo"_q, u"SMSSetup 테이블에 행이 없습니다."_q);
}

TEST_F(ServerConnectionTest, NamesTheLogOfTheYearThatIsMissing)
{
    starter_.clock.Set(QDateTime(QDate(2013, 1, 1), QTime(0, 0)));
    Run();
    ExpectFault(u"oooooxoo"_q, u"없는 발송내역 테이블이 있습니다: SMSLog_2013\r\n"_q);
}

TEST_F(ServerConnectionTest, NamesTheLogWithWhichTheAccountPageOpens)
{
    starter_.clock.Set(QDateTime(QDate(2026, 1, 1), QTime(0, 0)));
    Run();
    ExpectFault(u"oooooxoo"_q, u"없는 발송내역 테이블이 있습니다: SMSLog_2026, SMSLog_2020\r\n"_q);
}

TEST_F(ServerConnectionTest, NamesEachRightThatIsMissingAsTheGrantThatGivesIt)
{
    for (const TableDescription& table : AllTables({2012, 2012})) {
        for (const QString& right : table.rights.split(u", "_q)) {
            saved_.login = u"sms"_q; // the owner, who grants
            LogInAsClerk(table.name, right);
            Run();
            ExpectFault(u"ooooooxo"_q,
                        u"주십시오.\r\n\r\nGRANT %1 ON dbo.%2 TO [clerk];\n"_q.arg(right, table.name));
            EXPECT_EQ(Words(*test_).count(u"GRANT"_q), 1);
        }
    }
}

TEST_F(ServerConnectionTest, NamesAllRightsToSomebodyWithoutAny)
{
    Server().AddUser(u"clerk"_q, u"duty"_q);
    saved_.login = u"clerk"_q;
    password_ = u"duty"_q;
    Run();
    EXPECT_EQ(Verdicts(*test_), u"ooooooxo"_q);
    EXPECT_TRUE(Words(*test_).endsWith(ServerGrants(u"clerk"_q, {2012, 2012})))
        << Words(*test_).toStdString();
}

TEST_F(ServerConnectionTest, TriesRightsInATransactionThatIsTakenBack)
{
    Run();
    const QStringList statements = Server().Statements();
    EXPECT_EQ(statements.count(u"BEGIN TRANSACTION"_q), 7);
    EXPECT_EQ(statements.count(u"ROLLBACK TRANSACTION"_q), 7);
    EXPECT_EQ(statements.count(u"COMMIT TRANSACTION"_q), 0);
    bool isInside = false;
    for (const QString& statement : statements) {
        if (statement.endsWith(u"TRANSACTION")) {
            isInside = statement.startsWith(u"BEGIN");
        } else if (!statement.startsWith(u"SELECT")) {
            EXPECT_TRUE(isInside && statement.endsWith(u"WHERE 1 = 0")) << statement.toStdString();
        }
    }
}

TEST_F(ServerConnectionTest, ThatIsCutOffMidwaySaysSo)
{
    Server().CutBefore(3);
    Run();
    ExpectFault(u"oooox..o"_q, u"확인하는 동안 연결이 끊어졌습니다. 다시 시험하십시오."_q);
}

TEST_F(ServerConnectionTest, TellsWhatIsWrongWithTheGateway)
{
    starter_.gatewayFault = u"문자메시지 서버에 연결하지 못하였습니다."_q;
    Run();
    ExpectFault(u"ooooooox"_q, u"문자메시지 서버에 연결하지 못하였습니다."_q);
}

TEST_F(ServerConnectionTest, SeesWhatHasBeenMendedWhenItRunsAgain)
{
    Server().Stop();
    Run();
    Server().Start();
    test_->Run([] {});
    EXPECT_EQ(Verdicts(*test_), u"oooooooo"_q);
}

TEST_F(FileConnectionTest, OfAGoodFileTicksEverything)
{
    Run();
    EXPECT_EQ(Verdicts(*test_), u"oooo"_q) << Words(*test_).toStdString();
    EXPECT_EQ(test_->Steps().first().title, u"데이터베이스 파일"_q);
}

TEST_F(FileConnectionTest, WithoutTheFileNamesIt)
{
    saved_.file = database_.Folder() + u"/none.db"_q;
    Run();
    ExpectFault(u"x..o"_q, u"파일이 없습니다."_q);
    EXPECT_TRUE(Words(*test_).endsWith(saved_.file));
    EXPECT_FALSE(QFile::exists(saved_.file));
}

TEST_F(FileConnectionTest, OfAFileThatIsNoDatabaseSaysSo)
{
    saved_.file = database_.Folder() + u"/text.db"_q;
    QFile file(saved_.file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("hello, this is no database");
    file.close();
    Run();
    ExpectFault(u"x..o"_q, u"이 파일을 읽을 수 없거나 문자메시지 데이터베이스가 아닙니다."_q);
}

TEST_F(FileConnectionTest, NamesTheLogThatIsMissing)
{
    starter_.clock.Set(QDateTime(QDate(2013, 1, 1), QTime(0, 0)));
    Run();
    ExpectFault(u"ooxo"_q, u"없는 발송내역 테이블이 있습니다: SMSLog_2013\r\n"_q);
}

} // namespace tsms::test

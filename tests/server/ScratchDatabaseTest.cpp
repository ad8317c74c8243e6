#include "support/database/ScratchDatabase.h"

#include "server/ServerFixture.h"
#include "session/Session.h"

namespace tsms::test {

namespace {

/// The server in place of a live one.
class ScratchDatabases : public ServerFixture
{
protected:
    ScratchDatabases()
    {
        Session session;
        server_.Describe(session);
        const QStringList fields{session.DBCatalog, session.DBServer, session.DBPort, session.DBUser,
                                 session.DBPassword};
        qputenv("TSMS_TEST_SERVER", fields.join(u'■').toUtf8());
    }
    ~ScratchDatabases() override
    {
        DropIdleDatabases();
        qunsetenv("TSMS_TEST_SERVER");
    }

    static std::unique_ptr<ScratchDatabase> Borrow() { return BorrowScratchDatabase({2012, 2012}); }
    static QString NameOf(const ScratchDatabase& database)
    {
        Session session;
        database.Describe(session);
        return session.DBCatalog;
    }
    static QString ValueOf(ScratchDatabase& database, const QString& sql)
    {
        return database.Link().Query(sql)->Field(0);
    }
};

} // namespace

TEST_F(ScratchDatabases, GivenBackAreLentAgainAsTheScriptMadeThem)
{
    auto database = Borrow();
    const QString name = NameOf(*database);
    database->Link().Execute(u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('가'), ('나')"_q);
    database->Link().Execute(u"UPDATE SMSSetup SET SMSRemainCnt = 7"_q);
    GiveBack(std::move(database));
    database = Borrow();
    EXPECT_EQ(NameOf(*database), name);
    EXPECT_EQ(ValueOf(*database, u"SELECT COUNT(*) FROM SMSGroupMst"_q), u"0"_q);
    EXPECT_EQ(ValueOf(*database, u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"0"_q);
    database->Link().Execute(u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('다')"_q);
    EXPECT_EQ(ValueOf(*database, u"SELECT GroupCd FROM SMSGroupMst"_q), u"1"_q);
}

TEST_F(ScratchDatabases, LentAtTheSameTimeAreTwo)
{
    const auto one = Borrow();
    EXPECT_NE(NameOf(*Borrow()), NameOf(*one));
}

TEST_F(ScratchDatabases, ThatHaveLostATableAreReplaced)
{
    auto database = Borrow();
    const QString name = NameOf(*database);
    database->Link().Execute(u"DROP TABLE SMSCharge"_q);
    GiveBack(std::move(database));
    database = Borrow();
    EXPECT_NE(NameOf(*database), name);
    EXPECT_EQ(ValueOf(*database, u"SELECT COUNT(*) FROM SMSCharge"_q), u"0"_q);
}

TEST_F(ScratchDatabases, AreDroppedInTheEnd)
{
    auto database = Borrow();
    const QString name = NameOf(*database);
    GiveBack(std::move(database));
    DropIdleDatabases();
    Connect();
    EXPECT_FALSE(client_.Execute(u"DROP DATABASE "_q + name));
}

TEST_F(ScratchDatabases, AreOnAServerThatTellsWhatItIs)
{
    EXPECT_EQ(LiveServerVersion(), u"Microsoft SQL Server, as the tests imitate it, us_english"_q);
}

TEST(SpeaksAsSqlServer, AsksForTheMakeAndTheLanguage)
{
    EXPECT_TRUE(SpeaksAsSqlServer(u"Microsoft SQL Server 2019 (RTM) - 15.0.2000.5 (X64), us_english"_q));
    EXPECT_FALSE(SpeaksAsSqlServer(u"Microsoft SQL Server 2019 (RTM) - 15.0.2000.5 (X64), 한국어"_q));
    EXPECT_FALSE(SpeaksAsSqlServer(u"A server compatible with Microsoft SQL Server, us_english"_q));
}

} // namespace tsms::test

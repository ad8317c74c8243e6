#include "store/embedded/EmbeddedTables.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedDialect.h"
#include "store/engine/ConnectionText.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tsms::test {

namespace {

class EmbeddedTablesTest : public ::testing::Test
{
protected:
    QString In(const QString& name) { return QDir(folder.path()).filePath(name); }
    QStringList Files() { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
    /// Those that others than their owner may read or write.
    QStringList FilesForOthers()
    {
        const QFile::Permissions others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QStringList names = Files();
        names.removeIf([&](const QString& name) { return !(QFile::permissions(In(name)) & others); });
        return names;
    }

    FixedClock clock;
    QTemporaryDir folder;
};

} // namespace

TEST(YearRange, IsReadFromOneYearOrTwo)
{
    YearRange range;
    EXPECT_TRUE(ReadYearRange(u"2012-2014", range));
    EXPECT_EQ(range.first, 2012);
    EXPECT_EQ(range.last, 2014);
    EXPECT_TRUE(ReadYearRange(u"2026", range));
    EXPECT_EQ(range.first, 2026);
    EXPECT_EQ(range.last, 2026);
}

TEST(YearRange, AnythingElseIsRefused)
{
    YearRange range;
    for (const QString& text : {QString(), u"2014-2012"_q, u"12"_q, u"20122"_q, u"2012-"_q, u"-2012"_q,
                                u"abcd"_q, u"2012-2013-2014"_q, u"1899"_q, u"3000"_q, u"２０１２"_q})
        EXPECT_FALSE(ReadYearRange(text, range)) << text.toStdString();
}

TEST_F(EmbeddedTablesTest, ADatabaseHasALogForEachOfItsYearsAndNoOther)
{
    TestDatabase database(clock, {2012, 2014});
    const QList<QStringList> logs = database.Rows(
        u"SELECT name FROM sqlite_master WHERE type='table' AND name LIKE 'SMSLog%' ORDER BY name"_q);
    EXPECT_EQ(logs, (QList<QStringList>{{u"SMSLog_2012"_q}, {u"SMSLog_2013"_q}, {u"SMSLog_2014"_q}}));
}

TEST_F(EmbeddedTablesTest, ADatabaseIsOneFileThatKeepsItsJournalAhead)
{
    TestDatabase database(clock);
    EXPECT_EQ(QDir(database.Folder()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    EXPECT_EQ(database.Value(u"PRAGMA journal_mode"_q), u"wal"_q);
}

#ifdef Q_OS_UNIX // elsewhere the folder says who may
TEST_F(EmbeddedTablesTest, OnlyItsOwnerMayReadADatabaseOrWhatStandsBesideIt)
{
    const auto asBefore = qScopeGuard([former = ::umask(0)] { ::umask(former); });
    CreateEmbeddedDatabase(In(u"a.db"_q), {}, clock, [this](Connection&) {
        EXPECT_GE(Files().size(), 2) << "the engine has files of its own";
        EXPECT_EQ(FilesForOthers(), QStringList());
    });
    EXPECT_EQ(FilesForOthers(), QStringList());
    EmbeddedConnection connection(clock);
    connection.OpenFile(In(u"a.db"_q));
    connection.Execute(u"UPDATE SMSSetup SET SMSRemainCnt= 1"_q);
    EXPECT_EQ(Files(), (QStringList{u"a.db"_q, u"a.db-shm"_q, u"a.db-wal"_q}));
    EXPECT_EQ(FilesForOthers(), QStringList());
}
#endif

TEST_F(EmbeddedTablesTest, AFileThatStandsIsNotTouched)
{
    QFile file(In(u"a.db"_q));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    EXPECT_THROW(CreateEmbeddedDatabase(In(u"a.db"_q), {}, clock), RuntimeError);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("precious"));
    EXPECT_EQ(Files(), QStringList{u"a.db"_q});
}

TEST_F(EmbeddedTablesTest, AFailureWhileFillingLeavesNothingBehind)
{
    const auto fill = [](Connection& connection) {
        connection.Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q);
        connection.Execute(u"UPDATE Nothing SET x=1"_q);
    };
    EXPECT_THROW(CreateEmbeddedDatabase(In(u"a.db"_q), {}, clock, fill), RuntimeError);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(EmbeddedTablesTest, AFolderThatIsMissingIsAFailure)
{
    EXPECT_THROW(CreateEmbeddedDatabase(In(u"none/a.db"_q), {}, clock), RuntimeError);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(EmbeddedTablesTest, AYearIsAddedWithEverythingThatALogHas)
{
    CreateEmbeddedDatabase(In(u"a.db"_q), {2012, 2012}, clock);
    AddEmbeddedLogYear(In(u"a.db"_q), 2031, clock);
    EmbeddedConnection connection(clock);
    connection.OpenFile(In(u"a.db"_q));
    EXPECT_EQ(connection.Query(u"SELECT * FROM SMSLog_2031"_q)->FieldCount(), 15);
    EXPECT_EQ(
        connection.Query(u"SELECT COUNT(*) FROM sqlite_master WHERE tbl_name='SMSLog_2031'"_q)->Field(0),
        connection.Query(u"SELECT COUNT(*) FROM sqlite_master WHERE tbl_name='SMSLog_2012'"_q)->Field(0));
}

TEST_F(EmbeddedTablesTest, AYearThatIsThereIsRefused)
{
    CreateEmbeddedDatabase(In(u"a.db"_q), {2012, 2012}, clock);
    try {
        AddEmbeddedLogYear(In(u"a.db"_q), 2012, clock);
        ADD_FAILURE();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Description, u"SMSLog_2012 테이블이 이미 있습니다."_q);
    }
}

TEST(ServerScript, DescribesEveryTableOnce)
{
    const QString script = ServerScript({2012, 2013});
    for (const QString& table : {u"SMSSetup"_q, u"SMSGroupMst"_q, u"SMSGroupSub"_q, u"SMSTempLMst"_q,
                                 u"SMSTempLSub"_q, u"SMSCharge"_q, u"SMSLog_2012"_q, u"SMSLog_2013"_q})
        EXPECT_EQ(script.count(u"CREATE TABLE dbo."_q + table + u" ("_q), 1) << table.toStdString();
    EXPECT_EQ(script.count(u"CREATE TABLE"_q), 8);
    EXPECT_EQ(script.count(u"INSERT INTO SMSSetup"_q), 1);
}

TEST(ServerScript, RunTwiceLeavesTheAccountRowAlone)
{
    const FixedClock clock;
    TestDatabase database(clock, {2012, 2012}, TestEngine::Server);
    Session session;
    database.Describe(session);
    const std::unique_ptr<Connection> link = database.Connections()();
    link->ConnectionString = AssembleConnectionText(session);
    link->Open();
    database.SetAccount(77);
    for (const QString& batch : ServerScript({2012, 2013}).split(u"\nGO\n"_q, Qt::SkipEmptyParts)) {
        try {
            link->Execute(batch);
        } catch (const RuntimeError& error) {
            EXPECT_TRUE(error.Description.startsWith(u"There is already an object named"_q))
                << error.Description.toStdString();
        }
    }
    EXPECT_EQ(database.Rows(u"SELECT SMSID, SMSRemainCnt FROM SMSSetup"_q),
              QList<QStringList>({{u"demo"_q, u"77"_q}}));
    EXPECT_EQ(database.Count(u"SMSLog_2013"_q), 0);
}

TEST(ServerScript, TextsCompareInTheKoreanManner)
{
    const QString script = ServerScript({2012, 2012});
    EXPECT_GT(script.count(u"varchar("_q), 20);
    EXPECT_EQ(script.count(u"varchar("_q), script.count(u"COLLATE Korean_Wansung_CI_AS"_q));
}

TEST(ServerScript, GeneratedKeysAreAssignedByTheServer)
{
    EXPECT_TRUE(ServerScript({2012, 2012}).contains(u"    SMSKey int IDENTITY(1,1) NOT NULL,"_q));
    EXPECT_TRUE(ServerScript({2012, 2012}).contains(u"    TempLCd int NOT NULL,"_q));
}

TEST(ServerScript, ALogIsIndexedByItsTimes)
{
    EXPECT_TRUE(
        ServerScript({2012, 2012})
            .contains(u"CREATE INDEX IX_SMSLog_2012_1 ON dbo.SMSLog_2012 (SendTime, SMSKey, SMSStatus);"_q));
}

TEST_F(EmbeddedTablesTest, TheMonthsAreCountedFromTheIndexAlone)
{
    TestDatabase database(clock, {2012, 2012});
    const QString plan = database
                             .Rows(u"EXPLAIN QUERY PLAN "_q +
                                   QString::fromUtf8(ToEmbeddedDialect(
                                       u"SELECT LEFT(SendTime,7), COUNT(*), SUM(CASE WHEN SMSStatus ='2' "
                                       u"THEN 1 ELSE 0 END) FROM SMSLog_2012 GROUP BY LEFT(SendTime,7)"_q)))
                             .first()
                             .last();
    EXPECT_EQ(plan, u"SCAN SMSLog_2012 USING COVERING INDEX IX_SMSLog_2012_1"_q);
}

} // namespace tsms::test

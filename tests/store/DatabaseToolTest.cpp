#include "runtime/CodePage949.h"
#include "session/Session.h"
#include "store/ConnectionText.h"
#include "store/Tables.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"
#include "tsms-db/Command.h"
#include "tsms-db/DemoContent.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class DatabaseTool : public ::testing::Test
{
protected:
    int Run(const QStringList& arguments)
    {
        out.clear();
        err.clear();
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        return RunDatabaseTool(QStringList{u"tsms-db"_q} + arguments, clock, outStream, errStream);
    }

    QString In(const QString& name) { return QDir(folder.path()).filePath(name); }
    QStringList Files() { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QString Value(const QString& file, const QString& sql)
    {
        std::unique_ptr<Connection> connection = MakeConnections(clock)();
        connection->ConnectionString = u"Initial Catalog="_q + In(file) + u";Data Source=(embedded),0"_q;
        connection->Open();
        return connection->Query(sql)->Field(0);
    }

    FixedClock clock;
    QTemporaryDir folder;
    QString out;
    QString err;
};

} // namespace

TEST_F(DatabaseTool, MakesADatabase)
{
    EXPECT_EQ(Run({u"create"_q, In(u"문자.db"_q)}), 0);
    EXPECT_EQ(out, u"데이터베이스를 만들었습니다: "_q + In(u"문자.db"_q) + u"\n"_q);
    EXPECT_EQ(err, QString());
    EXPECT_EQ(Value(u"문자.db"_q, u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"0"_q);
    EXPECT_EQ(Value(u"문자.db"_q, u"SELECT COUNT(*) FROM SMSLog_2010"_q), u"0"_q);
    EXPECT_EQ(Value(u"문자.db"_q, u"SELECT COUNT(*) FROM SMSLog_2030"_q), u"0"_q);
    EXPECT_EQ(Files(), QStringList{u"문자.db"_q});
}

TEST_F(DatabaseTool, MakesTheYearsThatItIsTold)
{
    EXPECT_EQ(Run({u"create"_q, In(u"a.db"_q), u"--years"_q, u"2012-2013"_q}), 0);
    EXPECT_EQ(
        Value(u"a.db"_q, u"SELECT COUNT(*) FROM sqlite_master WHERE type='table' AND name LIKE 'SMSLog%'"_q),
        u"2"_q);
}

TEST_F(DatabaseTool, RefusesAFileThatStands)
{
    Run({u"create"_q, In(u"a.db"_q)});
    EXPECT_EQ(Run({u"create"_q, In(u"a.db"_q)}), 1);
    EXPECT_EQ(err, u"tsms-db: 이미 있는 파일이라 만들지 않았습니다: "_q + In(u"a.db"_q) + u"\n"_q);
    EXPECT_EQ(out, QString());
}

TEST_F(DatabaseTool, LeavesNothingWhenItFails)
{
    EXPECT_EQ(Run({u"create"_q, In(u"none/a.db"_q)}), 1);
    EXPECT_EQ(
        err,
        u"tsms-db: 데이터베이스를 만들지 못했습니다. 이 위치의 파일을 쓸 수 없거나 데이터베이스 파일이 아닙니다.\n"_q);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(DatabaseTool, AddsAYear)
{
    Run({u"create"_q, In(u"a.db"_q), u"--years"_q, u"2012"_q});
    EXPECT_EQ(Run({u"add-year"_q, In(u"a.db"_q), u"2013"_q}), 0);
    EXPECT_EQ(Value(u"a.db"_q, u"SELECT COUNT(*) FROM SMSLog_2013"_q), u"0"_q);
    EXPECT_EQ(Run({u"add-year"_q, In(u"a.db"_q), u"2013"_q}), 1);
    EXPECT_EQ(err, u"tsms-db: 2013년 테이블을 추가하지 못했습니다. SMSLog_2013 테이블이 이미 있습니다.\n"_q);
}

TEST_F(DatabaseTool, AddsNoYearToAFileThatIsMissing)
{
    EXPECT_EQ(Run({u"add-year"_q, In(u"a.db"_q), u"2013"_q}), 1);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(DatabaseTool, PrintsWhatMakesTheTablesOnAServer)
{
    EXPECT_EQ(Run({u"schema"_q, u"--server"_q, u"--years"_q, u"2012"_q}), 0);
    EXPECT_EQ(out, ServerScript({2012, 2012}));
}

TEST_F(DatabaseTool, PrintsItsUsageWhenItIsNotUnderstood)
{
    const QList<QStringList> wrong = {{},
                                      {u"create"_q},
                                      {u"schema"_q},
                                      {u"drop"_q, u"x"_q},
                                      {u"create"_q, In(u"a.db"_q), u"--years"_q, u"x"_q},
                                      {u"create"_q, In(u"a.db"_q), u"--what"_q},
                                      {u"add-year"_q, In(u"a.db"_q), u"12"_q},
                                      {u"create"_q, In(u"a.db"_q), u"b"_q}};
    for (const QStringList& arguments : wrong) {
        EXPECT_EQ(Run(arguments), 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(err.contains(u"사용법:"_q));
        EXPECT_EQ(out, QString());
    }
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(DatabaseTool, PrintsItsHelp)
{
    EXPECT_EQ(Run({u"--help"_q}), 0);
    for (const QString& word : {u"create"_q, u"add-year"_q, u"schema"_q, u"--years"_q, u"--demo"_q})
        EXPECT_TRUE(out.contains(word)) << word.toStdString();
}

TEST_F(DatabaseTool, TheDemoFitsTogether)
{
    clock.Set(QDateTime(QDate(2026, 8, 20), QTime(10, 30)));
    ASSERT_EQ(Run({u"create"_q, In(u"a.db"_q), u"--demo"_q}), 0) << err.toStdString();
    const QString log = u"(SELECT * FROM SMSLog_2025 UNION ALL SELECT * FROM SMSLog_2026)"_q;
    const int balance = Value(u"a.db"_q, u"SELECT SMSRemainCnt FROM SMSSetup"_q).toInt();
    EXPECT_EQ(balance,
              Value(u"a.db"_q, u"SELECT (SELECT SUM(ChargeCnt) FROM SMSCharge) - (SELECT COUNT(*) FROM "_q +
                                   log + u" WHERE SMSStatus IN ('0','1'))"_q)
                  .toInt());
    EXPECT_GT(balance, 0);
    for (const QString& status : {u"0"_q, u"1"_q, u"2"_q})
        EXPECT_GT(
            Value(u"a.db"_q, u"SELECT COUNT(*) FROM "_q + log + u" WHERE SMSStatus='"_q + status + u"'"_q)
                .toInt(),
            3)
            << status.toStdString();
    EXPECT_EQ(
        Value(
            u"a.db"_q,
            u"SELECT COUNT(*) FROM "_q + log +
                u" WHERE (SMSStatus='2') <> (ErrCd IS NOT NULL AND ErrMsg IS NOT NULL AND SMSNo IS NULL)"_q),
        u"0"_q);
    EXPECT_EQ(Value(u"a.db"_q,
                    u"SELECT COUNT(*) FROM "_q + log +
                        u" WHERE LENGTH(SendTime) <> 16 OR REPLACE(LEFT(RegDt,10),'-','') > '20260820'"_q),
              u"0"_q);
    EXPECT_EQ(Value(u"a.db"_q, u"SELECT COUNT(*) FROM SMSGroupSub"_q), u"60"_q);
    EXPECT_GT(Value(u"a.db"_q, u"SELECT COUNT(*) FROM SMSGroupSub WHERE GroupCd IS NULL"_q).toInt(), 0);
    EXPECT_EQ(Value(u"a.db"_q, u"SELECT COUNT(*) FROM SMSTempLSub"_q), u"40"_q);
    EXPECT_EQ(
        Value(u"a.db"_q,
              u"SELECT COUNT(*) FROM SMSTempLSub WHERE TempLCd NOT IN (SELECT TempLCd FROM SMSTempLMst)"_q),
        u"0"_q);
}

TEST_F(DatabaseTool, TheDemoHasReservationsForTheComingDaysWhateverTheDay)
{
    for (int day = 0; day < 30; ++day) {
        clock.Set(QDateTime(QDate(2026, 3, 1).addDays(day), QTime(23, 30)));
        const QString file = u"%1.db"_q.arg(day);
        ASSERT_EQ(Run({u"create"_q, In(file), u"--demo"_q, u"--years"_q, u"2026"_q}), 0) << err.toStdString();
        EXPECT_GT(
            Value(
                file,
                u"SELECT COUNT(*) FROM SMSLog_2026 AS P WHERE SMSStatus='1' AND DATEADD(DAY, -1, LEFT(SendTime,10)) >= CONVERT(varchar(10),getdate(),111)"_q)
                .toInt(),
            0)
            << day;
        QFile::remove(In(file));
    }
}

TEST_F(DatabaseTool, TheDemoIsTheSameForTheSameMoment)
{
    const QString all = u"SELECT group_concat(SendNm || SendTime || SMSStatus || RegDt) FROM SMSLog_2012"_q;
    Run({u"create"_q, In(u"a.db"_q), u"--demo"_q});
    Run({u"create"_q, In(u"b.db"_q), u"--demo"_q});
    EXPECT_GT(Value(u"a.db"_q, all).size(), 1000);
    EXPECT_EQ(Value(u"a.db"_q, all), Value(u"b.db"_q, all));
}

TEST(DemoContent, EveryTemplateFitsIntoOneMessage)
{
    for (const DemoCategory& category : DemoCategories())
        for (const DemoTemplate& entry : category.templates)
            EXPECT_LE(ByteCount(entry.content), 80) << entry.title.toStdString();
}

TEST(DemoContent, NoMemberIsNamedTwice)
{
    QSet<QString> names;
    int members = 0;
    for (const DemoGroup& group : DemoGroups())
        for (const QString& name : group.members) {
            names += name;
            ++members;
        }
    EXPECT_EQ(names.size(), members);
}

} // namespace tsms::test

#include "runtime/CodePage949.h"
#include "session/Session.h"
#include "store/engine/Tables.h"
#include "store/MakeConnections.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"
#include "tsms-db/Command.h"
#include "tsms-db/DemoContent.h"
#include "tsms-db/Reservations.h"

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

    std::unique_ptr<Connection> Opened(const QString& file)
    {
        std::unique_ptr<Connection> connection = MakeConnections(clock)();
        connection->ConnectionString = u"Initial Catalog="_q + In(file) + u";Data Source=(embedded),0"_q;
        connection->Open();
        return connection;
    }

    QString Value(const QString& file, const QString& sql) { return Opened(file)->Query(sql)->Field(0); }

    /// A log row. Status, number and time are literals of SQL.
    void Log(const QString& file, int year, const QString& status, const QString& smsNo,
             const QString& sendTime)
    {
        Opened(file)->Execute(
            u"INSERT INTO SMSLog_%1 (SMSStatus,SMSNo,SendTelNo,ReceiveTelNo,SMSContent,SendTime) "
            "VALUES (%2,%3,'010-0000-0001','02-1234-5678','내일 오세요.',%4)"_q.arg(QString::number(year),
                                                                                    status, smsNo, sendTime));
    }

    /// What the tool prints, as the gateway reads it.
    HeldMessages Reservations(const QString& file)
    {
        EXPECT_EQ(Run({u"reservations"_q, In(file)}), 0) << err.toStdString();
        EXPECT_EQ(err, QString());
        const auto held = ReadHeldMessages(out.toUtf8());
        EXPECT_TRUE(held) << out.toStdString();
        return held.value_or(HeldMessages());
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

TEST_F(DatabaseTool, PrintsWhatMakesTheLogOfOneMoreYearOnAServer)
{
    EXPECT_EQ(Run({u"add-year"_q, u"2031"_q, u"--server"_q}), 0);
    EXPECT_EQ(out, ServerLogScript(2031));
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(DatabaseTool, PrintsTheRightsOfAServersUser)
{
    EXPECT_EQ(Run({u"grants"_q, u"sms"_q, u"--years"_q, u"2012-2013"_q}), 0);
    EXPECT_EQ(out, u"GRANT SELECT, UPDATE ON dbo.SMSSetup TO [sms];\n"
                   "GRANT SELECT, INSERT, UPDATE, DELETE ON dbo.SMSGroupMst TO [sms];\n"
                   "GRANT SELECT, INSERT, UPDATE, DELETE ON dbo.SMSGroupSub TO [sms];\n"
                   "GRANT SELECT ON dbo.SMSTempLMst TO [sms];\n"
                   "GRANT SELECT, INSERT, UPDATE, DELETE ON dbo.SMSTempLSub TO [sms];\n"
                   "GRANT SELECT, INSERT, DELETE ON dbo.SMSCharge TO [sms];\n"
                   "GRANT SELECT, INSERT, DELETE ON dbo.SMSLog_2012 TO [sms];\n"
                   "GRANT SELECT, INSERT, DELETE ON dbo.SMSLog_2013 TO [sms];\n"_q);
}

TEST_F(DatabaseTool, PrintsNoReservationsOfAnEmptyLog)
{
    Run({u"create"_q, In(u"a.db"_q)});
    EXPECT_EQ(Run({u"reservations"_q, In(u"a.db"_q)}), 0);
    EXPECT_EQ(out, u"{\n    \"lastNumber\": 0,\n    \"messages\": [\n    ]\n}\n"_q);
}

TEST_F(DatabaseTool, PrintsAReservationUnderTheNamesOfTheGateway)
{
    Run({u"create"_q, In(u"a.db"_q)});
    Log(u"a.db"_q, 2012, u"'1'"_q, u"'730001'"_q, u"'2012-05-31-09-30'"_q);
    EXPECT_EQ(Run({u"reservations"_q, In(u"a.db"_q)}), 0);
    EXPECT_EQ(out, u"{\n"
                   "    \"lastNumber\": 730001,\n"
                   "    \"messages\": [\n"
                   "        {\n"
                   "            \"content\": \"내일 오세요.\",\n"
                   "            \"number\": 730001,\n"
                   "            \"receiver\": \"010-0000-0001\",\n"
                   "            \"sendTime\": \"2012:05:31:09:30\",\n"
                   "            \"sender\": \"02-1234-5678\"\n"
                   "        }\n"
                   "    ]\n"
                   "}\n"_q);
}

TEST_F(DatabaseTool, PrintsTheReservationsThatAreAheadAndHaveANumber)
{
    struct Row
    {
        QString status;
        QString smsNo;
        QString sendTime;
        bool held;
    };
    // It is 2012-05-30 14:07:09.
    const std::vector<Row> rows = {
        {u"'1'"_q, u"'1'"_q, u"'2012-05-30-14-08'"_q, true},
        {u"'1'"_q, u"'2'"_q, u"'2012-05-30-14-07'"_q, false},
        {u"'1'"_q, u"'3'"_q, u"'2012-05-30 14-07'"_q, false},
        {u"'1'"_q, u"'4'"_q, u"'2012-05-30 23-50'"_q, true},
        {u"'1'"_q, u"'5'"_q, u"'2012-05-30-24-00'"_q, true},
        {u"'1'"_q, u"'6'"_q, u"'2012-05-30-24-05'"_q, false},
        {u"'1'"_q, u"'7'"_q, u"'2012-05-29-23-50'"_q, false},
        {u"'0'"_q, u"'8'"_q, u"'2012-05-31-09-30'"_q, true},
        {u"'2'"_q, u"'9'"_q, u"'2012-05-31-09-30'"_q, false},
        {u"'1'"_q, u"NULL"_q, u"'2012-05-31-09-30'"_q, false},
        {u"'1'"_q, u"'A10'"_q, u"'2012-05-31-09-30'"_q, false},
        {u"'1'"_q, u"'-11'"_q, u"'2012-05-31-09-30'"_q, false},
        {u"'1'"_q, u"'012'"_q, u"'2012-05-31-09-30'"_q, false},
        {u"'1'"_q, u"'1234567890'"_q, u"'2012-05-31-09-30'"_q, false},
        {u"'1'"_q, u"'13'"_q, u"'내일'"_q, false},
        {u"'1'"_q, u"'14'"_q, u"NULL"_q, false},
        {u"'1'"_q, u"'999999999'"_q, u"'2012-12-31-09-30'"_q, true},
    };
    for (const Row& row : rows) {
        const std::string told = (row.status + u' ' + row.smsNo + u' ' + row.sendTime).toStdString();
        ASSERT_EQ(Run({u"create"_q, In(u"a.db"_q), u"--years"_q, u"2012"_q}), 0);
        Log(u"a.db"_q, 2012, row.status, row.smsNo, row.sendTime);
        QStringList held;
        for (const GatewayMessage& message : Reservations(u"a.db"_q).Messages)
            held += u"'%1'"_q.arg(message.Number);
        EXPECT_EQ(held, row.held ? QStringList{row.smsNo} : QStringList()) << told;
        QFile::remove(In(u"a.db"_q));
    }
}

TEST_F(DatabaseTool, PrintsTheReservationsOfAllYears)
{
    Run({u"create"_q, In(u"a.db"_q), u"--years"_q, u"2011-2013"_q});
    Run({u"add-year"_q, In(u"a.db"_q), u"2031"_q});
    Log(u"a.db"_q, 2011, u"'1'"_q, u"'5'"_q, u"'2011-05-31-09-30'"_q);
    Log(u"a.db"_q, 2031, u"'1'"_q, u"'6'"_q, u"'2031-05-31-09-30'"_q);
    Log(u"a.db"_q, 2012, u"'1'"_q, u"'8'"_q, u"'2012-05-31-09-30'"_q);
    Log(u"a.db"_q, 2012, u"'1'"_q, u"'7'"_q, u"'2012-05-31-09-30'"_q);
    QList<int> numbers;
    for (const GatewayMessage& message : Reservations(u"a.db"_q).Messages)
        numbers += message.Number;
    EXPECT_EQ(numbers, (QList<int>{8, 7, 6}));
}

TEST_F(DatabaseTool, TellsTheHighestNumberOfAnyLogRow)
{
    Run({u"create"_q, In(u"a.db"_q)});
    Log(u"a.db"_q, 2012, u"'1'"_q, u"'100007'"_q, u"'2012-05-31-09-30'"_q);
    Log(u"a.db"_q, 2011, u"'1'"_q, u"'100020'"_q, u"'2011-05-30 09-30'"_q);
    Log(u"a.db"_q, 2012, u"'2'"_q, u"'100010'"_q, u"'2012-05-30 09-30'"_q);
    EXPECT_EQ(Reservations(u"a.db"_q).LastNumber, 100020);
}

TEST_F(DatabaseTool, ReadsReservationsOnlyFromADatabase)
{
    EXPECT_EQ(Run({u"reservations"_q, In(u"none.db"_q)}), 1);
    EXPECT_EQ(err, u"tsms-db: 파일이 없습니다: "_q + In(u"none.db"_q) + u"\n"_q);
    QFile file(In(u"text.db"_q));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("this is no database, however long one looks at it");
    file.close();
    EXPECT_EQ(Run({u"reservations"_q, In(u"text.db"_q)}), 1);
    EXPECT_EQ(
        err,
        u"tsms-db: 예약 문자를 읽지 못했습니다. 이 위치의 파일을 쓸 수 없거나 데이터베이스 파일이 아닙니다.\n"_q);
    EXPECT_EQ(out, QString());
    EXPECT_EQ(Files(), QStringList{u"text.db"_q});
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
                                      {u"create"_q, In(u"a.db"_q), u"b"_q},
                                      {u"add-year"_q, u"12"_q, u"--server"_q},
                                      {u"add-year"_q, In(u"a.db"_q), u"2012"_q, u"--server"_q},
                                      {u"add-year"_q, u"2012"_q},
                                      {u"grants"_q},
                                      {u"grants"_q, QString()},
                                      {u"grants"_q, u"sms"_q, u"--server"_q},
                                      {u"grants"_q, u"sms"_q, u"2012"_q},
                                      {u"reservations"_q},
                                      {u"reservations"_q, In(u"a.db"_q), u"b"_q},
                                      {u"reservations"_q, In(u"a.db"_q), u"--years"_q, u"2012"_q}};
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
    for (const QString& word :
         {u"create"_q, u"add-year"_q, u"schema"_q, u"grants"_q, u"reservations"_q, u"--years"_q, u"--demo"_q})
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

TEST_F(DatabaseTool, EveryReservationOfTheDemoIsPrinted)
{
    clock.Set(QDateTime(QDate(2026, 12, 28), QTime(10, 30)));
    ASSERT_EQ(Run({u"create"_q, In(u"a.db"_q), u"--demo"_q}), 0) << err.toStdString();
    const QString log = u"(SELECT * FROM SMSLog_2025 UNION ALL SELECT * FROM SMSLog_2026 "
                        "UNION ALL SELECT * FROM SMSLog_2027)"_q;
    const HeldMessages held = Reservations(u"a.db"_q);
    EXPECT_EQ(QString::number(held.Messages.size()),
              Value(u"a.db"_q, u"SELECT COUNT(*) FROM "_q + log +
                                   u" WHERE SMSStatus <> '2' AND SUBSTR(SendTime,11,1) = '-'"_q));
    EXPECT_EQ(QString::number(held.LastNumber),
              Value(u"a.db"_q, u"SELECT MAX(CAST(SMSNo AS INTEGER)) FROM "_q + log));
    EXPECT_EQ(held.Messages.first().SendTime.left(4), u"2026"_q);
    EXPECT_EQ(held.Messages.last().SendTime.left(4), u"2027"_q);
}

TEST_F(DatabaseTool, TheDemoIsTheSameForTheSameMoment)
{
    const QString all = u"SELECT group_concat(SendNm || SendTime || SMSStatus || RegDt) FROM SMSLog_2012"_q;
    Run({u"create"_q, In(u"a.db"_q), u"--demo"_q});
    Run({u"create"_q, In(u"b.db"_q), u"--demo"_q});
    EXPECT_GT(Value(u"a.db"_q, all).size(), 1000);
    EXPECT_EQ(Value(u"a.db"_q, all), Value(u"b.db"_q, all));
}

TEST_F(DatabaseTool, AScriptThatCannotBeWrittenToItsEndIsAFailure)
{
    QFile full(u"/dev/full"_q);
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    QTextStream script(&full);
    QTextStream words(&err);
    EXPECT_EQ(RunDatabaseTool({u"tsms-db"_q, u"schema"_q, u"--server"_q}, clock, script, words), 1);
    EXPECT_EQ(err, u"tsms-db: 출력을 끝까지 쓰지 못했습니다.\n"_q);
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

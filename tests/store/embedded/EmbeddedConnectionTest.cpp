#include "store/embedded/EmbeddedConnection.h"

#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedErrors.h"
#include "store/engine/DatabaseError.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sqlite3.h>

#ifdef Q_OS_UNIX
#include "support/FileSizeLimit.h"
#include <unistd.h>
#endif

#include <thread>

namespace tsms::test {

namespace {

#ifdef Q_OS_UNIX
/// Another user than root for a while: root may read and write everything.
class AsNobody
{
public:
    AsNobody() : changed_(geteuid() == 0 && seteuid(65534) == 0) {}
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody()
    {
        if (changed_ && seteuid(0) != 0)
            ADD_FAILURE() << "root is lost";
    }

private:
    bool changed_;
};
#endif

class EmbeddedConnectionTest : public ::testing::Test
{
protected:
    RuntimeError OpenErrorOf(const QString& path)
    {
        EmbeddedConnection connection(clock);
        try {
            connection.OpenFile(path);
        } catch (const RuntimeError& error) {
            EXPECT_FALSE(connection.IsOpen());
            return error;
        }
        return RuntimeError(NoError, u"(none)"_q);
    }

    static RuntimeError ErrorOf(Connection& connection, const QString& sql)
    {
        try {
            connection.Execute(sql);
        } catch (const RuntimeError& error) {
            return error;
        }
        return RuntimeError(NoError, u"(none)"_q);
    }

    void Write(const QString& name, const QByteArray& bytes)
    {
        QFile file(QDir(folder.path()).filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QString In(const QString& name) { return QDir(folder.path()).filePath(name); }

    FixedClock clock;
    QTemporaryDir folder;
};

} // namespace

TEST_F(EmbeddedConnectionTest, AMissingFileIsADeadServerAndIsNotMade)
{
    EXPECT_EQ(OpenErrorOf(In(u"none.db"_q)).Number, CommunicationFailure);
    EXPECT_FALSE(QFile::exists(In(u"none.db"_q)));
}

TEST_F(EmbeddedConnectionTest, AFolderIsADeadServer)
{
    EXPECT_EQ(OpenErrorOf(folder.path()).Number, CommunicationFailure);
}

TEST_F(EmbeddedConnectionTest, AFileThatIsNoDatabaseIsADeadServer)
{
    Write(u"note.txt"_q, QByteArray(5000, 'x'));
    EXPECT_EQ(OpenErrorOf(In(u"note.txt"_q)).Number, CommunicationFailure);
}

TEST_F(EmbeddedConnectionTest, AnEmptyNameIsADeadServer)
{
    EXPECT_EQ(OpenErrorOf(QString()).Number, CommunicationFailure);
}

TEST_F(EmbeddedConnectionTest, ANameThatMeansNoFileToTheEngineIsADeadServer)
{
    EXPECT_EQ(OpenErrorOf(u":memory:"_q).Number, CommunicationFailure);
    EXPECT_EQ(OpenErrorOf(u"file::memory:?cache=shared"_q).Number, CommunicationFailure);
}

#ifdef Q_OS_UNIX
TEST_F(EmbeddedConnectionTest, AFileThatMayNotBeReadIsADeadServer)
{
    TestDatabase database(clock);
    QFile::setPermissions(database.Path(), {});
    QFile::setPermissions(database.Folder(), QFile::Permissions::fromInt(0x7777));
    const AsNobody nobody;
    EXPECT_EQ(OpenErrorOf(database.Path()).Number, CommunicationFailure);
}

TEST_F(EmbeddedConnectionTest, AFileThatMayNotBeWrittenIsReadAndRefusesToBeWritten)
{
    TestDatabase database(clock);
    QFile::setPermissions(database.Path(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    // The folder stays open, as on a share where single files are protected.
    QFile::setPermissions(database.Folder(), QFile::Permissions::fromInt(0x7777));
    RuntimeError error(NoError);
    QString balance;
    {
        const AsNobody nobody;
        EmbeddedConnection connection(clock);
        connection.OpenFile(database.Path());
        balance = connection.Query(u"SELECT SMSRemainCnt FROM SMSSetup"_q)->Field(0);
        error = ErrorOf(connection, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q);
    }
    EXPECT_EQ(balance, u"0"_q);
    EXPECT_EQ(error.Number, StatementFailure);
    EXPECT_EQ(error.Description,
              u"Failed to update database \"문자메시지.db\" because the database is read-only."_q);
}
#endif

TEST_F(EmbeddedConnectionTest, ALockedFileTimesOut)
{
    TestDatabase database(clock);
    database.Execute(u"BEGIN IMMEDIATE"_q);
    EmbeddedConnection connection(clock);
    connection.CommandTimeout = 1;
    connection.OpenFile(database.Path());
    const RuntimeError error = ErrorOf(connection, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q);
    database.Execute(u"ROLLBACK"_q);
    EXPECT_EQ(error.Number, CommandTimedOut);
    EXPECT_EQ(error.Description, u"Timeout expired"_q);
    EXPECT_EQ(ErrorOf(connection, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q).Number, NoError);
}

TEST_F(EmbeddedConnectionTest, AStatementWaitsForALockThatGoes)
{
    TestDatabase database(clock);
    database.Execute(u"BEGIN IMMEDIATE"_q);
    EmbeddedConnection connection(clock);
    connection.CommandTimeout = 30;
    connection.OpenFile(database.Path());
    std::thread release([&database] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        database.Execute(u"COMMIT"_q);
    });
    EXPECT_EQ(ErrorOf(connection, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q).Number, NoError);
    release.join();
}

TEST_F(EmbeddedConnectionTest, ReadingDoesNotWaitForAWriter)
{
    TestDatabase database(clock);
    database.Execute(u"BEGIN IMMEDIATE"_q);
    EmbeddedConnection connection(clock);
    connection.CommandTimeout = 1;
    connection.OpenFile(database.Path());
    EXPECT_EQ(connection.Query(u"SELECT SMSRemainCnt FROM SMSSetup"_q)->Field(0), u"0"_q);
    database.Execute(u"ROLLBACK"_q);
}

TEST_F(EmbeddedConnectionTest, TwoWritersAtOnceLoseNothing)
{
    TestDatabase database(clock);
    const auto write = [this, &database](const QString& sql) {
        EmbeddedConnection connection(clock);
        connection.OpenFile(database.Path());
        for (int turn = 0; turn < 100; ++turn)
            connection.Execute(sql);
    };
    std::thread other(write, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 2"_q);
    write(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 7"_q);
    other.join();
    EXPECT_EQ(database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"500"_q);
}

/// An open connection that has written a row, and the log that is written ahead of its file.
class RoomForChanges : public EmbeddedConnectionTest
{
protected:
    void SetUp() override
    {
        connection.OpenFile(database.Path());
        Add();
    }

    void Add() { connection.Execute(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q); }

    /// Who opens the database from now on may only read it: so says a version that the engine does not know
    /// how to write, by https://sqlite.org/fileformat2.html#file_format_version_numbers. The log may still be
    /// written.
    void LeaveToReaders()
    {
        constexpr qint64 writeVersionAt = 18;
        QFile file(database.Path());
        EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(writeVersionAt) && file.putChar(3));
    }

    static QString LogOf(const QString& path) { return path + u"-wal"_q; }
    qint64 LogBytes() const { return QFileInfo(LogOf(database.Path())).size(); }

    static constexpr qint64 PageBytes = 4096;
    TestDatabase database{clock, {2010, 2010}, TestEngine::Embedded};
    EmbeddedConnection connection{clock};
};

TEST_F(RoomForChanges, IsMadeOnceForAllOfThem)
{
    connection.ExpectChanges(100);
    const qint64 bytes = LogBytes();
    EXPECT_GT(bytes, 100 * PageBytes);
    for (int change = 0; change < 100; ++change)
        Add();
    EXPECT_EQ(LogBytes(), bytes);
    EXPECT_EQ(database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"101"_q);
}

TEST_F(RoomForChanges, IsNoMoreThanTheEngineUses)
{
    connection.ExpectChanges(1'000'000);
    EXPECT_LT(LogBytes(), 1100 * PageBytes);
}

TEST_F(RoomForChanges, HidesNothingFromWhoReadsWhatACrashHasLeft)
{
    connection.ExpectChanges(100);
    Add();
    ASSERT_TRUE(QFile::copy(database.Path(), In(u"left.db"_q)));
    ASSERT_TRUE(QFile::copy(LogOf(database.Path()), LogOf(In(u"left.db"_q))));
    EmbeddedConnection after(clock);
    after.OpenFile(In(u"left.db"_q));
    EXPECT_EQ(after.Query(u"SELECT SMSRemainCnt FROM SMSSetup"_q)->Field(0), u"2"_q);
}

TEST_F(RoomForChanges, IsNotMadeWhileAnotherWrites)
{
    const qint64 before = LogBytes();
    database.Execute(u"BEGIN IMMEDIATE"_q);
    connection.ExpectChanges(100);
    database.Execute(u"ROLLBACK"_q);
    EXPECT_EQ(LogBytes(), before);
}

TEST_F(RoomForChanges, IsNotMadeInADatabaseThatMayOnlyBeRead)
{
    const qint64 before = LogBytes();
    LeaveToReaders();
    EmbeddedConnection reader(clock);
    reader.OpenFile(database.Path());
    EXPECT_NE(ErrorOf(reader, u"UPDATE SMSSetup SET SMSRemainCnt=0"_q).Number, NoError);
    reader.ExpectChanges(100);
    EXPECT_EQ(LogBytes(), before);
}

TEST_F(RoomForChanges, LeavesALockToBeWaitedForAgain)
{
    database.Execute(u"BEGIN IMMEDIATE"_q);
    connection.ExpectChanges(100);
    std::thread release([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        database.Execute(u"COMMIT"_q);
    });
    EXPECT_EQ(ErrorOf(connection, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q).Number, NoError);
    release.join();
}

TEST_F(RoomForChanges, IsNotMadeWithinATransaction)
{
    const qint64 before = LogBytes();
    connection.ExecuteNative(u"BEGIN IMMEDIATE"_q);
    connection.ExpectChanges(100);
    EXPECT_EQ(LogBytes(), before);
    Add();
    connection.ExecuteNative(u"COMMIT"_q);
    EXPECT_EQ(database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"2"_q);
}

#ifdef Q_OS_UNIX
TEST_F(RoomForChanges, IsTakenBackWhereTheDiskIsFull)
{
    const qint64 before = LogBytes();
    {
        const FileSizeLimit limit(before + 10 * PageBytes);
        connection.ExpectChanges(100);
    }
    EXPECT_EQ(LogBytes(), before);
    Add();
    EXPECT_EQ(database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"2"_q);
}
#endif

TEST_F(RoomForChanges, IsNotMadeWhereNothingIsWrittenAhead)
{
    connection.ExecuteNative(u"PRAGMA journal_mode=DELETE"_q);
    connection.ExpectChanges(100);
    EXPECT_FALSE(QFile::exists(LogOf(database.Path())));
    Add();
    EXPECT_EQ(database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"2"_q);
}

TEST_F(EmbeddedConnectionTest, ASecondStatementIsRefusedAndNothingIsDone)
{
    TestDatabase database(clock);
    EmbeddedConnection connection(clock);
    connection.OpenFile(database.Path());
    const RuntimeError error =
        ErrorOf(connection, u"UPDATE SMSSetup SET SMSRemainCnt=1; UPDATE SMSSetup SET SMSRemainCnt=2"_q);
    EXPECT_EQ(error.Number, StatementFailure);
    EXPECT_EQ(error.Description, u"Incorrect syntax near 'UPDATE'."_q);
    EXPECT_EQ(ErrorOf(connection, u"UPDATE SMSSetup SET SMSRemainCnt=1; (SELECT 1)"_q).Description,
              u"Incorrect syntax near '('."_q);
    EXPECT_EQ(database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"0"_q);
}

TEST_F(EmbeddedConnectionTest, AnEmptyStatementIsRefused)
{
    TestDatabase database(clock);
    EmbeddedConnection connection(clock);
    connection.OpenFile(database.Path());
    EXPECT_EQ(ErrorOf(connection, QString()).Number, StatementFailure);
    EXPECT_EQ(ErrorOf(connection, u" ; "_q).Number, StatementFailure);
}

TEST_F(EmbeddedConnectionTest, AQuotedWordIsNoText)
{
    TestDatabase database(clock);
    EmbeddedConnection connection(clock);
    connection.OpenFile(database.Path());
    EXPECT_EQ(ErrorOf(connection, u"SELECT GSubNm FROM SMSGroupSub WHERE GSubNm = \"x\""_q).Description,
              u"Invalid column name 'x'."_q);
}

TEST_F(EmbeddedConnectionTest, AClosedConnectionRaisesAnUnsetObject)
{
    EmbeddedConnection connection(clock);
    EXPECT_EQ(ErrorOf(connection, u"SELECT 1"_q).Number, ObjectNotSet);
}

TEST_F(EmbeddedConnectionTest, TheServersTimeIsTheClocks)
{
    TestDatabase database(clock);
    EmbeddedConnection connection(clock);
    connection.OpenFile(database.Path());
    EXPECT_EQ(connection.Query(u"SELECT getdate()"_q)->Field(0), u"2012-05-30 14:07:09"_q);
    EXPECT_EQ(connection.Query(u"SELECT CONVERT(varchar(10),getdate(),111)"_q)->Field(0), u"2012/05/30"_q);
    clock.Set(QDateTime(QDate(2013, 1, 2), QTime(3, 4, 5)));
    EXPECT_EQ(connection.Query(u"SELECT getdate()"_q)->Field(0), u"2013-01-02 03:04:05"_q);
}

struct Expression
{
    const char16_t* sql;
    const char16_t* value;
};

TEST_F(EmbeddedConnectionTest, ExpressionsOfTheServerHaveTheirValues)
{
    const Expression cases[] = {
        {u"LEFT('한글 text',3)", u"한글 "},
        {u"LEFT('ab',5)", u"ab"},
        {u"LEFT('ab',0)", u""},
        {u"RIGHT('메시지',2)", u"시지"},
        {u"RIGHT('2012-05-30-14-05',5)", u"14-05"},
        {u"RIGHT('ab',5)", u"ab"},
        {u"RIGHT('ab',0)", u""},
        {u"ISNULL(Null,'x')", u"x"},
        {u"ISNULL('y','x')", u"y"},
        {u"ISNULL(LEFT(Null,2),'none')", u"none"},
        {u"'a' + 'b' + LEFT('cd',1)", u"abc"},
        {u"ISNULL('a' + Null,'none')", u"none"},
        {u"1 + 2", u"3"},
        {u"7 / 2", u"3"},
        {u"DATEADD(DAY, -1, '2012-03-01')", u"2012/02/29"},
        {u"DATEADD(DAY, 1, '20121231')", u"2013/01/01"},
        {u"DATEADD(DAY, 1, getdate())", u"2012/05/31 14:07:09"},
        {u"DATEADD(DAY, 1, ' 2012-05-30 00:59:59  ')", u"2012/05/31 00:59:59"},
        {u"CASE WHEN DATEADD(DAY, 0, '2012-05-30') = '2012/05/30' THEN 'same' ELSE 'other' END", u"same"},
        {u"CASE WHEN DATEADD(DAY, 0, '2012-05-30') = ('20120530') THEN 'same' ELSE 'other' END", u"same"},
        {u"CONVERT(varchar(7),getdate(),111)", u"2012/05"},
        {u"CASE WHEN DATEADD(DAY, 0, getdate()) > '2012-05-30' THEN 'later' ELSE 'other' END", u"later"},
        {u"CASE WHEN 'ab' LIKE 'A_' THEN 'fits' ELSE 'not' END", u"fits"},
        {u"CASE WHEN 'ab' NOT LIKE 'A_' THEN 'not' ELSE 'fits' END", u"fits"},
        {u"CASE WHEN LEFT('ABC',2) = 'ab' THEN 'same' ELSE 'other' END", u"same"},
    };
    TestDatabase database(clock);
    EmbeddedConnection connection(clock);
    connection.OpenFile(database.Path());
    for (const Expression& one : cases)
        EXPECT_EQ(connection.Query(u"SELECT "_q + QString::fromUtf16(one.sql))->Field(0),
                  QString::fromUtf16(one.value))
            << QString::fromUtf16(one.sql).toStdString();
}

TEST_F(EmbeddedConnectionTest, EngineFailuresCarryTheServersNumbers)
{
    struct Case
    {
        int code;
        const char16_t* message;
        long number;
        const char16_t* words;
    };
    const Case cases[] = {
        {SQLITE_ERROR, u"no such table: SMSLog_2011", NoSuchTable, u"Invalid object name 'SMSLog_2011'."},
        {SQLITE_ERROR, u"no such column: P.x", StatementFailure, u"Invalid column name 'x'."},
        {SQLITE_ERROR, u"near \"FROM\": syntax error", StatementFailure, u"Incorrect syntax near 'FROM'."},
        {SQLITE_ERROR, u"incomplete input", StatementFailure, u"Incorrect syntax near '='."},
        {SQLITE_ERROR, u"unrecognized token: \"#\"", StatementFailure, u"Incorrect syntax near '#'."},
        {SQLITE_ERROR, u"no such function: foo", StatementFailure,
         u"'foo' is not a recognized built-in function name."},
        {SQLITE_BUSY, u"database is locked", CommandTimedOut, u"Timeout expired"},
        {SQLITE_IOERR, u"disk I/O error", CommunicationFailure, u"Cannot open database \"/tmp/a.db\"."},
        {SQLITE_CORRUPT, u"database disk image is malformed", CommunicationFailure,
         u"Cannot open database \"/tmp/a.db\"."},
        {SQLITE_FULL, u"database or disk is full", StatementFailure,
         u"Could not allocate space in database 'a.db' because the disk is full."},
        {SQLITE_CONSTRAINT, u"anything else", IntegrityViolation, u"anything else"},
        {SQLITE_TOOBIG, u"string or blob too big", StatementFailure, u"string or blob too big"},
    };
    for (const Case& one : cases) {
        const RuntimeError error = TranslateEmbeddedError(one.code, QString::fromUtf16(one.message),
                                                          u"/tmp/a.db"_q, u"SELECT x ="_q);
        EXPECT_EQ(error.Number, one.number) << QString::fromUtf16(one.message).toStdString();
        EXPECT_EQ(error.Description, QString::fromUtf16(one.words));
    }
}

} // namespace tsms::test

#include "store/odbc/OdbcConnection.h"

#include "runtime/CodePage949.h"
#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"
#include "support/database/TestDatabase.h"
#include "support/server/TdsBytes.h"
#include "support/server/TdsTokens.h"
#include "support/server/TestServer.h"
#include "support/Words.h"

#include <QElapsedTimer>
#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>

namespace tsms::test {

namespace {

const QString AddOne = u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q;
const QString BalanceQuery = u"SELECT SMSRemainCnt FROM SMSSetup"_q;

RuntimeError NoErrorAtAll()
{
    return RuntimeError(NoError, u"(none)"_q);
}

template <class Act> RuntimeError ErrorOf(Act&& act)
{
    try {
        act();
    } catch (const RuntimeError& error) {
        return error;
    }
    return NoErrorAtAll();
}

/// A column of a type that the tables do not have, without a width: varchar(max), nvarchar(max).
struct EndlessColumn
{
    int type;
    bool isWide;
};

constexpr EndlessColumn VarCharMax{0xA7, false};
constexpr EndlessColumn NVarCharMax{0xE7, true};

QByteArray EndlessColumnToken(const EndlessColumn& column)
{
    return ByteWriter()
        .Byte(0x81)
        .Word(1)
        .DWord(0) // the user's type
        .Word(1)  // may be NULL
        .Byte(column.type)
        .Word(0xFFFF)
        .Bytes(KoreanCollationBytes())
        .ShortText(u"Words")
        .Data();
}

/// A value of such a column, in pieces.
QByteArray EndlessRow(const QList<QByteArray>& pieces)
{
    quint64 size = 0;
    for (const QByteArray& piece : pieces)
        size += static_cast<quint64>(piece.size());
    ByteWriter row;
    row.Byte(0xD1).QWord(size);
    for (const QByteArray& piece : pieces)
        if (!piece.isEmpty())
            row.DWord(static_cast<quint32>(piece.size())).Bytes(piece);
    return row.DWord(0).Data();
}

QByteArray EndlessNull()
{
    return ByteWriter().Byte(0xD1).QWord(~quint64{0}).Data();
}

QByteArray Utf16(const QString& text)
{
    return ByteWriter().Text(text).Data();
}

QByteArray Row(const QList<QByteArray>& values)
{
    return ByteWriter().Byte(0xD1).Bytes(values.join()).Data();
}

QByteArray End(qint64 rows, bool moreFollows = false)
{
    return DoneToken(StatementKind::Select, rows, moreFollows);
}

ServerColumn Column(const QString& name, ServerType::Kind kind, int width = 0)
{
    ServerColumn column;
    column.Name = name;
    column.Type.kind = kind;
    column.Type.width = width;
    return column;
}

ServerColumn NumericColumn(int precision, int scale)
{
    ServerColumn column = Column(u"n"_q, ServerType::Kind::Numeric);
    column.Type.precision = precision;
    column.Type.scale = scale;
    return column;
}

const ServerColumn Number = Column(u"n"_q, ServerType::Kind::Int);

QByteArray NumberRow(int value)
{
    return Row({ValueBytes(Number.Type, QString::number(value))});
}

ServerError Failure(int number, const QString& words)
{
    return {number, 16, 1, words};
}

/// A server in a process of its own, which can stand still with all that it holds.
class ServerProcess
{
public:
    ServerProcess()
    {
        process_.start(QStringLiteral(TSMS_TEST_SERVER_PROGRAM), {});
        EXPECT_TRUE(process_.waitForReadyRead(20'000));
        fields_ = QString::fromUtf8(process_.readLine().trimmed()).split(u'■');
    }
    ~ServerProcess()
    {
        Signal(SIGCONT);
        process_.closeWriteChannel();
        process_.waitForFinished(20'000);
    }

    QString ConnectionText() const
    {
        Session session;
        session.DBCatalog = fields_.value(0);
        session.DBServer = fields_.value(1);
        session.DBPort = fields_.value(2);
        session.DBUser = fields_.value(3);
        session.DBPassword = fields_.value(4);
        return AssembleConnectionText(session);
    }

    /// Returns when it stands: a signal only asks.
    void StandStill()
    {
        Signal(SIGSTOP);
        siginfo_t stopped = {};
        EXPECT_EQ(waitid(P_PID, static_cast<id_t>(process_.processId()), &stopped, WSTOPPED), 0);
    }

private:
    void Signal(int signal) { kill(static_cast<pid_t>(process_.processId()), signal); }

    QProcess process_;
    QStringList fields_;
};

class OdbcConnectionTest : public ::testing::Test
{
protected:
    /// Not open yet. `changes` come behind the connection text's own words and count instead of these.
    void Point(OdbcConnection& at, const QString& changes = {}) const
    {
        Session session;
        server.Describe(session);
        at.ConnectionString = AssembleConnectionText(session) + changes;
    }

    RuntimeError OpenErrorOf(const QString& changes = {})
    {
        connection.ConnectionTimeout = 1;
        Point(connection, changes);
        RuntimeError error = ErrorOf([this] { connection.Open(); });
        EXPECT_EQ(connection.IsOpen(), error.Number == NoError);
        return error;
    }

    OdbcConnection& Open()
    {
        Point(connection);
        connection.Open();
        return connection;
    }

    RuntimeError ErrorOfStatement(const QString& sql)
    {
        return ErrorOf([this, &sql] { connection.Execute(sql); });
    }

    RuntimeError ErrorOfQuery(const QString& sql)
    {
        return ErrorOf([this, &sql] { connection.Query(sql); });
    }

    void AddGroups(int count)
    {
        database.Execute(
            u"WITH RECURSIVE Groups(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM Groups WHERE n < %1)"
            " INSERT INTO SMSGroupMst (GroupNm) SELECT '모임 ' || n FROM Groups"_q.arg(count));
    }

    /// A list of groups of which so many bytes come. False when these were all.
    bool BreaksOffBehind(int bytes, int groups)
    {
        Open();
        server.CutInAnswer(bytes);
        try {
            EXPECT_EQ(connection.Query(u"SELECT GroupCd, GroupNm FROM SMSGroupMst"_q)->RecordCount(), groups)
                << "of an answer cut behind byte " << bytes;
            return false;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, CommunicationFailure)
                << "behind byte " << bytes << ": " << error.Description.toStdString();
            return true;
        }
    }

    /// The one column of what the server answers by tokens.
    QStringList Answered(const QByteArray& tokens)
    {
        server.BehaveAgain();
        server.AnswerWhere(u"SELECT made"_q, tokens);
        const std::unique_ptr<Recordset> records = connection.Query(u"SELECT made"_q);
        QStringList values;
        for (int row = 0; row < records->RecordCount(); ++row)
            values += records->IsNull(row, 0) ? u"(null)"_q : records->Text(row, 0);
        return values;
    }

    FixedClock clock;
    TestDatabase database{clock};
    TestServer server{database.Path(), clock};
    OdbcConnection connection{InstalledOdbcDrivers()};
};

} // namespace

// The log-in

TEST_F(OdbcConnectionTest, ALogInTellsUserPasswordDatabaseAndProgram)
{
    Open();
    ASSERT_EQ(server.LogIns().size(), 1);
    const ServerLogin logIn = server.LogIns().first();
    EXPECT_EQ(logIn.User, server.Account().User);
    EXPECT_EQ(logIn.Password, server.Account().Password);
    EXPECT_EQ(logIn.Database, server.Account().Database);
    EXPECT_EQ(logIn.Application, u"tsms"_q);
    EXPECT_EQ(logIn.Version, 0x74000004U);
}

TEST_F(OdbcConnectionTest, APasswordArrivesWhateverIsInIt)
{
    for (const QString& password :
         {u"p;w"_q, u"{p}w"_q, u"pw}"_q, u"p=w"_q, u"it's"_q, u" p w "_q, u"비밀번호"_q, u"p}}w"_q, u"{"_q,
          u"x;SERVER=elsewhere"_q, u"x;DRIVER={None}"_q, u""_q}) {
        ServerAccount account;
        account.Password = password;
        TestServer guarded(database.Path(), clock, account);
        Point(connection, u";Data Source=127.0.0.1,%1;Password=\"%2\""_q.arg(guarded.Port()).arg(password));
        connection.Open();
        EXPECT_EQ(guarded.LogIns().first().Password, password);
    }
}

TEST_F(OdbcConnectionTest, ARefusedLogInHasItsNumberAndTheServersWords)
{
    const RuntimeError error = OpenErrorOf(u";Password=wrong"_q);
    EXPECT_EQ(error.Number, LoginRefused);
    EXPECT_EQ(error.Description, u"Login failed for user 'sms'."_q);
}

TEST_F(OdbcConnectionTest, AnUnknownDatabaseIsADeadServer)
{
    const RuntimeError error = OpenErrorOf(u";Initial Catalog=Nowhere"_q);
    EXPECT_EQ(error.Number, CommunicationFailure);
    EXPECT_TRUE(error.Description.contains(u"Nowhere"_q)) << error.Description.toStdString();
}

TEST_F(OdbcConnectionTest, AClosedPortIsADeadServer)
{
    server.Stop();
    EXPECT_EQ(OpenErrorOf().Number, CommunicationFailure);
}

TEST_F(OdbcConnectionTest, AServerWithoutANameIsADeadServer)
{
    EXPECT_EQ(OpenErrorOf(u";Data Source=,1433"_q).Number, CommunicationFailure);
}

TEST_F(OdbcConnectionTest, EveryWayToNameThisMachineWithAPortReachesIt)
{
    for (const QString& name :
         {u"127.0.0.1"_q, u"localhost"_q, u"."_q, u"(local)"_q, u"tcp:127.0.0.1"_q, u"tcp:."_q,
          u"127.0.0.1\\SQLEXPRESS"_q, u".\\SQLEXPRESS"_q, u"tcp:(local)\\SQLEXPRESS"_q})
        EXPECT_EQ(OpenErrorOf(u";Data Source=%1,%2"_q.arg(name).arg(server.Port())).Number, NoError)
            << name.toStdString();
}

TEST_F(OdbcConnectionTest, AServerThatSaysNothingIsADeadServerWhenTheLogInHasTakenItsTime)
{
    server.StaySilentAtPreLogIn();
    EXPECT_EQ(OpenErrorOf().Number, CommunicationFailure);
    server.StaySilentAtLogIn();
    EXPECT_EQ(OpenErrorOf().Number, CommunicationFailure);
}

TEST_F(OdbcConnectionTest, WhatFailedToOpenOpensWhenTheServerIsBack)
{
    server.Stop();
    Point(connection);
    EXPECT_EQ(ErrorOf([this] { connection.Open(); }).Number, CommunicationFailure);
    server.Start();
    connection.Open();
    EXPECT_EQ(connection.Query(BalanceQuery)->Field(0), u"0"_q);
}

TEST_F(OdbcConnectionTest, AClosedConnectionLeavesTheServer)
{
    for (int turn = 0; turn < 5; ++turn) {
        Open();
        connection.Query(BalanceQuery);
        connection.Close();
    }
    EXPECT_TRUE(server.WaitForOpenConnections(0));
    EXPECT_EQ(server.ConnectionCount(), 5);
}

TEST_F(OdbcConnectionTest, AConnectionThatIsNotOpenRaisesAnUnsetObject)
{
    EXPECT_EQ(ErrorOfStatement(AddOne).Number, ObjectNotSet);
    EXPECT_EQ(ErrorOfQuery(BalanceQuery).Number, ObjectNotSet);
}

// The driver

TEST_F(OdbcConnectionTest, WithoutADriverTheUserIsToldWhichWouldDo)
{
    for (const QList<OdbcDriver>& drivers :
         {QList<OdbcDriver>(), QList<OdbcDriver>{{u"/nowhere/libtdsodbc.so"_q, OdbcDriver::Kind::FreeTds}}}) {
        OdbcConnection bare(drivers);
        Point(bare);
        const RuntimeError error = ErrorOf([&bare] { bare.Open(); });
        EXPECT_EQ(error.Number, NoDriver);
        EXPECT_EQ(error.Description, WantedOdbcDrivers());
    }
}

TEST_F(OdbcConnectionTest, ADriverThatIsRegisteredButGoneIsPassedOver)
{
    QList<OdbcDriver> drivers = InstalledOdbcDrivers();
    drivers.prepend({u"ODBC Driver 99 for SQL Server"_q, OdbcDriver::Kind::Microsoft});
    OdbcConnection late(drivers);
    Point(late);
    late.Open();
    EXPECT_EQ(late.Query(BalanceQuery)->Field(0), u"0"_q);
}

TEST_F(OdbcConnectionTest, EveryDriverOfThisMachineReachesTheServer)
{
    const QList<OdbcDriver> drivers = InstalledOdbcDrivers();
    ASSERT_FALSE(drivers.isEmpty());
    for (const OdbcDriver& driver : drivers) {
        OdbcConnection one({driver});
        Point(one);
        one.Open();
        EXPECT_EQ(one.Query(BalanceQuery)->Field(0), u"0"_q) << driver.name.toStdString();
    }
}

// Time-outs and cut links

TEST_F(OdbcConnectionTest, AStatementTimesOutAndTheNextOneRuns)
{
    connection.CommandTimeout = 2;
    Open();
    server.StaySilent();
    const RuntimeError error = ErrorOfStatement(AddOne);
    EXPECT_EQ(error.Number, CommandTimedOut);
    EXPECT_EQ(error.Description, u"Timeout expired"_q);
    EXPECT_EQ(connection.Query(BalanceQuery)->Field(0), u"0"_q);
}

TEST_F(OdbcConnectionTest, AQueryTimesOutAndTheNextOneRuns)
{
    connection.CommandTimeout = 2;
    Open();
    server.StaySilent();
    EXPECT_EQ(ErrorOfQuery(BalanceQuery).Number, CommandTimedOut);
    EXPECT_EQ(connection.Query(BalanceQuery)->Field(0), u"0"_q);
}

TEST_F(OdbcConnectionTest, AServerThatStandsStillHoldsAStatementForItsTimeAndNotLonger)
{
    ServerProcess still;
    connection.CommandTimeout = 2;
    connection.ConnectionString = still.ConnectionText();
    connection.Open();
    still.StandStill();
    QElapsedTimer timer;
    timer.start();
    const RuntimeError error = ErrorOfStatement(AddOne);
    connection.Close();
    EXPECT_NEAR(static_cast<double>(timer.elapsed()), 2000, 200);
    EXPECT_EQ(error.Number, CommandTimedOut);
    EXPECT_EQ(error.Description, u"Timeout expired"_q);
}

TEST_F(OdbcConnectionTest, AStatementThatTakesNearlyItsWholeTimeIsNotGivenUp)
{
    connection.CommandTimeout = 3;
    Open();
    server.AnswerLate(1700);
    EXPECT_EQ(ErrorOfStatement(AddOne).Number, NoError);
    EXPECT_EQ(connection.Query(BalanceQuery)->Field(0), u"1"_q);
}

TEST_F(OdbcConnectionTest, ALateAnswerIsTaken)
{
    connection.CommandTimeout = 20;
    Open();
    server.AnswerLate(1200);
    EXPECT_EQ(connection.Query(BalanceQuery)->Field(0), u"0"_q);
}

TEST_F(OdbcConnectionTest, ADeadLinkShowsAtTheNextStatementAndAtEveryFurtherOne)
{
    Open();
    server.Stop();
    EXPECT_TRUE(connection.IsOpen());
    EXPECT_EQ(ErrorOfStatement(AddOne).Number, CommunicationFailure);
    EXPECT_EQ(ErrorOfStatement(AddOne).Number, CommunicationFailure);
    EXPECT_EQ(ErrorOfQuery(BalanceQuery).Number, CommunicationFailure);
    server.Start();
    Open();
    EXPECT_EQ(connection.Query(BalanceQuery)->Field(0), u"0"_q);
}

TEST_F(OdbcConnectionTest, ALinkCutBeforeAStatementIsACommunicationFailureAndNothingIsDone)
{
    Open();
    server.CutBefore();
    EXPECT_EQ(ErrorOfStatement(AddOne).Number, CommunicationFailure);
    EXPECT_EQ(database.Value(BalanceQuery), u"0"_q);
}

TEST_F(OdbcConnectionTest, ALinkCutBehindAStatementIsACommunicationFailureAndAllIsDone)
{
    Open();
    server.CutAfter();
    EXPECT_EQ(ErrorOfStatement(AddOne).Number, CommunicationFailure);
    EXPECT_EQ(database.Value(BalanceQuery), u"1"_q);
}

TEST_F(OdbcConnectionTest, AnAnswerThatBreaksOffIsNeverTakenForAWholeOne)
{
    AddGroups(3);
    for (int bytes = 0; BreaksOffBehind(bytes, 3); ++bytes) {
    }
}

TEST_F(OdbcConnectionTest, ALongAnswerThatBreaksOffIsNeverTakenForAWholeOne)
{
    AddGroups(600);
    for (int bytes = 100; BreaksOffBehind(bytes, 600); bytes += 131) {
    }
}

TEST_F(OdbcConnectionTest, AStatementWhoseAnswerBreaksOffIsACommunicationFailure)
{
    for (const int bytes : {0, 1, 7, 8, 9, 20}) {
        Open();
        server.CutInAnswer(bytes);
        EXPECT_EQ(ErrorOfStatement(AddOne).Number, CommunicationFailure) << bytes;
    }
    EXPECT_EQ(database.Value(BalanceQuery), u"6"_q);
}

// Errors and messages

TEST_F(OdbcConnectionTest, AnErrorOfTheDatabasesOwnerKeepsItsNumberAndItsWords)
{
    Open();
    server.Fail(Failure(50000, u"[공지] 오늘은 쉽니다."_q));
    const RuntimeError error = ErrorOfStatement(AddOne);
    EXPECT_EQ(error.Number, UserNotice);
    EXPECT_EQ(error.Description, u"[공지] 오늘은 쉽니다."_q);
}

TEST_F(OdbcConnectionTest, TheServersErrorsHaveTheirNumbers)
{
    struct Case
    {
        int native;
        long number;
    };
    const Case cases[] = {{547, IntegrityViolation}, {2601, IntegrityViolation}, {8115, DataOverflow},
                          {220, DataOverflow},       {242, CannotConvert},       {2628, DataOverflow},
                          {1205, StatementFailure},  {229, PermissionDenied},    {156, StatementFailure}};
    Open();
    for (const Case& one : cases) {
        server.Fail(Failure(one.native, u"Words of %1."_q.arg(one.native)));
        const RuntimeError error = ErrorOfStatement(AddOne);
        EXPECT_EQ(error.Number, one.number) << one.native;
        EXPECT_EQ(error.Description, u"Words of %1."_q.arg(one.native));
    }
}

TEST_F(OdbcConnectionTest, AnErrorBehindRowsOfItsOwnSelectIsFound)
{
    Open();
    for (const int rows : {0, 1, 255, 256, 257}) {
        QByteArray tokens = ColumnsToken({Number});
        for (int row = 0; row < rows; ++row)
            tokens += NumberRow(row);
        server.AnswerWith(tokens + ErrorToken(Failure(245, u"Conversion failed."_q)) + FailedToken());
        EXPECT_EQ(ErrorOfQuery(u"SELECT made"_q).Number, CannotConvert) << rows;
        server.AnswerWith(tokens + ErrorToken(Failure(245, u"Conversion failed."_q)) + FailedToken());
        EXPECT_EQ(ErrorOfStatement(u"SELECT made"_q).Number, CannotConvert) << rows;
    }
}

TEST_F(OdbcConnectionTest, AnErrorOfALaterResultIsFound)
{
    Open();
    const QString sql = BalanceQuery + u"; SELECT * FROM SMSLog_1999"_q;
    EXPECT_EQ(ErrorOfQuery(sql).Number, NoSuchTable);
    EXPECT_EQ(ErrorOfStatement(sql).Number, NoSuchTable);
    EXPECT_EQ(ErrorOfStatement(AddOne + u"; SELECT * FROM SMSLog_1999"_q).Number, NoSuchTable);
}

TEST_F(OdbcConnectionTest, AMessageIsNoError)
{
    Open();
    const QByteArray message = InfoToken({0, 0, 1, u"안내 말씀"_q});
    server.AnswerWith(message + DoneToken(StatementKind::Other, -1, false));
    EXPECT_EQ(ErrorOfStatement(u"PRINT made"_q).Number, NoError);
    EXPECT_EQ(Answered(message + DoneToken(StatementKind::Other, -1, true) + ColumnsToken({Number}) +
                       NumberRow(7) + message + End(1)),
              QStringList{u"7"_q});
}

TEST_F(OdbcConnectionTest, OfSeveralResultsTheFirstWithColumnsIsTaken)
{
    Open();
    EXPECT_EQ(connection.Query(AddOne + u"; "_q + BalanceQuery)->Field(0), u"1"_q);
    EXPECT_EQ(Answered(ColumnsToken({Number}) + NumberRow(1) + End(1, true) + ColumnsToken({Number}) +
                       NumberRow(2) + NumberRow(3) + End(2)),
              QStringList{u"1"_q});
}

TEST_F(OdbcConnectionTest, AStatementWithoutAResultIsDone)
{
    Open();
    EXPECT_EQ(ErrorOfStatement(u"SET NOCOUNT ON"_q).Number, NoError);
    EXPECT_EQ(ErrorOfStatement(u"DELETE FROM SMSGroupSub WHERE GSubCd =1"_q).Number, NoError);
    EXPECT_EQ(connection.Query(AddOne)->FieldCount(), 0);
}

TEST_F(OdbcConnectionTest, AnEmptyStatementIsRefused)
{
    Open();
    EXPECT_EQ(ErrorOfStatement(QString()).Number, StatementFailure);
}

TEST_F(OdbcConnectionTest, AResultThatIsExecutedIsDropped)
{
    Open();
    EXPECT_EQ(ErrorOfStatement(u"SELECT * FROM SMSSetup"_q).Number, NoError);
    EXPECT_EQ(connection.Query(BalanceQuery)->Field(0), u"0"_q);
}

// Values

TEST_F(OdbcConnectionTest, NumbersKeepAllTheirDigits)
{
    Open();
    const ServerColumn money = Column(u"m"_q, ServerType::Kind::Money);
    const ServerColumn real = Column(u"r"_q, ServerType::Kind::Float);
    struct Case
    {
        ServerColumn column;
        const char16_t* sent;
        const char16_t* text;
    };
    const Case cases[] = {
        {Number, u"2147483647", u"2147483647"},
        {Number, u"-2147483648", u"-2147483648"},
        {money, u"10000", u"10000"},
        {money, u"0.5", u"0.5"},
        {money, u"-0.5", u"-0.5"},
        {money, u"922337203685477.5807", u"922337203685477.5807"},
        {money, u"-922337203685477.5807", u"-922337203685477.5807"},
        {NumericColumn(18, 2), u"19.90", u"19.9"},
        {NumericColumn(38, 0), u"12345678901234567890123456789012345678",
         u"12345678901234567890123456789012345678"},
        {NumericColumn(38, 10), u"-1234567890123456789012345678.0123456789",
         u"-1234567890123456789012345678.0123456789"},
        {real, u"0.1", u"0.1"},
        {real, u"-12345.678", u"-12345.678"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(Answered(ColumnsToken({one.column}) +
                           Row({ValueBytes(one.column.Type, QString::fromUtf16(one.sent))}) +
                           Row({NullBytes(one.column.Type)}) + End(2)),
                  (QStringList{QString::fromUtf16(one.text), u"(null)"_q}));
}

TEST_F(OdbcConnectionTest, AMomentIsTextToTheSecond)
{
    Open();
    EXPECT_EQ(connection.Query(u"SELECT getdate()"_q)->Field(0), u"2012-05-30 14:07:09"_q);
}

TEST_F(OdbcConnectionTest, TextsComeAsTheyAre)
{
    Open();
    const QString longest(4000, u'가');
    for (const QString& text : {u"한글 text"_q, u"똠방각하 펲시콜라"_q, u" 앞뒤 "_q, u""_q, u"첫째\r\n둘째"_q,
                                u"{fn NOW()} {d '?'} ?"_q, longest})
        EXPECT_EQ(Answered(ColumnsToken({Column(u"t"_q, ServerType::Kind::VarChar, 8000)}) +
                           Row({ValueBytes(Column(u"t"_q, ServerType::Kind::VarChar, 8000).Type, text)}) +
                           End(1)),
                  QStringList{text});
}

TEST_F(OdbcConnectionTest, CharactersOutsideCodePage949ComeInWideTexts)
{
    Open();
    const ServerColumn wide = Column(u"t"_q, ServerType::Kind::NVarChar, 4000);
    for (const QString& text : {u"ęß漢字한글"_q, u"웃음 😀 끝"_q, QString(4000, u'漢')})
        EXPECT_EQ(Answered(ColumnsToken({wide}) + Row({ValueBytes(wide.Type, text)}) + End(1)),
                  QStringList{text});
}

TEST_F(OdbcConnectionTest, TextsAreWrittenAsTheyAre)
{
    Open();
    for (const QString& text :
         {u"{안녕} {fn NOW()}?"_q, u"한글 abc 漢字"_q, u"-- /* */ ;"_q, u"[x] \"y\""_q}) {
        connection.Execute(u"UPDATE SMSSetup SET SMSOrgNm ='"_q + text + u"'"_q);
        EXPECT_EQ(server.Statements().last(), u"UPDATE SMSSetup SET SMSOrgNm ='"_q + text + u"'"_q);
        EXPECT_EQ(database.Value(u"SELECT SMSOrgNm FROM SMSSetup"_q), text);
    }
}

TEST_F(OdbcConnectionTest, AStatementArrivesUnitByUnit)
{
    Open();
    const QString sql = u"UPDATE SMSSetup SET SMSOrgNm ='웃음 😀 뷁'"_q;
    connection.Execute(sql);
    EXPECT_EQ(server.Statements().last(), sql);
}

TEST_F(OdbcConnectionTest, ATextWithoutAWidthComesWhole)
{
    Open();
    for (const int size : {0, 1, 998, 999, 1000, 1001, 4094, 4095, 4096, 8191, 100'000}) {
        EXPECT_EQ(Answered(EndlessColumnToken(VarCharMax) + EndlessRow({QByteArray(size, 'x')}) +
                           EndlessNull() + End(2)),
                  (QStringList{QString(size, u'x'), u"(null)"_q}));
        const QString words = QString(size, u'가') + u"끝"_q;
        EXPECT_EQ(
            Answered(EndlessColumnToken(NVarCharMax) + EndlessRow({Utf16(words)}) + EndlessRow({}) + End(2)),
            (QStringList{words, QString()}));
        EXPECT_EQ(Answered(EndlessColumnToken(VarCharMax) + EndlessRow({ToCodePage949(words)}) +
                           EndlessRow({ToCodePage949(u'x' + words)}) + End(2)),
                  (QStringList{words, u'x' + words}));
    }
}

TEST_F(OdbcConnectionTest, OnlyALongTextWithoutAWidthHasItsStatementRunOnceMore)
{
    Open();
    const auto runs = [this](int size) {
        const qsizetype before = server.Statements().size();
        Answered(EndlessColumnToken(VarCharMax) + EndlessRow({"short"}) +
                 EndlessRow({QByteArray(size, 'x')}) + End(2));
        return server.Statements().size() - before;
    };
    EXPECT_EQ(runs(1000), 1);
    EXPECT_EQ(runs(1001), 2);
}

TEST_F(OdbcConnectionTest, ATextWiderThanItsColumnIsAnErrorAndNeverCut)
{
    Open();
    const ServerColumn narrow = Column(u"t"_q, ServerType::Kind::VarChar, 10);
    const ServerColumn wide = Column(u"t"_q, ServerType::Kind::VarChar, 20);
    server.AnswerWith(ColumnsToken({narrow}) + Row({ValueBytes(wide.Type, u"열두 글자가 넘는 글"_q)}) +
                      End(1));
    EXPECT_NE(ErrorOfQuery(u"SELECT made"_q).Number, NoError);
}

TEST_F(OdbcConnectionTest, ASurrogatePairMayLieAcrossTwoPieces)
{
    Open();
    for (int before = 4090; before < 4100; ++before) {
        const QString words = QString(before, u'x') + u"😀끝"_q;
        EXPECT_EQ(Answered(EndlessColumnToken(NVarCharMax) + EndlessRow({Utf16(words)}) + End(1)),
                  QStringList{words});
    }
}

TEST_F(OdbcConnectionTest, OtherColumnsComeBesideOneWithoutAWidth)
{
    Open();
    const ServerColumn money = Column(u"m"_q, ServerType::Kind::Money);
    QByteArray columns = ColumnsToken({Number, money});
    const QByteArray endless = EndlessColumnToken(VarCharMax).sliced(3);
    columns[1] = 3; // and one more
    server.AnswerWith(columns + endless +
                      Row({ValueBytes(Number.Type, u"7"_q), ValueBytes(money.Type, u"0.25"_q)}) +
                      EndlessRow({"long"}).sliced(1) + Row({NullBytes(Number.Type), NullBytes(money.Type)}) +
                      EndlessNull().sliced(1) + End(2));
    const std::unique_ptr<Recordset> records = connection.Query(u"SELECT made"_q);
    ASSERT_EQ(records->RecordCount(), 2);
    EXPECT_EQ(records->Text(0, 0), u"7"_q);
    EXPECT_EQ(records->Text(0, 1), u"0.25"_q);
    EXPECT_EQ(records->Text(0, 2), u"long"_q);
    for (int column = 0; column < 3; ++column)
        EXPECT_TRUE(records->IsNull(1, column));
}

TEST_F(OdbcConnectionTest, ThirtyTwoThousandRowsComeInTheirOrder)
{
    Open();
    constexpr int rows = 32'000;
    const ServerColumn text = Column(u"t"_q, ServerType::Kind::VarChar, 200);
    QByteArray tokens = ColumnsToken({Number, text});
    for (int row = 0; row < rows; ++row)
        tokens += Row({ValueBytes(Number.Type, QString::number(row)),
                       row % 3 == 0 ? NullBytes(text.Type) : ValueBytes(text.Type, u"줄 %1"_q.arg(row))});
    server.AnswerWith(tokens + End(rows));
    const std::unique_ptr<Recordset> records = connection.Query(u"SELECT made"_q);
    ASSERT_EQ(records->RecordCount(), rows);
    for (int row = 0; row < rows; ++row) {
        ASSERT_EQ(records->Text(row, 0), QString::number(row));
        ASSERT_EQ(records->IsNull(row, 1), row % 3 == 0);
        ASSERT_EQ(records->Text(row, 1), row % 3 == 0 ? QString() : u"줄 %1"_q.arg(row));
    }
}

TEST_F(OdbcConnectionTest, AWholeNumberOfBlocksHasNoRowTooMuch)
{
    Open();
    for (const int rows : {0, 1, 255, 256, 257, 512}) {
        QByteArray tokens = ColumnsToken({Number});
        for (int row = 0; row < rows; ++row)
            tokens += NumberRow(row);
        const QStringList values = Answered(tokens + End(rows));
        ASSERT_EQ(values.size(), rows);
        EXPECT_EQ(values.isEmpty() ? u"-1"_q : values.last(), QString::number(rows - 1));
    }
}

TEST_F(OdbcConnectionTest, AColumnsNameMayBeLongAndKorean)
{
    Open();
    const QString name(128, u'가');
    server.AnswerWith(ColumnsToken({Column(name, ServerType::Kind::Int)}) + NumberRow(7) + End(1));
    EXPECT_EQ(connection.Query(u"SELECT made"_q)->Field(name), u"7"_q);
}

} // namespace tsms::test

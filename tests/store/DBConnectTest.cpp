#include "store/DBConnect.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"
#include "support/database/TestDatabase.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>

namespace tsms::test {

namespace {

const QString Title = u" - 오류!!!"_q;
const Box ServerDown{
    Title,
    u"★ 데이터베이스서버 상태를 확인하여 주십시오.!\r\n\r\n★ 서버가 종료이거나 인터넷 연결이 안된 상태입니다."_q,
    MsgBoxCritical};
const QString Balance = u"SELECT SMSRemainCnt FROM SMSSetup"_q;

Box Told(const QString& words)
{
    return {Title, u"☞ : "_q + words, MsgBoxCritical};
}

void SetCurrentError(long number, const QString& words)
{
    Err().Number = number;
    Err().Description = words;
}

class DBConnectTest : public ::testing::Test
{
protected:
    DBConnectTest()
    {
        database.Describe(session);
        Err().Clear();
    }

    FixedClock clock;
    TestDatabase database{clock};
    FailingConnections connections{database.Connections()};
    Session session;
    ScriptedDesktop desktop;
    DBConnect db{session, desktop, connections.Maker()};
};

} // namespace

TEST_F(DBConnectTest, ConnectingKeepsTheAssembledText)
{
    EXPECT_TRUE(db.ConnectDB());
    EXPECT_EQ(session.ConnectionString, AssembleConnectionText(session));
    EXPECT_EQ(connections.OpenNow(), 1);
}

TEST_F(DBConnectTest, ConnectingSetsBothTimeOuts)
{
    Connection* made = nullptr;
    DBConnect watched(session, desktop, [this, &made] {
        std::unique_ptr<Connection> connection = database.Connections()();
        made = connection.get();
        return connection;
    });
    watched.ConnectDB();
    EXPECT_EQ(made->ConnectionTimeout, 30);
    EXPECT_EQ(made->CommandTimeout, 120);
    EXPECT_EQ(made->ConnectionString, session.ConnectionString);
}

TEST_F(DBConnectTest, ANewConnectionReplacesTheEarlierOne)
{
    db.ConnectDB();
    db.ConnectDB();
    EXPECT_EQ(connections.OpenNow(), 1);
}

TEST_F(DBConnectTest, ADeadServerIsToldOnceForEachAttempt)
{
    connections.RefuseOpens(-1);
    desktop.Expect(ServerDown);
    desktop.Expect(ServerDown);
    db.ConnectWithRetry();
    EXPECT_EQ(connections.Opens(), 2);
}

TEST_F(DBConnectTest, AConnectionThatIsReleasedWhileItIsMadeIsMadeAnew)
{
    const auto release = [this] { db.CloseDB(); };
    QMetaObject::invokeMethod(qApp, release, Qt::QueuedConnection);
    QThread::msleep(20); // events are due again after the pace of a screen
    EXPECT_FALSE(db.ConnectDB());
    EXPECT_TRUE(db.OpenRecordset(Balance)); // on the one that the report of the unset object has made
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(DBConnectTest, AConnectionThatStandsIsNotTriedAgain)
{
    db.ConnectWithRetry();
    EXPECT_EQ(connections.Opens(), 1);
}

TEST_F(DBConnectTest, AServerWhosePortIsClosedIsDown)
{
    session.DBServer = u"127.0.0.1"_q;
    session.DBPort = u"1"_q;
    desktop.Expect(ServerDown);
    EXPECT_FALSE(db.ConnectDB());
}

TEST_F(DBConnectTest, AQueryGivesItsRecords)
{
    database.SetAccount(12);
    db.ConnectDB();
    EXPECT_TRUE(db.OpenRecordset(Balance));
    EXPECT_EQ(db.Records().RecordCount(), 1);
    EXPECT_EQ(db.Records().Field(u"SMSRemainCnt"), u"12"_q);
}

TEST_F(DBConnectTest, TheNextQueryReplacesTheRecords)
{
    db.ConnectDB();
    db.OpenRecordset(Balance);
    db.OpenRecordset(u"SELECT GroupNm FROM SMSGroupMst");
    EXPECT_EQ(db.Records().RecordCount(), 0);
}

TEST_F(DBConnectTest, SharedRecordsSurviveTheConnectionAndTheNextQuery)
{
    database.SetAccount(12);
    db.ConnectDB();
    db.OpenRecordset(Balance);
    const std::shared_ptr<const Recordset> kept = db.ShareRecords();
    db.OpenRecordset(u"SELECT GroupNm FROM SMSGroupMst");
    db.CloseDB();
    EXPECT_EQ(kept->Text(0, 0), u"12"_q);
}

namespace {

/// Works on a result that takes a while to be read: each group beside each other one.
class ALongRead : public DBConnectTest
{
protected:
    ALongRead()
    {
        QStringList rows;
        for (int group = 1; group <= Groups; ++group)
            rows += u"'%1'"_q.arg(group);
        database.Insert(u"SMSGroupMst (GroupNm)"_q, rows);
        db.ConnectDB();
    }

    /// The queued call `during` is what waits when the read begins.
    bool Read(const std::function<void()>& during)
    {
        connections.BeforeStatement([during](const QString&) {
            QMetaObject::invokeMethod(qApp, during, Qt::QueuedConnection);
            QThread::msleep(20); // events are due again after the pace of a screen
        });
        return db.OpenRecordset(u"SELECT a.GroupNm FROM SMSGroupMst a, SMSGroupMst b");
    }

    bool IsRead()
    {
        try {
            db.Records();
            return true;
        } catch (const RuntimeError&) {
            return false;
        }
    }

    static constexpr int Groups = 400;
};

} // namespace

TEST_F(ALongRead, LetsTheWindowsLiveOn)
{
    bool wasRead = true;
    EXPECT_TRUE(Read([&] { wasRead = IsRead(); }));
    EXPECT_FALSE(wasRead);
    EXPECT_TRUE(IsRead());
}

TEST_F(ALongRead, IsEnteredByNothingThatWaitsForAnIdleProgram)
{
    bool wasBusy = false;
    EXPECT_TRUE(Read([&] { wasBusy = session.IsBusy(); }));
    EXPECT_TRUE(wasBusy);
    EXPECT_FALSE(session.IsBusy());
}

TEST_F(ALongRead, IsReadToItsEndOverAConnectionThatIsLetGoMeanwhile)
{
    int openMeanwhile = 0;
    EXPECT_TRUE(Read([&] {
        db.CloseDB();
        openMeanwhile = connections.OpenNow();
    }));
    EXPECT_EQ(openMeanwhile, 1);
    EXPECT_EQ(db.Records().RecordCount(), Groups * Groups);
    EXPECT_EQ(connections.OpenNow(), 0);
}

TEST_F(DBConnectTest, ThereAreNoRecordsAfterClosing)
{
    db.ConnectDB();
    db.OpenRecordset(Balance);
    db.CloseDB();
    EXPECT_EQ(connections.OpenNow(), 0);
    try {
        db.Records();
        ADD_FAILURE();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, ObjectNotSet);
    }
    EXPECT_THROW(db.ShareRecords(), RuntimeError);
}

TEST_F(DBConnectTest, ClosingWhatIsNotOpenDoesNothing)
{
    db.CloseDB();
    db.CloseDB2();
    db.CloseDB();
    EXPECT_EQ(connections.Opens(), 0);
}

TEST_F(DBConnectTest, ClosingLeavesTheCurrentError)
{
    SetCurrentError(50000, u"x"_q);
    db.CloseDB();
    db.CloseDB2();
    EXPECT_EQ(Err().Number, 50000);
}

TEST_F(DBConnectTest, AStatementIsDone)
{
    db.ConnectDB();
    EXPECT_TRUE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"));
    EXPECT_EQ(database.Value(Balance), u"1"_q);
}

TEST_F(DBConnectTest, AStatementWithoutAConnectionReconnectsQuietlyAndIsLost)
{
    EXPECT_FALSE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"));
    EXPECT_EQ(connections.OpenNow(), 1);
    EXPECT_EQ(database.Value(Balance), u"0"_q);
    EXPECT_TRUE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"));
    EXPECT_EQ(database.Value(Balance), u"1"_q);
}

TEST_F(DBConnectTest, AStatementBehindTheClosingReachesNoConnectionEither)
{
    db.ConnectDB();
    db.CloseDB();
    EXPECT_FALSE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"));
    EXPECT_EQ(connections.Statements(), QStringList());
    EXPECT_EQ(connections.OpenNow(), 1);
}

TEST_F(DBConnectTest, AQueryWithoutAConnectionReconnectsQuietlyAndIsLost)
{
    EXPECT_FALSE(db.OpenRecordset(Balance));
    EXPECT_EQ(connections.OpenNow(), 1);
    EXPECT_TRUE(db.OpenRecordset(Balance));
}

TEST_F(DBConnectTest, AFaultyStatementWithoutAConnectionIsNotToldOf)
{
    EXPECT_FALSE(db.ExecuteSQL(Statement(u"DELETE SMSLog_2012 WHERE SMSKey = ").Bare(u"x")));
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(DBConnectTest, AQuietReconnectionToADeadServerIsTold)
{
    connections.RefuseOpens(-1);
    desktop.Expect(ServerDown);
    EXPECT_FALSE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"));
    EXPECT_EQ(connections.Opens(), 1);
}

TEST_F(DBConnectTest, AValueWithAnApostropheFailsAtTheServer)
{
    db.ConnectDB();
    desktop.Expect(Told(u"Unclosed quotation mark after the character string ')'."_q));
    EXPECT_FALSE(db.ExecuteSQL(
        Statement(u"Insert into SMSGroupMst (GroupNm) values (").InQuotes(u"O'Brien").Own(u")")));
    EXPECT_EQ(connections.Statements(),
              QStringList{u"Insert into SMSGroupMst (GroupNm) values ('O'Brien')"_q});
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 0);
}

TEST_F(DBConnectTest, AValueThatWouldChangeTheStatementIsNeverSent)
{
    database.SetAccount(10);
    for (const QString& attack : {u"x'); UPDATE SMSSetup SET SMSRemainCnt=0 WHERE ('a'='a"_q, u"a', 'b"_q,
                                  u"O''Brien"_q, u"x') --"_q, u"x'), ('y"_q}) {
        db.ConnectDB();
        desktop.AllowBoxes();
        EXPECT_FALSE(db.ExecuteSQL(
            Statement(u"Insert into SMSGroupMst (GroupNm) values (").InQuotes(attack).Own(u")")));
    }
    EXPECT_EQ(desktop.boxes.size(), 5);
    for (const Box& box : desktop.boxes)
        EXPECT_TRUE(box.text.startsWith(u"☞ : Incorrect syntax near '")) << box;
    EXPECT_EQ(connections.Statements(), QStringList());
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 0);
    EXPECT_EQ(database.Value(Balance), u"10"_q);
}

TEST_F(DBConnectTest, AFaultyQueryIsNeverSent)
{
    db.ConnectDB();
    desktop.Expect(Told(u"Incorrect syntax near 'OR'."_q));
    EXPECT_FALSE(db.OpenRecordset(
        Statement(u"SELECT GSubNm FROM SMSGroupSub WHERE GSubNm =").InQuotes(u"x' OR 'a'='a")));
    EXPECT_EQ(connections.Statements(), QStringList());
}

// ReportDBError

TEST_F(DBConnectTest, AReportWithoutAnErrorClosesAllAndShowsNothing)
{
    db.ConnectDB();
    session.Busy = true;
    db.ReportDBError();
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_FALSE(session.Busy);
    EXPECT_EQ(desktop.pointers, QList<MousePointer>{MousePointer::Default});
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(DBConnectTest, AReportOfAnUnsetObjectLeavesANewConnectionBehind)
{
    SetCurrentError(91, u"개체 변수가 설정되지 않았습니다."_q);
    session.Busy = true;
    db.ReportDBError();
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EXPECT_EQ(connections.OpenNow(), 1);
    EXPECT_FALSE(session.Busy);
}

TEST_F(DBConnectTest, AReportOfANoticeIsAnInformation)
{
    SetCurrentError(50000, u"오늘은 점검일입니다."_q);
    desktop.Expect({Title, u"☞ : 오늘은 점검일입니다."_q, MsgBoxInformation});
    db.ReportDBError();
}

TEST_F(DBConnectTest, AReportOfADeadServerHasItsOwnWords)
{
    SetCurrentError(-2147467259, u"Timeout"_q);
    desktop.Expect(ServerDown);
    db.ReportDBError();
}

TEST_F(DBConnectTest, AReportOfAnIntegrityFailureHasASecondLine)
{
    SetCurrentError(-2147217873, u"Violation"_q);
    desktop.Expect(
        {Title, u"☞ : Violation\r\n\r\n데이터베이스 저장 프로시저 내부시스템 오류"_q, MsgBoxCritical});
    db.ReportDBError();
}

TEST_F(DBConnectTest, AReportOfAnyOtherErrorGivesItsDescription)
{
    for (const long number : {5L, 6L, 13L, -2147217900L, -2147217865L, -2147217871L, -2147217843L}) {
        SetCurrentError(number, u"words %1 of it"_q);
        desktop.Expect(Told(u"words %1 of it"_q));
        db.ReportDBError();
    }
}

TEST_F(DBConnectTest, AReportLeavesTheBoxStandingOverClosedObjects)
{
    db.ConnectDB();
    session.Busy = true;
    SetCurrentError(5, u"x"_q);
    desktop.Expect(Told(u"x"_q), AnswerOK, [this] {
        EXPECT_EQ(connections.OpenNow(), 0);
        EXPECT_FALSE(session.Busy);
    });
    db.ReportDBError();
}

TEST_F(DBConnectTest, AnOperationClearsTheErrorThatStoodBefore)
{
    SetCurrentError(5, u"x"_q);
    db.ConnectDB();
    EXPECT_EQ(Err().Number, NoError);
    SetCurrentError(5, u"x"_q);
    db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1");
    EXPECT_EQ(Err().Number, NoError);
}

TEST_F(DBConnectTest, AFailureInTheMiddleClosesTheConnectionForTheNextStatement)
{
    db.ConnectDB();
    connections.FailStatement(2, StatementFailure, u"broken"_q);
    EXPECT_TRUE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"));
    desktop.Expect(Told(u"broken"_q));
    EXPECT_FALSE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 10"));
    EXPECT_FALSE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 100"));
    EXPECT_TRUE(db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1000"));
    EXPECT_EQ(database.Value(Balance), u"1001"_q);
}

TEST_F(DBConnectTest, ACutLinkIsToldAsADeadServer)
{
    db.ConnectDB();
    connections.Cut();
    desktop.Expect(ServerDown);
    EXPECT_FALSE(db.OpenRecordset(Balance));
    EXPECT_TRUE(db.ConnectDB());
    EXPECT_TRUE(db.OpenRecordset(Balance));
}

} // namespace tsms::test

#include "store/LoadSMSSetup.h"

#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/database/TestDatabase.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

const Box NoServer{
    u" - 오류!!!"_q,
    u"★ 데이터베이스서버 상태를 확인하여 주십시오.!\r\n\r\n★ 서버가 종료이거나 인터넷 연결이 안된 상태입니다."_q,
    MsgBoxCritical};

class LoadSMSSetupTest : public ::testing::Test
{
protected:
    LoadSMSSetupTest() { database.Describe(session); }

    FixedClock clock;
    TestDatabase database{clock};
    FailingConnections connections{database.Connections()};
    Session session;
    ScriptedDesktop desktop;
    DBConnect db{session, desktop, connections.Maker()};
};

} // namespace

TEST_F(LoadSMSSetupTest, ReadsTheWholeRowTrimmed)
{
    database.Execute(
        u"UPDATE SMSSetup SET SMSID=' demo ', SMSPWD=' p w ', SMSDNS='d ', SMSTelNo=' 02-1234-5678', SMSOrgNm=' 한빛 교회 ', SMSRemainCnt=1234, SMSWeb1=' http://a ', SMSWeb2='http://b '"_q);
    EXPECT_TRUE(LoadSMSSetup(session, db));
    EXPECT_EQ(session.SMSRemainCnt, 1234);
    EXPECT_EQ(session.SMSID, u"demo"_q);
    EXPECT_EQ(session.SMSPWD, u"p w"_q);
    EXPECT_EQ(session.SMSDNS, u"d"_q);
    EXPECT_EQ(session.SMSTelNo, u"02-1234-5678"_q);
    EXPECT_EQ(session.SMSOrgNm, u"한빛 교회"_q);
    EXPECT_EQ(session.SMSWeb1, u"http://a"_q);
    EXPECT_EQ(session.SMSWeb2, u"http://b"_q);
}

TEST_F(LoadSMSSetupTest, HasTheBalanceShownOnceAllIsRead)
{
    database.SetAccount(77);
    QList<int> shown;
    session.BalanceListener = [this, &shown] {
        shown += session.SMSRemainCnt;
        EXPECT_EQ(session.SMSWeb2, u"http://127.0.0.1:8790/charge"_q);
    };
    LoadSMSSetup(session, db);
    EXPECT_EQ(shown, QList<int>{77});
}

TEST_F(LoadSMSSetupTest, ClosesTheConnection)
{
    LoadSMSSetup(session, db);
    EXPECT_EQ(connections.Connected(), 1);
    EXPECT_EQ(connections.OpenNow(), 0);
}

TEST_F(LoadSMSSetupTest, ANullTextReadsAsEmpty)
{
    database.SetAccount(5);
    database.Execute(u"UPDATE SMSSetup SET SMSID=NULL"_q);
    session.SMSID = u"old"_q;
    EXPECT_TRUE(LoadSMSSetup(session, db));
    EXPECT_EQ(session.SMSID, QString());
    EXPECT_EQ(session.SMSRemainCnt, 5);
}

TEST_F(LoadSMSSetupTest, ANullBalanceShowsOneBoxAndReturnsZero)
{
    database.SetAccount(5);
    database.Execute(u"UPDATE SMSSetup SET SMSRemainCnt=NULL"_q);
    desktop.Expect({u" - 오류!!!"_q, u"☞ : 형식이 일치하지 않습니다."_q, MsgBoxCritical});
    EXPECT_FALSE(LoadSMSSetup(session, db));
    EXPECT_EQ(connections.OpenNow(), 0);
}

TEST_F(LoadSMSSetupTest, ANullBalanceLeavesTheSessionAsItWas)
{
    database.SetAccount(5);
    database.Execute(u"UPDATE SMSSetup SET SMSRemainCnt=NULL"_q);
    desktop.AllowBoxes();
    session.SMSID = u"old"_q;
    session.SMSRemainCnt = 3;
    session.BalanceListener = [] { ADD_FAILURE() << "the balance was shown"; };
    LoadSMSSetup(session, db);
    EXPECT_EQ(session.SMSID, u"old"_q);
    EXPECT_EQ(session.SMSRemainCnt, 3);
}

TEST_F(LoadSMSSetupTest, AMissingColumnShowsOneBoxAndReturnsZero)
{
    database.SetAccount(5);
    database.Execute(u"ALTER TABLE SMSSetup DROP COLUMN SMSWeb2"_q);
    desktop.AllowBoxes();
    EXPECT_FALSE(LoadSMSSetup(session, db));
    EXPECT_EQ(desktop.boxes.size(), 1);
}

TEST_F(LoadSMSSetupTest, WithoutARowTheSessionKeepsWhatItHeld)
{
    database.Execute(u"DELETE FROM SMSSetup"_q);
    session.SMSRemainCnt = 9;
    session.SMSID = u"old"_q;
    session.BalanceListener = [] { ADD_FAILURE() << "the balance was shown"; };
    EXPECT_TRUE(LoadSMSSetup(session, db));
    EXPECT_EQ(session.SMSRemainCnt, 9);
    EXPECT_EQ(session.SMSID, u"old"_q);
    EXPECT_EQ(connections.OpenNow(), 0);
}

TEST_F(LoadSMSSetupTest, ADeadServerIsToldOnceForEachAttemptAndStillReturnsTrue)
{
    connections.RefuseOpens(-1);
    desktop.Expect(NoServer); // the first attempt
    desktop.Expect(NoServer); // the second
    desktop.Expect(NoServer); // the query finds no object and the quiet new connection fails too
    EXPECT_TRUE(LoadSMSSetup(session, db));
    EXPECT_EQ(connections.Opens(), 3);
    EXPECT_EQ(session.SMSRemainCnt, 0);
}

TEST_F(LoadSMSSetupTest, ASecondAttemptThatSucceedsReadsTheRow)
{
    database.SetAccount(42);
    connections.RefuseOpens(1);
    desktop.Expect(NoServer);
    EXPECT_TRUE(LoadSMSSetup(session, db));
    EXPECT_EQ(session.SMSRemainCnt, 42);
}

TEST_F(LoadSMSSetupTest, AFailedQueryIsReportedAndReturnsTrue)
{
    database.Execute(u"DROP TABLE SMSSetup"_q);
    desktop.Expect({u" - 오류!!!"_q, u"☞ : Invalid object name 'SMSSetup'."_q, MsgBoxCritical});
    EXPECT_TRUE(LoadSMSSetup(session, db));
    EXPECT_EQ(connections.OpenNow(), 0);
}

} // namespace tsms::test

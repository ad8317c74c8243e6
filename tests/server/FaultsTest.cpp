#include "server/ServerFixture.h"
#include "support/server/TdsTokens.h"

#include <thread>

namespace tsms::test {

namespace {

class Faults : public ServerFixture
{
protected:
    Faults() { Connect(); }

    void ExpectCut()
    {
        EXPECT_FALSE(client_.Execute(u"SELECT 1"_q));
        EXPECT_TRUE(server_.WaitForOpenConnections(0));
    }

    const QString change_ = u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q;
};

} // namespace

TEST_F(Faults, ALateAnswerIsTheRightOne)
{
    server_.AnswerLate(50);
    EXPECT_EQ(Value(u"SELECT 7"_q), u"7"_q);
}

TEST_F(Faults, AClientGivesALateAnswerUp)
{
    server_.AnswerLate(600'000);
    EXPECT_FALSE(client_.Execute(change_, 1));
    EXPECT_EQ(client_.First().State, u"HYT00"_q);
    EXPECT_EQ(Value(u"SELECT 1"_q), u"1"_q);
    EXPECT_EQ(Balance(), u"0"_q);
}

TEST_F(Faults, AStatementThatWasGivenUpIsNotExecutedLater)
{
    OdbcClient other;
    ASSERT_TRUE(other.Connect(server_));
    server_.AnswerLate(1100);
    EXPECT_FALSE(client_.Execute(change_, 1));
    // Answered when the first one would have been due.
    server_.AnswerLate(500);
    EXPECT_TRUE(other.Execute(u"SELECT 1"_q));
    EXPECT_EQ(Balance(), u"0"_q);
}

TEST_F(Faults, AClientGivesASilentServerUp)
{
    server_.StaySilent(2);
    Run(change_);
    EXPECT_FALSE(client_.Execute(change_, 1));
    EXPECT_EQ(client_.First().State, u"HYT00"_q);
    EXPECT_EQ(Value(u"SELECT 1"_q), u"1"_q);
    EXPECT_EQ(Balance(), u"1"_q);
}

TEST_F(Faults, AConnectionIsCutBeforeTheStatement)
{
    server_.CutBefore();
    EXPECT_FALSE(client_.Execute(change_));
    ExpectCut();
    EXPECT_EQ(Balance(), u"0"_q);
}

TEST_F(Faults, AConnectionIsCutBehindTheStatement)
{
    server_.CutAfter();
    EXPECT_FALSE(client_.Execute(change_));
    ExpectCut();
    EXPECT_EQ(Balance(), u"1"_q);
}

TEST_F(Faults, AConnectionIsCutInTheMiddleOfTheAnswer)
{
    server_.CutInAnswer(12);
    EXPECT_FALSE(client_.Execute(change_));
    ExpectCut();
    EXPECT_EQ(Balance(), u"1"_q);
}

TEST_F(Faults, AConnectionIsCutBehindHalfOfTheAnswer)
{
    for (int row = 0; row < 200; ++row)
        database_.Execute(
            u"INSERT INTO SMSTempLSub (TempLContent) VALUES ('%1')"_q.arg(u"가"_q.repeated(40)));
    server_.CutInMiddle();
    Run(u"SELECT TempLContent FROM SMSTempLSub"_q);
    EXPECT_NEAR(static_cast<double>(client_.Rows().size()), 100, 10);
    EXPECT_FALSE(client_.Diagnostics().isEmpty());
    ExpectCut();
}

TEST_F(Faults, TheServerLeavesWithTheFaultThatItHasAnsweredAndComesBackOnTheSamePort)
{
    server_.LeaveWithFault();
    server_.Fail({1205, 13, 45, u"Transaction was deadlocked."_q}, 2);
    Run(change_);
    EXPECT_FALSE(client_.Execute(change_));
    EXPECT_EQ(client_.First().Number, 1205);
    EXPECT_TRUE(server_.WaitForOpenConnections(0));
    OdbcClient other;
    EXPECT_FALSE(other.Connect(server_));
    server_.Start();
    EXPECT_TRUE(other.Connect(server_));
    EXPECT_EQ(Balance(), u"1"_q);
}

TEST_F(Faults, StartingAServerThatIsThereChangesNothing)
{
    server_.Start();
    Run(change_);
    EXPECT_EQ(Balance(), u"1"_q);
}

TEST_F(Faults, AConnectionIsCutBetweenTwoRows)
{
    for (int row = 0; row < 200; ++row)
        database_.Execute(
            u"INSERT INTO SMSTempLSub (TempLContent) VALUES ('%1')"_q.arg(u"가"_q.repeated(40)));
    server_.CutInAnswer(9000);
    Run(u"SELECT TempLContent FROM SMSTempLSub"_q);
    const auto rows = client_.Rows().size();
    EXPECT_GT(rows, 50);
    EXPECT_LT(rows, 200);
    EXPECT_FALSE(client_.Diagnostics().isEmpty());
    ExpectCut();
}

TEST_F(Faults, AnErrorIsRaisedForTheNthStatement)
{
    server_.Fail({50000, 16, 1, u"오늘은 점검일입니다."_q}, 2);
    Run(change_);
    EXPECT_FALSE(client_.Execute(change_));
    EXPECT_EQ(client_.First().Number, 50000);
    EXPECT_TRUE(client_.First().Words.endsWith(u"오늘은 점검일입니다."));
    Run(change_);
    EXPECT_EQ(Balance(), u"2"_q);
}

TEST_F(Faults, AnErrorIsRaisedForEveryStatementWithAText)
{
    server_.FailWhere(u"SMSGroupMst"_q, {1205, 13, 45, u"Transaction was deadlocked."_q});
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_FALSE(client_.Execute(u"SELECT GroupNm FROM SMSGroupMst"_q));
        EXPECT_EQ(client_.First().Number, 1205);
        Run(u"SELECT SMSID FROM SMSSetup"_q);
    }
    server_.BehaveAgain();
    Run(u"SELECT GroupNm FROM SMSGroupMst"_q);
}

TEST_F(Faults, AStatementIsAnsweredByTokensThatTheTestMakes)
{
    ServerType text;
    text.kind = ServerType::Kind::VarChar;
    text.width = 10;
    const QByteArray row = '\xD1' + ValueBytes(text, u"가"_q);
    server_.AnswerWith(ColumnsToken({{u"a"_q, text}}) + row + row +
                       ErrorToken({245, 16, 1, u"Conversion failed."_q}) + FailedToken());
    Run(change_);
    EXPECT_EQ(client_.Rows().size(), 2);
    EXPECT_EQ(client_.First().Number, 245);
    EXPECT_EQ(Balance(), u"0"_q);
    server_.AnswerWhere(u"SMSSetup"_q, DoneToken(StatementKind::Update, 77, false));
    Run(change_);
    EXPECT_EQ(client_.RowCount(), 77);
    Run(change_);
    EXPECT_EQ(client_.RowCount(), 77);
    EXPECT_EQ(Balance(), u"0"_q);
}

TEST_F(Faults, StatementsAreCountedOverAllConnections)
{
    OdbcClient other;
    ASSERT_TRUE(other.Connect(server_));
    server_.CutBefore(3);
    Run(u"SELECT 1"_q);
    EXPECT_TRUE(other.Execute(u"SELECT 2"_q));
    EXPECT_FALSE(other.Execute(u"SELECT 3"_q));
    Run(u"SELECT 4"_q);
    EXPECT_EQ(server_.Statements(),
              (QStringList{u"SELECT 1"_q, u"SELECT 2"_q, u"SELECT 3"_q, u"SELECT 4"_q}));
}

TEST_F(Faults, AServerThatIsGoneCutsItsConnectionsAndRefusesNewOnes)
{
    server_.Stop();
    EXPECT_TRUE(server_.WaitForOpenConnections(0));
    EXPECT_FALSE(client_.Execute(u"SELECT 1"_q));
    OdbcClient other;
    EXPECT_FALSE(other.Connect(server_));
    EXPECT_EQ(server_.ConnectionCount(), 1);
}

TEST_F(Faults, AServerComesBackOnItsPort)
{
    const quint16 port = server_.Port();
    server_.Stop();
    server_.Start();
    EXPECT_EQ(server_.Port(), port);
    client_.Disconnect();
    Connect();
    EXPECT_EQ(Value(u"SELECT 1"_q), u"1"_q);
}

TEST_F(Faults, AStatementWaitsForALockLikeAtARealServer)
{
    database_.Execute(u"BEGIN IMMEDIATE"_q);
    std::thread other([this] { Run(change_); });
    EXPECT_TRUE(server_.WaitForStatements(1));
    database_.Execute(u"UPDATE SMSSetup SET SMSRemainCnt = 10"_q);
    database_.Execute(u"COMMIT"_q);
    other.join();
    EXPECT_EQ(Balance(), u"11"_q);
}

TEST_F(Faults, AClientGivesUpWaitingForALock)
{
    database_.Execute(u"BEGIN IMMEDIATE"_q);
    EXPECT_FALSE(client_.Execute(change_, 1));
    EXPECT_EQ(client_.First().State, u"HYT00"_q);
    database_.Execute(u"COMMIT"_q);
    Run(u"SELECT 1"_q);
    EXPECT_EQ(Balance(), u"0"_q);
}

TEST_F(Faults, AServerEndsWhileAClientHangs)
{
    auto server = std::make_unique<TestServer>(database_.Path(), clock_);
    OdbcClient hanging;
    ASSERT_TRUE(hanging.Connect(*server));
    server->StaySilent();
    bool passed = true;
    std::thread other([&] { passed = hanging.Execute(u"SELECT 1"_q, 0); });
    EXPECT_TRUE(server->WaitForStatements(1));
    server.reset();
    other.join();
    EXPECT_FALSE(passed);
}

} // namespace tsms::test

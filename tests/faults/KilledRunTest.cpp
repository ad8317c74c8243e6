#include "faults/SendingProcess.h"
#include "support/FixedClock.h"
#include "support/server/TestServer.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include <algorithm>

namespace tsms::test {

namespace {

constexpr int Recipients = 3;
constexpr int Statements = 2 + Recipients; // the account, a row for each message, the debit
constexpr int Never = 600'000;             // milliseconds

/// A run that dies on the way, on either engine.
class KilledRun : public ::testing::TestWithParam<TestEngine>
{
protected:
    KilledRun() { database.SetAccount(); }

    /// A killed run has logged so many messages and debited none; the next start sends and debits as ever.
    void ExpectLeft(int logged)
    {
        EXPECT_EQ(database.Value(u"PRAGMA integrity_check"_q), u"ok"_q);
        EXPECT_EQ(database.Count(u"SMSLog_2012"_q), logged);
        EXPECT_EQ(Balance(), 100);
        EXPECT_TRUE(SendingProcess(database, gateway, Recipients, u"다음"_q).EndsWell());
        EXPECT_EQ(database.Count(u"SMSLog_2012"_q), logged + Recipients);
        EXPECT_EQ(Balance(), 100 - Recipients);
    }
    int Balance() { return database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q).toInt(); }

    FixedClock clock;
    TestDatabase database{clock, {2012, 2012}, GetParam()};
    TestGateway gateway{clock};
};

std::string EngineName(const ::testing::TestParamInfo<TestEngine>& engine)
{
    return engine.param == TestEngine::Server ? "Server" : "Embedded";
}

} // namespace

TEST_P(KilledRun, BeforeAStatementHasLoggedEachMessageOfTheStatementsBefore)
{
    for (int statement = 1; statement <= Statements; ++statement) {
        SCOPED_TRACE(statement);
        database.SetAccount();
        database.Execute(u"DELETE FROM SMSLog_2012"_q);
        const int calls = gateway.CallCount();
        EXPECT_TRUE(SendingProcess(database, gateway, Recipients, u"첫"_q, statement).EndsByAKill());
        // The message of the row that is not written has left already.
        EXPECT_EQ(gateway.CallCount() - calls, std::clamp(statement - 1, 0, Recipients));
        ExpectLeft(std::max(0, statement - 2));
    }
}

TEST_P(KilledRun, InACallOfTheGatewayHasLoggedEachMessageBefore)
{
    for (int call = 1; call <= Recipients; ++call) {
        SCOPED_TRACE(call);
        database.SetAccount();
        database.Execute(u"DELETE FROM SMSLog_2012"_q);
        const int awaited = gateway.CallCount() + call;
        gateway.AnswerLate(Never, awaited);
        SendingProcess program(database, gateway, Recipients, u"첫"_q);
        EXPECT_TRUE(QTest::qWaitFor([&] { return gateway.CallCount() == awaited; }, 20000));
        program.Kill();
        gateway.BehaveAgain();
        ExpectLeft(call - 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, KilledRun, ::testing::Values(TestEngine::Embedded, TestEngine::Server),
                         EngineName);

namespace {

class RunKilledInAStatement : public KilledRun
{
};

} // namespace

TEST_P(RunKilledInAStatement, HasLoggedWhatTheServerHadExecutedBefore)
{
    TestServer& server = *database.Server();
    for (int statement = 1; statement <= Statements; ++statement) {
        SCOPED_TRACE(statement);
        database.SetAccount();
        database.Execute(u"DELETE FROM SMSLog_2012"_q);
        const auto before = static_cast<int>(server.Statements().size());
        server.StaySilent(statement);
        SendingProcess program(database, gateway, Recipients, u"첫"_q);
        EXPECT_TRUE(server.WaitForStatements(before + statement));
        program.Kill();
        EXPECT_TRUE(server.WaitForOpenConnections(0));
        ExpectLeft(std::max(0, statement - 2));
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, RunKilledInAStatement, ::testing::Values(TestEngine::Server), EngineName);

} // namespace tsms::test

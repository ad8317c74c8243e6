#include "gatewayfaults/CallFaults.h"
#include "support/program/Program.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int Rows = 3;

QStringList Numbers(int count)
{
    QStringList numbers;
    for (int i = 1; i <= count; ++i)
        numbers += u"0100000000%1"_q.arg(i);
    return numbers;
}

class FaultySend : public ::testing::TestWithParam<std::tuple<CallFault, int>>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(program.Start());
        program.Write(u"안녕"_q);
        QList<QStringList> recipients;
        for (const QString& number : Numbers(Rows))
            recipients += {u"이름"_q, number};
        program.List(recipients);
    }
    /// The numbers for which SendSMS was called since so many calls.
    QStringList Called(int before = 0)
    {
        QStringList numbers;
        for (const ServiceCall& call : program.gateway.Calls().mid(before))
            numbers += call.Arguments[4];
        return numbers;
    }
    QStringList Taken()
    {
        QStringList numbers;
        for (const GatewayMessage& message : program.gateway.Messages())
            numbers += message.RecvTelNo;
        return numbers;
    }
    QStringList Logged()
    {
        QStringList numbers;
        for (const QStringList& row :
             program.database.Rows(u"SELECT SendTelNo FROM SMSLog_2012 ORDER BY SMSKey"_q))
            numbers += row.first();
        return numbers;
    }
    void ExpectAtRest()
    {
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    }

    Program program;
};

TEST_P(FaultySend, TellsEachRowSendsNoneTwiceLogsWhatWasAnsweredAndTheNextRunWorks)
{
    const auto& [fault, nth] = GetParam();
    const int answered = fault.succeeds ? Rows : nth - 1;
    Happen(program.gateway, fault, nth);
    for (int row = answered + 1; row <= Rows; ++row)
        program.desktop.Expect(SendFailureBox());
    program.desktop.Expect(answered > 0 ? SentBox() : NothingSentBox());
    program.Send();
    const int calls = fault.succeeds ? Rows : nth - 1 + (fault.arrives ? 1 : 0);
    const int taken = fault.succeeds ? Rows : nth - 1 + (fault.isDone ? 1 : 0);
    EXPECT_EQ(Called(), Numbers(calls));
    EXPECT_EQ(Taken(), Numbers(taken));
    EXPECT_EQ(Logged(), Numbers(answered));
    // A run with a failed row is not debited.
    EXPECT_EQ(program.Balance(), fault.succeeds ? 100 - Rows : 100);
    ExpectAtRest();

    program.gateway.BehaveAgain();
    const int balance = program.Balance();
    program.desktop.Expect(SentBox());
    program.Send();
    EXPECT_EQ(Called(calls), Numbers(Rows));
    EXPECT_EQ(Taken(), Numbers(taken) + Numbers(Rows));
    EXPECT_EQ(Logged(), Numbers(answered) + Numbers(Rows));
    EXPECT_EQ(program.Balance(), balance - Rows);
    ExpectAtRest();
}

class SendAnsweredTwice : public ::testing::TestWithParam<int>
{
};

TEST_P(SendAnsweredTwice, LogsForEachRowTheNumberOfItsOwnMessageAndReachesTheGatewayWithEach)
{
    Program program;
    ASSERT_TRUE(program.Start());
    program.Write(u"안녕"_q);
    QList<QStringList> recipients;
    for (const QString& number : Numbers(9))
        recipients += {u"이름"_q, number};
    program.List(recipients);
    program.gateway.AnswerTwice(GetParam());
    program.desktop.Expect(SentBox());
    program.Send();

    QList<QStringList> taken;
    for (const GatewayMessage& message : program.gateway.Messages())
        taken += {message.RecvTelNo, QString::number(message.Number)};
    EXPECT_EQ(taken.size(), 9);
    EXPECT_EQ(program.database.Rows(u"SELECT SendTelNo, SMSNo FROM SMSLog_2012 ORDER BY SMSKey"_q), taken);
    EXPECT_EQ(program.Balance(), 100 - 9);
}

INSTANTIATE_TEST_SUITE_P(Milliseconds, SendAnsweredTwice, ::testing::Values(0, 1, 5, 20));

INSTANTIATE_TEST_SUITE_P(Calls, FaultySend,
                         ::testing::Combine(::testing::ValuesIn(CallFaults()), ::testing::Values(1, 2, 3)),
                         [](const auto& attempt) {
                             return std::get<0>(attempt.param).name + "AtCall" +
                                    std::to_string(std::get<1>(attempt.param));
                         });

} // namespace

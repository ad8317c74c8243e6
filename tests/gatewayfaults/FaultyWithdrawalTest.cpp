#include "gatewayfaults/CallFaults.h"
#include "support/program/HistoryProgram.h"

using namespace tsms;
using namespace tsms::test;

namespace {

struct Run
{
    int rows;
    int nth; ///< the call that goes wrong
};

class FaultyWithdrawal : public HistoryProgram,
                         public ::testing::WithParamInterface<std::tuple<CallFault, Run>>
{
protected:
    /// Reserves that many messages and lists them in this order.
    void ListReserved(int count)
    {
        for (int i = 1; i <= count; ++i)
            Reserve(QString::number(i), u"2012:05:31:%1:00"_q.arg(24 - i));
        EnterAndListAll();
        ASSERT_EQ(List().Cells().MaxRows(), count);
    }
    /// Ticks every row and withdraws them all.
    void WithdrawAll(const Box& outcome)
    {
        for (int row = 1; row <= List().Cells().MaxRows(); ++row)
            ClickMark(row);
        program.desktop.Expect(CancelQuestion(List().Cells().MaxRows()), AnswerYes);
        program.desktop.Expect(outcome);
        WhenShown(u"MakeSMSTransport"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
        program.Click(u"BtnSendListFun(1)"_q);
    }
    /// The numbers that DeleteSMS was called with since so many calls.
    QStringList Asked(qsizetype before = 0)
    {
        QStringList numbers;
        for (const ServiceCall& call : Withdrawals().mid(before))
            numbers += call.Arguments[3];
        return numbers;
    }
    /// The gateway's numbers from one to the other, both included; it counts from 100001.
    static QStringList From(int first, int last)
    {
        QStringList numbers;
        for (int i = first; i <= last; ++i)
            numbers += QString::number(100000 + i);
        return numbers;
    }
    QStringList Withdrawn()
    {
        QStringList numbers;
        for (const GatewayMessage& message : program.gateway.Messages())
            if (message.Withdrawn)
                numbers += QString::number(message.Number);
        return numbers;
    }
    QStringList Logged()
    {
        QStringList numbers;
        for (const QStringList& row :
             program.database.Rows(u"SELECT SMSNo FROM SMSLog_2012 ORDER BY SMSKey"_q))
            numbers += row.first();
        return numbers;
    }
    void ExpectAtRest()
    {
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
        ExpectNoGatewayClient();
    }
};

TEST_P(FaultyWithdrawal, ShowsNothingButItsOutcomeRemovesWhatWasAnsweredAndTheNextRunWorks)
{
    const auto& [fault, run] = GetParam();
    ListReserved(run.rows);
    const int answered = fault.succeeds ? run.rows : run.nth - 1;
    Happen(program.gateway, fault, run.nth);
    WithdrawAll(answered > 0 ? CancelledBox() : NothingCancelledBox());
    const int calls = fault.succeeds ? run.rows : run.nth - 1 + (fault.arrives ? 1 : 0);
    const int done = fault.succeeds ? run.rows : run.nth - 1 + (fault.isDone ? 1 : 0);
    EXPECT_EQ(Asked(), From(1, calls));
    EXPECT_EQ(Withdrawn(), From(1, done));
    EXPECT_EQ(Logged(), From(answered + 1, run.rows));
    EXPECT_EQ(List().Cells().MaxRows(), run.rows - answered); // searched again
    // A run that broke off is not credited.
    EXPECT_EQ(program.Balance(), fault.succeeds ? 100 + run.rows : 100);
    ExpectAtRest();
    if (fault.succeeds)
        return;

    // What the gateway has withdrawn without being able to tell it refuses to withdraw again.
    program.gateway.BehaveAgain();
    const int left = run.rows - done;
    WithdrawAll(left > 0 ? CancelledBox() : NothingCancelledBox());
    EXPECT_EQ(Asked(calls), From(answered + 1, run.rows));
    EXPECT_EQ(Withdrawn(), From(1, run.rows));
    EXPECT_EQ(Logged(), From(answered + 1, done));
    EXPECT_EQ(program.Balance(), 100 + left);
    ExpectAtRest();
}

INSTANTIATE_TEST_SUITE_P(Calls, FaultyWithdrawal,
                         ::testing::Combine(::testing::ValuesIn(CallFaults()),
                                            ::testing::Values(Run{1, 1}, Run{3, 1}, Run{3, 2}, Run{3, 3})),
                         [](const auto& attempt) {
                             const Run& run = std::get<1>(attempt.param);
                             return std::get<0>(attempt.param).name + "AtCall" + std::to_string(run.nth) +
                                    "Of" + std::to_string(run.rows);
                         });

} // namespace

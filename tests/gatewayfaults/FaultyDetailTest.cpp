#include "gatewayfaults/CallFaults.h"
#include "support/program/HistoryProgram.h"

using namespace tsms;
using namespace tsms::test;

namespace {

class FaultyDetail : public HistoryProgram, public ::testing::WithParamInterface<CallFault>
{
protected:
    /// Opens the one message that is listed and withdraws it.
    void Withdraw(bool succeeds)
    {
        const Box withdrawn{u"문자메시지 예약취소"_q, u"정상적으로 문자메시지 예약취소를 완료하였습니다.!!"_q,
                            MsgBoxInformation};
        ExpectOutcome(succeeds ? withdrawn : NothingCancelledBox());
        WhenShown(u"dlgSMSShowDetail"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
        program.Click(u"BtnSendListFun(0)"_q);
    }
    void ExpectState(int asked, bool isWithdrawn, bool isLogged, int balance)
    {
        EXPECT_EQ(Withdrawals().size(), asked);
        EXPECT_EQ(program.gateway.Messages().first().Withdrawn, isWithdrawn);
        EXPECT_EQ(program.LogRows(), isLogged ? 1 : 0);
        EXPECT_EQ(List().Cells().MaxRows(), isLogged ? 1 : 0); // searched again
        EXPECT_EQ(program.Balance(), balance);
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
        ExpectNoGatewayClient();
    }
};

TEST_P(FaultyDetail, EndsInTheFailureBoxAloneAndTheNextWithdrawalWorks)
{
    const CallFault& fault = GetParam();
    Reserve(u"가"_q);
    EnterAndListAll();
    Happen(program.gateway, fault, 1);
    Withdraw(fault.succeeds);
    const int asked = fault.arrives ? 1 : 0;
    ExpectState(asked, fault.isDone, !fault.succeeds, fault.succeeds ? 101 : 100);
    if (fault.succeeds)
        return;

    program.gateway.BehaveAgain();
    Withdraw(!fault.isDone);
    ExpectState(asked + 1, true, fault.isDone, fault.isDone ? 100 : 101);
}

INSTANTIATE_TEST_SUITE_P(Calls, FaultyDetail, ::testing::ValuesIn(CallFaults()),
                         [](const auto& fault) { return fault.param.name; });

} // namespace

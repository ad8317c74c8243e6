#include "gatewayfaults/CallFaults.h"

namespace tsms::test {

namespace {

constexpr int LateMs = 150;

} // namespace

const QList<CallFault>& CallFaults()
{
    static const QList<CallFault> faults = {
        {.name = "RefusedConnection", .kind = FaultKind::Leave, .arrives = false},
        {.name = "LateAnswer", .kind = FaultKind::Late, .isDone = true, .succeeds = true},
        {.name = "CutBeforeTheAnswer", .kind = FaultKind::Drop, .isDone = true},
        {.name = "CutInTheAnswer", .kind = FaultKind::Cut, .isDone = true},
        {.name = "Garbage", .kind = FaultKind::Garbage},
        {.name = "Http500", .kind = FaultKind::Http500},
        {.name = "SoapFault", .kind = FaultKind::SoapFault},
        {.name = "ShortReply", .kind = FaultKind::Short, .isDone = true},
        {.name = "BadTruthValue", .kind = FaultKind::BadTruth, .isDone = true},
    };
    return faults;
}

void Happen(TestGateway& gateway, const CallFault& fault, int nth)
{
    const int call = gateway.CallCount() + nth;
    if (fault.kind == FaultKind::Late)
        gateway.AnswerLate(LateMs, call);
    else if (fault.kind != FaultKind::Leave)
        gateway.Fail(fault.kind, call);
    else if (nth == 1)
        gateway.Fail(FaultKind::WsdlLeave);
    else
        gateway.LeaveAfter(call - 1);
}

} // namespace tsms::test

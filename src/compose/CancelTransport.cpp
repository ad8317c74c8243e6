#include "compose/CancelTransport.h"

#include "compose/CancelRun.h"
#include "compose/ComposeBoxes.h"
#include "compose/RefreshBalanceLabel.h"
#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "services/Services.h"

namespace tsms {

CancelTransport::CancelTransport(Services& services, const SentRows& sent, std::int32_t total, QWidget* owner)
    : RunDialog(services,
                {QStringLiteral("문자메시지 예약취소"), QStringLiteral("취소 건수"),
                 QStringLiteral("예약취소"), CancelStatus(total, QStringLiteral("0")),
                 CancelStatus(total, FormatCount(total))},
                total, owner),
      sent_(sent),
      total_(total)
{
}

void CancelTransport::Run()
{
    CancelRun run(services_.db, services_.sms, sent_, *this);
    run.RunCancel(total_);
    Unload();
    TellOutcome(run.CountOK);
}

void CancelTransport::TellOutcome(std::int32_t countOK)
{
    if (countOK < 1) {
        ShowNothingCancelledBox(services_.desktop);
        return;
    }
    RefreshBalanceLabel(services_.session, services_.db);
    services_.desktop.MsgBox(QStringLiteral("정상적으로 문자 메시지를 발송 취소 하였습니다."),
                             MsgBoxInformation, QStringLiteral("문자메시지 취소 완료!!!"));
}

} // namespace tsms

#include "compose/MakeSMSTransport.h"

#include "compose/ComposeBoxes.h"
#include "compose/DispatchRun.h"
#include "compose/Preflight.h"
#include "compose/RefreshBalanceLabel.h"
#include "compose/Reservation.h"
#include "recipients/RecipientList.h"
#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "store/LoadSMSSetup.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/look/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tsms {

MakeSMSTransport::MakeSMSTransport(Services& services, const Draft& draft, QWidget* owner)
    : RunDialog(
          services,
          {QStringLiteral("문자메시지 발송하기"), QStringLiteral("발송 건수"), QStringLiteral("발송(F12)"),
           DispatchStatus(draft.total, QStringLiteral("0")),
           DispatchStatus(draft.total, FormatCount(draft.recipients.Rows()))}, // empty rows count as done
          draft.total, owner),
      draft_(draft)
{
    SetBusy(true);
    BuildReservation();
    date_->SetValue(services_.clock.Date());
    hour_->AddItem(FirstHourItem());
    hour_->SetListIndex(0);
    minute_->AddItem(FirstMinuteItem());
    minute_->SetListIndex(0);
    EnableReservation(false);
    reserve_->OnClick = WhenIdle(*this, [this] { ChkTimeClick(); });
    SetBusy(false);
    Button(0)->setFocus(Qt::OtherFocusReason); // what a person came for
}

void MakeSMSTransport::BuildReservation()
{
    reserve_ = new CheckBox(&Body(), QStringLiteral("ChkTime"), QStringLiteral("예약발송"));
    date_ = new DatePicker(&Body(), QStringLiteral("DTPicker1"));
    hour_ = new ComboBox(&Body(), QStringLiteral("CbTime"));
    minute_ = new ComboBox(&Body(), QStringLiteral("CbMintue"));
    DescribeBy(*date_, QStringLiteral("예약 날짜"));
    DescribeBy(*hour_, QStringLiteral("예약 시각의 시"));
    DescribeBy(*minute_, QStringLiteral("예약 시각의 분"));
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(reserve_);
    row->addWidget(date_, 1);
    row->addWidget(hour_);
    row->addWidget(minute_);
    BodyLayout().addLayout(row);
}

void MakeSMSTransport::ChkTimeClick()
{
    EnableReservation(reserve_->Value());
    if (reserve_->Value())
        FillTimeLists();
}

void MakeSMSTransport::EnableReservation(bool enabled)
{
    date_->setEnabled(enabled);
    for (ComboBox* list : {hour_, minute_}) {
        list->setEnabled(enabled);
        list->SetBackColor(enabled ? theme::White : theme::ButtonFace);
    }
}

void MakeSMSTransport::FillTimeLists()
{
    // Meant: the lists are not cleared first, so each tick adds the same items again.
    for (const QString& item : HourItems())
        hour_->AddItem(item);
    for (const QString& item : MinuteItems())
        minute_->AddItem(item);
    const QDateTime now = services_.clock.Now();
    hour_->SetListIndex(SuggestedHourIndex(now));
    minute_->SetListIndex(SuggestedMinuteIndex(now));
}

void MakeSMSTransport::SetUsable(bool usable)
{
    reserve_->setEnabled(usable);
    EnableReservation(usable && reserve_->Value());
    RunDialog::SetUsable(usable);
}

ChosenTime MakeSMSTransport::Chosen() const
{
    return {date_->Value(), hour_->Text(), minute_->Text()};
}

void MakeSMSTransport::Run()
{
    if (!IsReservationGood())
        return;
    LoadSMSSetup(services_.session, services_.db);
    if (!CanPayFor(services_.session, draft_)) {
        ShowShortageBox(services_.desktop, services_.session);
        return;
    }
    draft_.reservation = reserve_->Value() ? ReservationText(Chosen()) : QString();
    DispatchRun run(services_.session, services_.db, services_.sms, draft_, *this);
    run.RunSend();
    Unload();
    TellOutcome(run.CountOK);
}

bool MakeSMSTransport::IsReservationGood()
{
    if (!reserve_->Value())
        return true;
    const QString title = QStringLiteral("문자메세지 발송시간");
    switch (CheckReservation(services_.clock.Now(), Chosen())) {
    case ReservationVerdict::DayInThePast:
        services_.desktop.MsgBox(QStringLiteral("잘못된 일시선택입니다. 다시 선택하여 주십시오."),
                                 MsgBoxCritical, title);
        date_->setFocus();
        return false;
    case ReservationVerdict::TimeInThePast:
        services_.desktop.MsgBox(
            QStringLiteral("보낼 시간을 현재시간으로 부터 3분 이후로 설정하여 주십시오. "), MsgBoxCritical,
            title);
        minute_->setFocus();
        return false;
    case ReservationVerdict::Good:
        break;
    }
    return true;
}

void MakeSMSTransport::TellOutcome(std::int32_t countOK)
{
    if (countOK > 0) {
        RefreshBalanceLabel(services_.session, services_.db);
        services_.desktop.MsgBox(QStringLiteral("정상적으로 문자 메시지가 전송 되었습니다."),
                                 MsgBoxInformation, QStringLiteral("문자메세지 전송 완료!!!"));
    } else {
        services_.desktop.MsgBox(
            QStringLiteral("전송된 문자메시지가 없습니다. 핸드폰번호가 없거나 잘못된 형식입니다."),
            MsgBoxCritical, QStringLiteral("문자메세지 전송 실패!!!"));
    }
}

} // namespace tsms

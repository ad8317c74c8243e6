#include "compose/MakeSMSTransport.h"

#include "compose/CancelRun.h"
#include "compose/ComposeBoxes.h"
#include "compose/DispatchRun.h"
#include "compose/RefreshBalanceLabel.h"
#include "compose/Reservation.h"
#include "recipients/RecipientList.h"
#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/LoadSMSSetup.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/look/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr QStringView CancelMode = u"DEL";

enum Number : int { Total, Succeeded, Failed, Remainder };

DialogFrame Frame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("MakeSMSTransport");
    frame.caption = QStringLiteral("문자메시지 발송하기");
    frame.title = QStringLiteral("문자메시지 발송하기");
    frame.titleLabel = QStringLiteral("lblTitle(1)");
    frame.buttonBase = QStringLiteral("BtnSendS");
    frame.buttons = {QStringLiteral("발송(F12)"), QStringLiteral("취소(ESC)")};
    return frame;
}

/// The colour value 0xBBGGRR, as it is told of the number labels.
QColor FromBlueGreenRed(unsigned value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

} // namespace

MakeSMSTransport::MakeSMSTransport(Services& services, Source source, QWidget* parent)
    : MakeSMSTransport(services, parent)
{
    source_.emplace(std::move(source));
    Button(0)->setFocus(Qt::OtherFocusReason); // what a person came for
}

MakeSMSTransport::MakeSMSTransport(Services& services, const SentRows& sent, QWidget* parent)
    : MakeSMSTransport(services, parent)
{
    sent_ = &sent;
}

MakeSMSTransport::MakeSMSTransport(Services& services, QWidget* parent)
    : DialogForm(services.session, services.desktop, Frame(), parent), services_(services)
{
    SetBusy(Boolean::True);
    BuildCounts(BodyLayout());
    BuildReservation(BodyLayout());
    bar_->SetMax(100);
    bar_->SetValue(0);
    date_->SetValue(services_.clock.Date());
    hour_->AddItem(FirstHourItem());
    hour_->SetListIndex(0);
    minute_->AddItem(FirstMinuteItem());
    minute_->SetListIndex(0);
    EnableReservation(false);
    reserve_->OnClick = [this] { ChkTimeClick(); };
    SetBusy(Boolean::False);
}

void MakeSMSTransport::BuildCounts(QVBoxLayout& body)
{
    const QStringList captions{QStringLiteral("발송 건수"), QStringLiteral("성공 건수"),
                               QStringLiteral("실패 건수"), QStringLiteral("잔여 건수")};
    const std::array<QColor, 4> colors{theme::Text, FromBlueGreenRed(0xC00000), FromBlueGreenRed(0x0000FF),
                                       FromBlueGreenRed(0x363636)};
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    for (int i = 0; i < 4; ++i) {
        numbers_[i] = new Label(&Body(), IndexedName(u"LblSendSMS", i), QStringLiteral("0"));
        numbers_[i]->SetTextColor(colors[static_cast<std::size_t>(i)]);
        numbers_[i]->SetBold(true);
        numbers_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        auto* caption = new Label(&Body(), IndexedName(u"Label1", i), captions[i]);
        if (i == Total)
            totalCaption_ = caption;
        grid->addWidget(caption, i, 0);
        grid->addWidget(numbers_[i], i, 1);
        grid->addWidget(new Label(&Body(), IndexedName(u"Label1", i + 4), QStringLiteral("건")), i, 2);
    }
    body.addLayout(grid);
    status_ = new Label(&Body(), QStringLiteral("lblStatus"),
                        QStringLiteral("총 발송건수 : 0건 / 현 발송 건수 0건"));
    bar_ = new ProgressBar(&Body(), QStringLiteral("PB"));
    DescribeBy(*bar_, QStringLiteral("진행상태"));
    body.addWidget(status_);
    body.addWidget(bar_);
}

void MakeSMSTransport::BuildReservation(QVBoxLayout& body)
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
    body.addLayout(row);
}

void MakeSMSTransport::SetTotal(std::int32_t recipients)
{
    const QString total = QString::number(recipients);
    const int lastRow = source_ ? source_->recipients.Rows() : recipients; // empty rows count as done
    ShowTotal(recipients, DispatchStatus(total, FormatCount(lastRow)));
    status_->SetCaption(DispatchStatus(total, QStringLiteral("0")));
}

void MakeSMSTransport::PrepareCancellation(std::int32_t messages)
{
    RunMode = CancelMode.toString();
    reserve_->hide();
    const QString total = QString::number(messages);
    ShowTotal(messages, CancelStatus(total, FormatCount(messages)));
    Button(0)->SetCaption(QStringLiteral("취소하기"));
    status_->SetCaption(CancelStatus(total, QStringLiteral("0")));
}

/// The status line gets the width of its last words now: during the run it keeps its place.
void MakeSMSTransport::ShowTotal(std::int32_t count, const QString& lastStatus)
{
    numbers_[Total]->Tag = QString::number(count);
    numbers_[Total]->SetCaption(numbers_[Total]->Tag);
    status_->setMinimumWidth(status_->fontMetrics().horizontalAdvance(lastStatus));
}

void MakeSMSTransport::setVisible(bool visible)
{
    if (visible && !shown_ && RunMode == CancelMode)
        TurnIntoCancellation();
    shown_ = shown_ || visible;
    DialogForm::setVisible(visible);
}

void MakeSMSTransport::TurnIntoCancellation()
{
    SetCaption(QStringLiteral("문자메시지 예약취소"));
    SetTitle(QStringLiteral("문자메시지 예약취소"));
    totalCaption_->SetCaption(QStringLiteral("취소 건수"));
    for (QWidget* control : std::initializer_list<QWidget*>{reserve_, date_, hour_, minute_})
        control->hide();
    Button(0)->SetCaption(QStringLiteral("예약취소"));
}

void MakeSMSTransport::ChkTimeClick()
{
    if (IsBusy())
        return;
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
    // The lists are not cleared first: each tick adds the same items again, as it is meant.
    for (const QString& item : HourItems())
        hour_->AddItem(item);
    for (const QString& item : MinuteItems())
        minute_->AddItem(item);
    const QDateTime now = services_.clock.Now();
    hour_->SetListIndex(SuggestedHourIndex(now));
    minute_->SetListIndex(SuggestedMinuteIndex(now));
}

ChosenTime MakeSMSTransport::Chosen()
{
    return {date_->Value(), hour_->Text(), minute_->Text()};
}

/// A failed row takes Busy away from the run, and a press that comes from no key and no mouse, as a screen
/// reader's does, is kept back by no box: nothing else begins from the first press to the last box.
bool MakeSMSTransport::IsBusy() const
{
    return running_ || !IsLoaded() || DialogForm::IsBusy();
}

void MakeSMSTransport::OnButton(int index)
{
    if (index != 0) {
        Unload();
        return;
    }
    const QScopedValueRollback running(running_, true);
    if (RunMode.isEmpty() && source_)
        Send();
    else if (RunMode == CancelMode && sent_)
        Cancel();
}

void MakeSMSTransport::Send()
{
    if (!ReservationPasses())
        return;
    LoadSMSSetup(services_.session, services_.db);
    if (!BalanceCovers())
        return;
    DispatchRun run(services_.session, services_.db, services_.sms, source_->recipients, *this);
    run.RunSend({source_->message(), source_->senderNumber(),
                 reserve_->Value() ? ReservationText(Chosen()) : QString()});
    Unload();
    TellOutcome(run.CountOK);
}

bool MakeSMSTransport::ReservationPasses()
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

bool MakeSMSTransport::BalanceCovers()
{
    if (ToLong(TotalText()) <= services_.session.SMSRemainCnt)
        return true;
    ShowShortageBox(services_.desktop, services_.session);
    return false;
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

void MakeSMSTransport::Cancel()
{
    CancelRun run(services_.db, services_.sms, *sent_, *this);
    run.RunCancel();
    Unload();
    TellCancelOutcome(run.CountOK);
}

void MakeSMSTransport::TellCancelOutcome(std::int32_t countOK)
{
    if (countOK < 1) {
        ShowNothingCancelledBox(services_.desktop);
        return;
    }
    RefreshBalanceLabel(services_.session, services_.db);
    services_.desktop.MsgBox(QStringLiteral("정상적으로 문자 메시지를 발송 취소 하였습니다."),
                             MsgBoxInformation, QStringLiteral("문자메시지 취소 완료!!!"));
}

void MakeSMSTransport::SetRunBusy(bool busy)
{
    SetBusy(ToBooleanValue(busy));
    reserve_->setEnabled(!busy);
    EnableReservation(!busy && reserve_->Value());
    SetUsable(!busy);
    if (!busy)
        return;
    // They change with each row: on a ground of their own and in a fixed place that draws nothing else anew.
    for (Label* label : {numbers_[Succeeded], numbers_[Failed], status_}) {
        label->SetBackColor(theme::Page);
        label->KeepSize();
    }
}

QString MakeSMSTransport::TotalText() const
{
    return numbers_[Total]->Caption();
}

void MakeSMSTransport::SetBarMaximum(int maximum)
{
    bar_->SetMax(maximum);
}

void MakeSMSTransport::SetBarValue(int value)
{
    bar_->SetValue(value);
    bar_->Refresh();
}

void MakeSMSTransport::ShowCounts(const QString& succeeded, const QString& failed)
{
    numbers_[Succeeded]->SetCaption(succeeded);
    numbers_[Succeeded]->Refresh();
    numbers_[Failed]->SetCaption(failed);
    numbers_[Failed]->Refresh();
}

void MakeSMSTransport::ShowStatus(const QString& text)
{
    status_->SetCaption(text);
    status_->Refresh();
}

} // namespace tsms

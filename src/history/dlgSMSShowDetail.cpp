#include "history/dlgSMSShowDetail.h"

#include "compose/ComposeBoxes.h"
#include "gateway/ModSMS.h"
#include "history/ReservedTest.h"
#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/WrappedLabel.h"
#include "toolkit/look/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace tsms {

namespace {

enum Value : std::size_t { StatusWord, RecipientName, RecipientPhone, SendTime, FailureText };

constexpr QStringView Reserved = u"예약중";
constexpr QSize PhoneSize(190, 220);
constexpr int ValueWidth = 230;

DialogFrame Frame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("dlgSMSShowDetail");
    frame.caption = QStringLiteral("문자메시지 상세보기");
    frame.title = QStringLiteral("문자메시지 상세보기");
    frame.titleLabel = QStringLiteral("lblTitle(1)");
    frame.buttonBase = QStringLiteral("BtnSendS");
    frame.buttons = {QStringLiteral("예약취소"), QStringLiteral("취소(ESC)")};
    return frame;
}

} // namespace

dlgSMSShowDetail::dlgSMSShowDetail(Services& services, std::function<void()> searchAgain, QWidget* owner)
    : DialogForm(services.session, services.desktop, Frame(), owner),
      services_(services),
      searchAgain_(std::move(searchAgain))
{
    auto* heading = new Label(&Body(), QStringLiteral("lblHeading"),
                              QStringLiteral("문자메시지 보낸 내역을 확인하실수가 있습니다."));
    heading->SetTextColor(theme::Faint);
    auto* notice = new Label(&Body(), QStringLiteral("lblNotice"),
                             QStringLiteral("예약취소는 발송 1일전까지만 가능합니다."));
    notice->SetTextColor(theme::Faint);
    auto* fields = new QVBoxLayout;
    BuildFields(*fields);
    fields->addStretch(1);
    fields->addWidget(notice);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(BuildPhone());
    row->addLayout(fields, 1);
    BodyLayout().addWidget(heading);
    BodyLayout().addLayout(row);
    // A message is opened to be read: nothing calls for withdrawing it, and Enter closes it.
    Button(0)->SetLook(PushButton::Look::Plain);
    Button(1)->setFocus(Qt::OtherFocusReason);
}

QWidget* dlgSMSShowDetail::BuildPhone()
{
    auto* phone = new QScrollArea(&Body());
    phone->setFixedSize(PhoneSize);
    phone->setWidgetResizable(true);
    phone->setFrameShape(QFrame::NoFrame);
    phone->setFocusPolicy(Qt::NoFocus);
    phone->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    content_ = new WrappedLabel(phone, QStringLiteral("LblTmpContent"));
    content_->SetBackColor(theme::Phone);
    content_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    content_->setContentsMargins(12, 12, 12, 12);
    phone->setWidget(content_);
    return phone;
}

void dlgSMSShowDetail::BuildFields(QVBoxLayout& column)
{
    const QStringList titles{QStringLiteral("전송상태"), QStringLiteral("받는사람"),
                             QStringLiteral("수신번호"), QStringLiteral("보낸시간")};
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    for (int i = 0; i < static_cast<int>(values_.size()); ++i) {
        auto* value = new WrappedLabel(&Body(), IndexedName(u"LblSendSMS", i));
        value->setFixedWidth(ValueWidth);
        values_[static_cast<std::size_t>(i)] = value;
        grid->addWidget(value, i, 1);
        if (i < titles.size())
            grid->addWidget(new Label(&Body(), IndexedName(u"Label1", i), titles[i]), i, 0, Qt::AlignTop);
    }
    values_[StatusWord]->SetBold(true);
    values_[FailureText]->SetTextColor(theme::Warning);
    column.addLayout(grid);
}

void dlgSMSShowDetail::Sp_SMSDeTail(std::int32_t key, const QString& period)
{
    if (IsBusy())
        return;
    ReportingErrors(services_.db, [&] {
        services_.session.Busy = true;
        WithDatabase(services_.db, [&] {
            values_[StatusWord]->SetCaption(QString());
            values_[StatusWord]->Tag.clear();
            services_.db.Select(DetailStatement(key, period), [this](const Recordset& row) {
                if (row.RecordCount() > 0)
                    Fill(row);
            });
        });
        services_.session.Busy = false;
    });
}

void dlgSMSShowDetail::Fill(const Recordset& row)
{
    const auto field = [&row](QStringView name) { return Trim(row.Field(name)); };
    content_->SetCaption(field(u"SMSContent"));
    content_->Tag = field(u"SMSNo");
    values_[StatusWord]->SetCaption(field(u"SMSStatus"));
    values_[StatusWord]->Tag = field(u"SMSKey");
    values_[RecipientName]->SetCaption(field(u"SendNm"));
    values_[RecipientPhone]->SetCaption(field(u"SendTelNo"));
    values_[SendTime]->SetCaption(field(u"SendTime"));
    if (!row.IsNull(u"ErrMsg"))
        values_[FailureText]->SetCaption(field(u"ErrMsg") + QStringLiteral("(") + field(u"ErrCd") +
                                         QStringLiteral(")"));
    // Meant to come last: where the day cannot be read, the word of the query stays and is refused.
    values_[StatusWord]->SetCaption(
        ShownStatus(field(u"SMSStatus"), field(u"SendTime"), services_.clock.Date()));
}

void dlgSMSShowDetail::OnButton(int index)
{
    if (index != 0)
        Unload();
    else
        BtnCancelClick();
}

bool dlgSMSShowDetail::KeyDown(int key, Qt::KeyboardModifiers shift)
{
    const bool copies = key == Qt::Key_C && shift == Qt::ControlModifier;
    if (!copies)
        return DialogForm::KeyDown(key, shift);
    if (const QString selected = WrappedLabel::SelectedIn(*this); !selected.isEmpty())
        QApplication::clipboard()->setText(selected);
    return true;
}

void dlgSMSShowDetail::BtnCancelClick()
{
    if (values_[StatusWord]->Caption() != Reserved) {
        services_.desktop.MsgBox(
            QStringLiteral("이미 전송을 완료 하였거나 전송실패된  문자메시지는 예약취소를 하실수가 "
                           "없습니다.!!!"),
            MsgBoxCritical, QStringLiteral("문자메시지 예약취소"));
        return;
    }
    const bool isDone = Cancel();
    Unload();
    if (isDone)
        services_.desktop.MsgBox(QStringLiteral("정상적으로 문자메시지 예약취소를 완료하였습니다.!!"),
                                 MsgBoxInformation, QStringLiteral("문자메시지 예약취소"));
    else
        ShowNothingCancelledBox(services_.desktop);
    searchAgain_();
}

/// True when the gateway agreed and the credit is written.
bool dlgSMSShowDetail::Cancel()
{
    return WithDatabase(services_.db, [this] {
        services_.sms.InitWithRetry();
        const bool isDone = services_.sms.WithdrawSMS(values_[StatusWord]->Tag, content_->Tag,
                                                      Trim(values_[SendTime]->Caption()).left(4), QString(),
                                                      QString(), QString()) &&
                            services_.db.ExecuteSQL(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1");
        services_.sms.ReleaseSOAP();
        return isDone;
    });
}

Statement DetailStatement(std::int32_t key, const QString& period)
{
    Statement query(u"SELECT ");
    query.Own(u" SMSKey, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE (CASE WHEN SMSStatus ='1' THEN "
              u"'전송성공' ELSE '전송실패' END) END) AS SMSStatus, SMSNo, SendNm,SendTelNo,");
    query.Own(u" SMSContent,SendTime,ErrCd,ErrMsg ");
    query.Own(u" FROM SMSLog_").Bare(period).Own(u" WHERE SMSKey=").Own(QString::number(key));
    return query;
}

QString ShownStatus(const QString& word, const QString& sendTime, QDate today)
{
    if (word != QStringView(u"전송성공"))
        return word;
    return IsReserved(sendTime, today) ? Reserved.toString() : QStringLiteral("전송완료");
}

} // namespace tsms

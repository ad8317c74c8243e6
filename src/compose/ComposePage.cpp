#include "compose/ComposePage.h"

#include "compose/ComposeBoxes.h"
#include "compose/Draft.h"
#include "compose/MakeSMSTransport.h"
#include "compose/MessageCounter.h"
#include "compose/MessageScreen.h"
#include "compose/Preflight.h"
#include "runtime/Desktop.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "store/LoadSMSSetup.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/PastedRows.h"
#include "toolkit/grid/RowsOnView.h"
#include "toolkit/look/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int PhoneWidth = 330;       // room for six syllables in the name column
constexpr int RowsOnView = 13;        // of the list, none of them cut
constexpr int LeastRows = 5;          // of the list, on a small screen
constexpr int SenderNumberLimit = 13; // bytes

} // namespace

ComposePage::ComposePage(Services& services, Window window, const MakeCards& makeCards, QWidget* parent)
    : Panel(parent, IndexedName(u"PlToolBg", 0)),
      services_(services),
      textHelper_(services.desktop),
      window_(std::move(window))
{
    SetBackColor(theme::Page);
    auto* page = new QHBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(14);
    page->addWidget(BuildPhone());
    auto* right = new QVBoxLayout;
    right->setSpacing(10);
    right->addWidget(makeCards(this), 1);
    right->addWidget(BuildNotes());
    page->addLayout(right, 1);
}

QWidget* ComposePage::BuildPhone()
{
    auto* phone = new Panel(this, QStringLiteral("PlPhone"), Panel::Border::Line);
    phone->setFixedWidth(PhoneWidth);
    auto* column = new QVBoxLayout(phone);
    column->setContentsMargins(12, 10, 12, 12);
    column->setSpacing(6);
    BuildMessage(*column, *phone);
    BuildRecipients(*column, *phone);
    BuildSender(*column, *phone);
    return phone;
}

void ComposePage::BuildMessage(QVBoxLayout& phone, QWidget& parent)
{
    auto* heading = new Label(&parent, IndexedName(u"Label2", 0), QStringLiteral("문자메시지 전송창"));
    heading->SetBold(true);
    // In line with the heading of the cards, which has a list beside it.
    heading->setMinimumHeight(theme::ControlHeight(heading->fontMetrics()));
    message_ = new MemoBox(&parent, QStringLiteral("TxtPerSendMsg"));
    DescribeBy(*message_, QStringLiteral("문자메시지 내용"));
    message_->SetBackColor(theme::Phone);
    message_->SetImeMode(ImeMode::Hangul);
    message_->SetByteLimit(MessageLimit);
    message_->setMinimumHeight(110);
    phone.addWidget(heading);
    phone.addWidget(new MessageScreen(*message_, QStringLiteral("PlPerSendMsg"), &parent), 1);
    phone.addWidget(new MessageCounter(*message_, {BytesMeasure, MessageLimit},
                                       QStringLiteral("LblPerSendMsg"), QStringLiteral("LblPerSendCnt"),
                                       &parent));
}

void ComposePage::BuildRecipients(QVBoxLayout& phone, QWidget& parent)
{
    const QStringList captions{QStringLiteral("주소록"), QStringLiteral("엑셀파일"),
                               QStringLiteral("비우기")};
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new PushButton(&parent, IndexedName(u"BtnFuncMain", i), captions[i]);
        button->OnClick = WhenIdle(services_.session, [this, i] { BtnFuncMainClick(i); });
        buttons->addWidget(button, 1);
    }
    grid_ = Named(new fpSpread(&parent), QStringLiteral("fpSpread"));
    recipients_ = std::make_unique<GridRecipientList>(*grid_);
    DescribeBy(*grid_, QStringLiteral("받는사람 목록"));
    grid_->SetFillWidth(true);
    grid_->OnKeyPress = [this](int& key) {
        if (key != '\r')
            return;
        recipients_->WalkOnEnter();
        key = 0;
    };
    grid_->OnTabInto = [this] { recipients_->GoToFreeName(); };
    grid_->OnPaste = [this](const QString& text) { return RecipientPaste(text); };
    connect(grid_, &fpSpread::Click, this, [this](int column) {
        if (column == GridRecipientList::RemoveColumn)
            RaiseEvent(*grid_, WhenIdle(services_.session, [this] { recipients_->RemoveActive(); }));
    });
    phone.addLayout(buttons);
    phone.addWidget(grid_, 100); // all its rows come before more of the message
}

void ComposePage::BuildSender(QVBoxLayout& phone, QWidget& parent)
{
    senderNumber_ = new TextBox(&parent, QStringLiteral("txtSendNo"));
    senderNumber_->OnGotFocus = [this] { textHelper_.SelectField(*senderNumber_); };
    senderNumber_->SetFilter(KeepPhoneCharacters);
    senderNumber_->SetByteLimit(SenderNumberLimit);
    senderNumber_->OnKeyPress = [this](char16_t& key) { SendNoKeyPress(key); };
    auto* number = new QHBoxLayout;
    number->setSpacing(8);
    auto* caption = new Label(&parent, QStringLiteral("Label1"), QStringLiteral("보내는사람"));
    caption->Describes(*senderNumber_);
    number->addWidget(caption);
    number->addWidget(senderNumber_, 1);

    auto* send = new PushButton(&parent, IndexedName(u"BtnSend", 0), QStringLiteral("발송"),
                                PushButton::Look::Primary);
    auto* close = new PushButton(&parent, IndexedName(u"BtnSend", 1), QStringLiteral("닫기"));
    send->OnClick = WhenIdle(services_.session, [this] { Send(); });
    close->OnClick = WhenIdle(services_.session, [this] { window_.close(); });
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    buttons->addWidget(send, 2);
    buttons->addWidget(close, 1);

    phone.addLayout(number);
    phone.addLayout(buttons);
}

QWidget* ComposePage::BuildNotes()
{
    const QStringList notes{
        QStringLiteral("총 80 Bytes 단문 문자메세지 전송창입니다. "),
        QStringLiteral("한글은 2Bytes, 영문,숫자 1 Bytes로 책정이 됩니다."),
        QStringLiteral("수신전화번호 입력시 '-' 를 입력하셔도 무방합니다."),
        QStringLiteral("문구자동변환 : [받는사람]은 수신성명으로 자동변환 되어 발송됩니다."),
        QStringLiteral("문자충전후 반드시 요금현황에서 충전내역을 등록하여 주십시오."),
    };
    return MakeNotes(*this, QStringLiteral("PlNotes"), u"Label3", notes);
}

void ComposePage::Load()
{
    recipients_->Reset();
    grid_->setMaximumHeight(HeightOfRows(*grid_, RowsOnView));
    grid_->setMinimumHeight(HeightOfRows(*grid_, LeastRows));
    ResetSenderNumber();
}

void ComposePage::FocusMessage()
{
    message_->SetFocus();
}

void ComposePage::ResetSenderNumber()
{
    senderNumber_->SetText(services_.session.SMSTelNo);
}

void ComposePage::BtnFuncMainClick(int index)
{
    switch (index) {
    case 0:
        window_.openAddressBook();
        break;
    case 1:
        window_.openImport();
        break;
    default:
        recipients_->Reset();
        break;
    }
}

void ComposePage::Send()
{
    grid_->CommitEdit(); // on desks where a click on a button does not take the focus
    LoadSMSSetup(services_.session,
                 services_.db); // whatever it answers: the checks see what the session holds
    const Draft draft{*recipients_, recipients_->Count(), message_->Text(), senderNumber_->Text()};
    const Verdict verdict = Preflight(services_.session, draft);
    if (verdict.isBalanceZero)
        ShowChargeBox(services_.desktop, services_.session);
    if (verdict.refusal == Refusal::None)
        MakeSMSTransport(services_, draft).ShowModal();
    else
        Refuse(verdict.refusal);
}

/// What is to be mended gets the focus.
void ComposePage::Refuse(Refusal refusal)
{
    ShowRefusal(services_.desktop, services_.session, refusal);
    if (refusal == Refusal::NoMessage)
        message_->SetFocus();
    else if (refusal == Refusal::NoRecipients)
        grid_->setFocus(Qt::OtherFocusReason);
    else if (refusal == Refusal::NoSenderNumber || refusal == Refusal::ShortSenderNumber)
        senderNumber_->SetFocus();
}

void ComposePage::SendNoKeyPress(char16_t& key)
{
    FilterNumberKey(key);
    if (key != u'\r')
        return;
    key = 0;
    if (IsBlank(senderNumber_->Text()))
        services_.desktop.MsgBox(QStringLiteral("회신 전화번호를 입력하여 주십시오."), MsgBoxCritical,
                                 QStringLiteral("문자메시지 전송"));
}

/// A block of a spreadsheet fills rows; anything else goes into its cell.
bool ComposePage::RecipientPaste(const QString& text)
{
    const QList<QStringList> rows = PastedRows(text);
    if (!IsBlock(rows) || grid_->ActiveCol() == GridRecipientList::RemoveColumn)
        return false;
    recipients_->Paste(rows);
    return true;
}

} // namespace tsms

#include "compose/SendPreflight.h"

#include "compose/ComposeBoxes.h"
#include "compose/MakeSMSTransport.h"
#include "recipients/RecipientList.h"
#include "runtime/Desktop.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/LoadSMSSetup.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"

namespace tsms {

namespace {

constexpr int SenderNumberLength = 9;

} // namespace

SendPreflight::SendPreflight(Services& services, MemoBox& message, fpSpread& grid,
                             const RecipientList& recipients, TextBox& senderNumber)
    : services_(services),
      message_(message),
      grid_(grid),
      recipients_(recipients),
      senderNumber_(senderNumber)
{
}

void SendPreflight::Run()
{
    LoadSMSSetup(services_.session,
                 services_.db); // whatever it answers: the checks see what the session holds
    if (!AccountIsOpen())
        return;
    OfferChargeWhenEmpty();
    if (!MessageIsThere() || !RecipientsAreThere() || !SenderNumberIsGood())
        return;
    const std::int32_t recipients = recipients_.Count();
    if (BalanceCovers(recipients))
        HandOver(recipients);
}

bool SendPreflight::AccountIsOpen()
{
    const Session& session = services_.session;
    if (!IsBlank(session.SMSID) && !IsBlank(session.SMSPWD) && !IsBlank(session.SMSDNS))
        return true;
    ShowSignUpBox(services_.desktop, session);
    return false;
}

void SendPreflight::OfferChargeWhenEmpty()
{
    // This does not stop the click: with recipients, the shortage box follows it.
    if (services_.session.SMSRemainCnt == 0)
        ShowChargeBox(services_.desktop, services_.session);
}

void SendPreflight::Refuse(const char16_t* words)
{
    services_.desktop.MsgBox(QString::fromUtf16(words), MsgBoxCritical, QStringLiteral("문자메시지"));
}

bool SendPreflight::MessageIsThere()
{
    if (!IsBlank(message_.Text()))
        return true;
    Refuse(u"문자메시지 내용을 입력하여 주십시오.");
    message_.SetFocus();
    return false;
}

bool SendPreflight::RecipientsAreThere()
{
    if (recipients_.Filled() > 0) // removed rows count here, unlike in the total
        return true;
    Refuse(u"문자메시지를 받는사람 번호를 입력하여 주십시오.");
    grid_.setFocus(Qt::OtherFocusReason);
    return false;
}

bool SendPreflight::SenderNumberIsGood()
{
    const QString number = Trim(senderNumber_.Text());
    if (number.size() >= SenderNumberLength)
        return true;
    Refuse(number.isEmpty() ? u"문자메시지를 보내는 사람번호를 입력하여 주십시오."
                            : u"올바른 보내는 사람번호를 입력하여 주십시오.");
    senderNumber_.SetFocus();
    return false;
}

bool SendPreflight::BalanceCovers(std::int32_t recipients)
{
    if (recipients <= services_.session.SMSRemainCnt)
        return true;
    ShowShortageBox(services_.desktop, services_.session);
    return false;
}

void SendPreflight::HandOver(std::int32_t recipients)
{
    MakeSMSTransport dialog(services_, {recipients_, [this] { return message_.Text(); },
                                        [this] { return senderNumber_.Text(); }});
    dialog.RunMode.clear();
    dialog.SetTotal(recipients);
    dialog.ShowModal();
}

} // namespace tsms

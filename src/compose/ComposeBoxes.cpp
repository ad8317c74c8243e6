#include "compose/ComposeBoxes.h"

#include "compose/Preflight.h"
#include "runtime/Desktop.h"
#include "runtime/Text.h"
#include "session/Session.h"

namespace tsms {

namespace {

void ShowMissing(Desktop& desktop, const QString& words)
{
    desktop.MsgBox(words, MsgBoxCritical, QStringLiteral("문자메시지"));
}

} // namespace

void ShowSignUpBox(Desktop& desktop, const Session& session)
{
    desktop.MsgBox(QStringLiteral("문자메시지 서비스 가입이 되질 않았거나 환경설정에 문자메시지 개통정보를 "
                                  "입력하지 않았습니다.!\r\n\r\n"
                                  "문자메시지 가입 사이트로 이동합니다. 확인을 누르시면 해당 페이지가 오픈이 "
                                  "됩니다.!!"),
                   MsgBoxCritical, QStringLiteral("문자메시지!!!"));
    desktop.OpenPage(session.SMSWeb1);
}

void ShowChargeBox(Desktop& desktop, const Session& session)
{
    desktop.MsgBox(QStringLiteral("문자메시지 발송가능 건수가 없습니다. 충전하여 주십시오.!!!\r\n\r\n"
                                  "만약 충전을 하셨다면 요금현황에서 충전내역을 등록하시길 바랍니다.\r\n\r\n"
                                  "확인을 누르시면 충전 페이지가 오픈이 됩니다.!!"),
                   MsgBoxCritical, QStringLiteral("문자메시지 충전"));
    desktop.OpenPage(session.SMSWeb2);
}

void ShowShortageBox(Desktop& desktop, const Session& session)
{
    desktop.MsgBox(
        QStringLiteral(
            "문자메시지 발송을 위한 발송잔여건수가 부족합니다. 추가 충전 후 사용하여 주십시오.\r\n\r\n"
            "추가 충전 후 정상적인 문자메시지 발송을 위해 재실행하여 사용해 주시기 바랍니다.\r\n\r\n"
            "확인을 누르시면 충전 페이지가 오픈이 됩니다.!!"),
        MsgBoxExclamation, QStringLiteral("경고 - 문자메세지 잔여건수 부족"));
    desktop.OpenPage(session.SMSWeb2);
}

void ShowRefusal(Desktop& desktop, const Session& session, Refusal refusal)
{
    switch (refusal) {
    case Refusal::NoAccount:
        ShowSignUpBox(desktop, session);
        break;
    case Refusal::NoMessage:
        ShowMissing(desktop, QStringLiteral("문자메시지 내용을 입력하여 주십시오."));
        break;
    case Refusal::NoRecipients:
        ShowMissing(desktop, QStringLiteral("문자메시지를 받는사람 번호를 입력하여 주십시오."));
        break;
    case Refusal::NoSenderNumber:
        ShowMissing(desktop, QStringLiteral("문자메시지를 보내는 사람번호를 입력하여 주십시오."));
        break;
    case Refusal::ShortSenderNumber:
        ShowMissing(desktop, QStringLiteral("올바른 보내는 사람번호를 입력하여 주십시오."));
        break;
    case Refusal::Shortage:
        ShowShortageBox(desktop, session);
        break;
    case Refusal::None:
        break;
    }
}

void ShowNothingCancelledBox(Desktop& desktop)
{
    desktop.MsgBox(QStringLiteral("이미 전송이 되었거나 발송된 내역이 없는 문자메시지입니다."),
                   MsgBoxCritical, QStringLiteral("문자메시지 취소 실패!!!"));
}

void CheckAccountAtLoad(Desktop& desktop, const Session& session)
{
    if (IsBlank(session.SMSID))
        ShowSignUpBox(desktop, session);
    else if (session.SMSRemainCnt == 0)
        ShowChargeBox(desktop, session);
}

} // namespace tsms

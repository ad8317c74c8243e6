#include "compose/DispatchRun.h"

#include "compose/Placeholders.h"
#include "compose/RunDisplay.h"
#include "compose/RunFrame.h"
#include "gateway/ModSMS.h"
#include "recipients/MobileNumber.h"
#include "recipients/RecipientList.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "store/engine/Statement.h"

namespace tsms {

DispatchRun::DispatchRun(Session& session, DBConnect& db, ModSMS& sms, const RecipientList& recipients,
                         RunDisplay& display)
    : session_(session), db_(db), sms_(sms), recipients_(recipients), display_(display)
{
}

void DispatchRun::RunSend(const DispatchOrder& order)
{
    CountOK = 0;
    CountFail = 0;
    done_ = 0;
    InRunFrame(db_, sms_, display_, [&] { SendAllRows(order); });
}

void DispatchRun::SendAllRows(const DispatchOrder& order)
{
    const int lastRow = recipients_.Rows();
    for (int row = 1; row <= lastRow; ++row) {
        if (!recipients_.IsRemoved(row)) {
            SendRow(row, order);
            ShowDone();
        }
        display_.SetBarValue(row);
    }
    DebitBalance();
}

void DispatchRun::SendRow(int row, const DispatchOrder& order)
{
    const QString phone = Trim(recipients_.Phone(row));
    if (!IsMobileNumber(phone))
        return;
    const QString name = Trim(recipients_.Name(row));
    const QString text = WithRecipient(WithSender(order.message, session_.SMSOrgNm), name);
    const Boolean accepted = sms_.SubmitSMS(name, phone, order.senderNumber, text, order.reservation,
                                            QString(), QString(), QString());
    if (accepted == Boolean::True)
        ++CountOK;
    else
        ++CountFail;
    display_.ShowCounts(FormatCount(CountOK), FormatCount(CountFail));
}

void DispatchRun::ShowDone()
{
    ++done_;
    display_.ShowStatus(DispatchStatus(display_.TotalText(), FormatCount(done_)));
}

void DispatchRun::DebitBalance()
{
    if (CountOK > 0)
        db_.ExecuteSQL(
            Statement(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - ").Own(QString::number(CountOK)));
}

QString DispatchStatus(const QString& total, const QString& done)
{
    return QStringLiteral("총 발송건수 : ") + total + QStringLiteral("건 / 현 발송 건수 : ") + done +
           QStringLiteral("건");
}

} // namespace tsms

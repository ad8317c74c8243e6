#include "compose/DispatchRun.h"

#include "compose/Placeholders.h"
#include "compose/RunDisplay.h"
#include "compose/RunFrame.h"
#include "gateway/ModSMS.h"
#include "runtime/MobileNumber.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "store/engine/Statement.h"

namespace tsms {

DispatchRun::DispatchRun(Session& session, DBConnect& db, ModSMS& sms, const RecipientRows& rows,
                         RunDisplay& display)
    : session_(session), db_(db), sms_(sms), rows_(rows), display_(display)
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
    const int lastRow = rows_.MaxRows();
    for (int row = 1; row <= lastRow; ++row) {
        if (!rows_.RowHidden(row)) {
            SendRow(row, order);
            ShowDone();
        }
        display_.SetBarValue(row);
    }
    DebitBalance();
}

void DispatchRun::SendRow(int row, const DispatchOrder& order)
{
    const QString phone = Trim(rows_.PhoneText(row));
    if (phone.isEmpty() || !HasMobilePrefix(phone))
        return;
    const QString name = Trim(rows_.NameText(row));
    const QString text = WithRecipient(WithSender(order.message, session_.SMSOrgNm), name);
    if (phone.size() < MobileNumberLength)
        return;
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

#include "compose/DispatchRun.h"

#include "compose/Draft.h"
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

#include <QStringBuilder>

#include <utility>

namespace tsms {

DispatchRun::DispatchRun(Session& session, DBConnect& db, ModSMS& sms, const Draft& draft,
                         RunDisplay& display)
    : session_(session), db_(db), sms_(sms), draft_(draft), display_(display)
{
}

void DispatchRun::RunSend()
{
    CountOK = 0;
    CountFail = 0;
    done_ = 0;
    unshown_ = nullptr;
    InRunFrame(db_, sms_, display_, draft_.total, [&] { SendAllRows(); });
}

void DispatchRun::SendAllRows()
{
    const int lastRow = draft_.recipients.Rows();
    for (int row = 1; row <= lastRow; ++row) {
        const bool isRemoved = draft_.recipients.IsRemoved(row);
        const bool isSent = !isRemoved && SendRow(row);
        ShowNow();
        done_ += isRemoved ? 0 : 1;
        unshown_ = [=, this] {
            if (isSent)
                ShowCounts();
            if (!isRemoved)
                ShowDone();
            display_.SetBarValue(row);
        };
    }
    ShowNow();
    DebitBalance();
}

bool DispatchRun::SendRow(int row)
{
    const QString phone = Trim(draft_.recipients.Phone(row));
    if (!IsMobileNumber(phone))
        return false;
    const QString name = Trim(draft_.recipients.Name(row));
    const QString text = WithRecipient(WithSender(draft_.message, session_.SMSOrgNm), name);
    const bool accepted = sms_.SubmitSMS(name, phone, draft_.senderNumber, text, draft_.reservation,
                                         QString(), QString(), QString(), [this] { ShowNow(); });
    if (!accepted)
        ++CountFail;
    else if (++CountOK == 1)
        db_.ExpectChanges(draft_.total - done_ - 1);
    return true;
}

void DispatchRun::ShowCounts()
{
    display_.ShowCounts(FormatCount(CountOK), FormatCount(CountFail));
}

void DispatchRun::ShowDone()
{
    display_.ShowStatus(DispatchStatus(draft_.total, FormatCount(done_)));
}

/// A row is shown while the answer of the next one is on its way: drawing costs the run no time.
void DispatchRun::ShowNow()
{
    if (const std::function<void()> row = std::exchange(unshown_, nullptr))
        row();
}

void DispatchRun::DebitBalance()
{
    if (CountOK > 0)
        db_.ExecuteSQL(
            Statement(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - ").Own(QString::number(CountOK)));
}

QString DispatchStatus(std::int32_t total, const QString& done)
{
    return u"총 발송건수 : " % QString::number(total) % u"건 / 현 발송 건수 : " % done % u"건";
}

} // namespace tsms

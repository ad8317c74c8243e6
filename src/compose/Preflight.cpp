#include "compose/Preflight.h"

#include "compose/Draft.h"
#include "recipients/RecipientList.h"
#include "runtime/Text.h"
#include "session/Session.h"

namespace tsms {

namespace {

constexpr int SenderNumberLength = 9;

bool IsAccountOpen(const Session& session)
{
    return !IsBlank(session.SMSID) && !IsBlank(session.SMSPWD) && !IsBlank(session.SMSDNS);
}

Refusal RefusalOf(const Session& session, const Draft& draft)
{
    const QString senderNumber = Trim(draft.senderNumber);
    if (IsBlank(draft.message))
        return Refusal::NoMessage;
    if (draft.recipients.Filled() == 0) // removed rows count here, unlike in the total
        return Refusal::NoRecipients;
    if (senderNumber.isEmpty())
        return Refusal::NoSenderNumber;
    if (senderNumber.size() < SenderNumberLength)
        return Refusal::ShortSenderNumber;
    return CanPayFor(session, draft) ? Refusal::None : Refusal::Shortage;
}

} // namespace

Verdict Preflight(const Session& session, const Draft& draft)
{
    if (!IsAccountOpen(session))
        return {.refusal = Refusal::NoAccount};
    return {session.SMSRemainCnt == 0, RefusalOf(session, draft)};
}

bool CanPayFor(const Session& session, const Draft& draft)
{
    return draft.total <= session.SMSRemainCnt;
}

} // namespace tsms

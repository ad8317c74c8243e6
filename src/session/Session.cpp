#include "session/Session.h"

#include "runtime/Numbers.h"

namespace tsms {

void Session::AnnounceBalance() const
{
    if (BalanceListener)
        BalanceListener();
}

QString BalanceCaption(std::int32_t remain)
{
    return FormatCount(remain) + QStringLiteral("건 남았습니다.");
}

} // namespace tsms

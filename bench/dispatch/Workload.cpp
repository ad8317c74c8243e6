#include "bench/dispatch/Workload.h"

namespace tsms::bench {

QString RecipientName(int row)
{
    return QStringLiteral("교우%1").arg(row);
}

QString RecipientNumber(int row)
{
    return QStringLiteral("010-%1-%2").arg(1000 + row / 100).arg(row % 10000, 4, 10, QLatin1Char('0'));
}

QString MessageTemplate()
{
    return QStringLiteral("[받는사람]님, 이번 주일 오후 2시 & 저녁 7시에 모임이 있습니다.");
}

QString SenderNumber()
{
    return QStringLiteral("02-1234-5678");
}

QString UserData2()
{
    return QStringLiteral("본부");
}

} // namespace tsms::bench

#include "tsms-gateway/GatewayMessage.h"

#include "runtime/Text.h"

#include <QRegularExpression>

namespace tsms {

QDateTime ReservationMoment(const QString& sendTime)
{
    static const QRegularExpression shape(
        QStringLiteral("\\A([0-9]{4}):([0-9]{2}):([0-9]{2}):([0-9]{2}):([0-9]{2})\\z"));
    const QRegularExpressionMatch match = shape.match(Trim(sendTime));
    const auto part = [&](int group) { return match.captured(group).toInt(); };
    const QDate day(part(1), part(2), part(3));
    const bool isMidnight = part(4) == 24 && part(5) == 0;
    const QTime time = isMidnight ? QTime(0, 0) : QTime(part(4), part(5));
    if (!match.hasMatch() || !day.isValid() || !time.isValid())
        return {};
    return QDateTime(isMidnight ? day.addDays(1) : day, time);
}

QJsonObject MessageFields(const GatewayMessage& message)
{
    return {{QStringLiteral("number"), message.Number},
            {QStringLiteral("sender"), message.SenderTelNo},
            {QStringLiteral("receiver"), message.RecvTelNo},
            {QStringLiteral("content"), message.Content},
            {QStringLiteral("sendTime"), message.SendTime}};
}

std::optional<GatewayMessage> ReadMessageFields(const QJsonValue& fields)
{
    for (const QString& name : {QStringLiteral("sender"), QStringLiteral("receiver"),
                                QStringLiteral("content"), QStringLiteral("sendTime")})
        if (!fields[name].isString())
            return std::nullopt;
    GatewayMessage message;
    message.Number = fields[u"number"].toInt();
    message.SenderTelNo = fields[u"sender"].toString();
    message.RecvTelNo = fields[u"receiver"].toString();
    message.Content = fields[u"content"].toString();
    message.SendTime = fields[u"sendTime"].toString();
    if (message.Number < 1 || message.Number > HighestNumber)
        return std::nullopt;
    return message;
}

} // namespace tsms

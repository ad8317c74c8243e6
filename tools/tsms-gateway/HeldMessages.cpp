#include "tsms-gateway/HeldMessages.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace tsms {

QByteArray HeldMessagesJson(const HeldMessages& held)
{
    QJsonArray list;
    for (const GatewayMessage& message : held.Messages)
        list.append(MessageFields(message));
    return QJsonDocument(QJsonObject{{QStringLiteral("lastNumber"), held.LastNumber},
                                     {QStringLiteral("messages"), list}})
        .toJson();
}

std::optional<HeldMessages> ReadHeldMessages(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    HeldMessages held;
    held.LastNumber = document[u"lastNumber"].toInt(-1);
    if (held.LastNumber < 0 || held.LastNumber > HighestNumber || !document[u"messages"].isArray())
        return std::nullopt;
    const QJsonArray list = document[u"messages"].toArray();
    for (const auto& fields : list) {
        const std::optional<GatewayMessage> message = ReadMessageFields(fields);
        if (!message || !ReservationMoment(message->SendTime).isValid())
            return std::nullopt;
        held.Messages += *message;
    }
    return held;
}

} // namespace tsms

#pragma once

#include "tsms-gateway/GatewayMessage.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace tsms {

/// What a gateway that is started anew knows of its earlier life: the reservations it still holds, and how
/// far its numbers had come.
struct HeldMessages
{
    int LastNumber = 0;             ///< the highest number that was given, of any message; 0 for none
    QList<GatewayMessage> Messages; ///< what MessageFields tells of each; the reservation is a moment
};

/// The same as a file: {"lastNumber": 730012, "messages": [{"number": ..., ...}, ...]}, in UTF-8.
QByteArray HeldMessagesJson(const HeldMessages& held);

/// Reads such a file; names that it does not know are passed over. Nothing when it is anything else.
std::optional<HeldMessages> ReadHeldMessages(const QByteArray& json);

} // namespace tsms

#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace tsms {

/// A message as the simulated gateway holds it.
struct GatewayMessage
{
    int Number = 0; ///< the unique_num of its reply
    QString SenderTelNo;
    QString RecvTelNo;
    QString Content;
    QString SendTime;  ///< the reservation as it was given; empty for at once
    QDateTime Arrived; ///< when the call came in
    QDateTime Due;     ///< when the phone gets it
    bool Withdrawn = false;
};

/// The moment of a reservation "YYYY:MM:DD:HH:MM"; hour 24 is the next day's 0. Invalid when it is none.
QDateTime ReservationMoment(const QString& sendTime);

/// Number, sender, receiver, content and reservation under the names that they have in JSON; and back again,
/// where every one is asked for. A number is a whole one from 1 to HighestNumber.
QJsonObject MessageFields(const GatewayMessage& message);
std::optional<GatewayMessage> ReadMessageFields(const QJsonValue& fields);

/// Nine digits: numbers behind it are 32-bit integers still.
inline constexpr int HighestNumber = 999999999;

} // namespace tsms

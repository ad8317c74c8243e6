#pragma once

#include "tsms-gateway/HeldMessages.h"

namespace tsms {

class Connection;

/// The number of a message at the gateway as a log row has it, 0 for a text that is none: digits without a
/// leading 0, from 1 to HighestNumber.
int MessageNumber(const QString& smsNo);

/// The delivery time of a log row, with a blank or without, in the form of a call: "YYYY:MM:DD:HH:MM".
QString ReservationOfLog(const QString& sendTime);

/// What the logs of all years of an embedded database tell a gateway: every message with a number that it did
/// not refuse and whose time is later than `now`, in the order of the logs; and the highest number of any
/// row.
HeldMessages ReadReservations(Connection& connection, const QDateTime& now);

} // namespace tsms

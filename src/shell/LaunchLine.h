#pragma once

#include <QString>

namespace tsms {

struct Session;

/// The character between the fields of the launch line. There is no quoting.
inline constexpr QChar LaunchSeparator(u'\u25A0');

/// Stores the seven fields of a launch line in the session: database, server, port, login, password, the
/// caller's number and the caller's text, all but the number as they stand. Further fields are ignored.
/// Raises 9 when there are fewer than seven, 13 or 6 when the sixth is no number or does not fit 32 bits;
/// fields before the faulty one are stored by then.
void StoreLaunchLine(const QString& line, Session& session);

} // namespace tsms

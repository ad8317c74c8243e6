#pragma once

#include <QString>

namespace tsms {

/// The numbers under which database failures are raised as RuntimeError. Every engine maps its own onto
/// these.
enum DatabaseErrorNumber : long {
    UserNotice = 50000,     ///< an error that the database's owner raises on purpose; shown as a notice
    NoDriver = 3706,        ///< nothing on this machine reaches a server
    ItemNotFound = 3265,    ///< a field that the result does not have
    NoCurrentRecord = 3021, ///< a field read before the first or behind the last record
    CommunicationFailure = -2147467259, ///< no server, no file, a cut link
    LoginRefused = -2147217843,
    IntegrityViolation = -2147217873,
    NoSuchTable = -2147217865,
    PermissionDenied = -2147217911, ///< a right that the log-in has not been granted
    StatementFailure = -2147217900, ///< syntax, and whatever has no number of its own
    CommandTimedOut = -2147217871,
    CannotConvert = -2147217913, ///< a text that is no date or no number where one is needed
    DataOverflow = -2147217833,  ///< a number that its column cannot hold
    BadConnectionText = -2147217805,
};

/// The server's words for a statement that it cannot read from `token` on.
inline QString SyntaxErrorNear(QStringView token)
{
    return QStringLiteral("Incorrect syntax near '%1'.").arg(token);
}

} // namespace tsms

#pragma once

#include "runtime/RuntimeError.h"

#include <QList>
#include <QString>

namespace tsms {

/// One diagnostic record as a driver gives it.
struct OdbcDiagnostic
{
    QString state;   ///< SQLSTATE, five characters
    long native = 0; ///< the server's error number, or one of the driver's own; 0: the driver has none
    QString text;    ///< with the names of driver and source in brackets before it
};

/// What was under way when a call failed.
enum class OdbcPhase {
    Opening, ///< a connection
    Running, ///< a statement
    Cut,     ///< a statement, and the link is dead
};

/// The error that all records of a failed call tell together: the first one that is no mere warning decides,
/// unless a later one tells the cause of it. Its number is taken by the server's error number and, where that
/// tells nothing, by the SQLSTATE; its words are the server's own. A server that does not take the connection
/// in time is one that cannot be reached; a statement that takes too long has timed out.
RuntimeError OdbcError(const QList<OdbcDiagnostic>& records, OdbcPhase phase);

/// True when records that come with a success tell of a failure all the same: FreeTDS fetches the rows in
/// front of an error and has the error beside them.
bool IsFailure(const QList<OdbcDiagnostic>& records);

/// True when a connection failed because the driver itself is not there.
bool IsMissingDriver(const QList<OdbcDiagnostic>& records);

} // namespace tsms

#pragma once

#include <QByteArray>
#include <QString>

namespace tsms {
struct Session;
}

namespace tsms::bench {

/// What a search took and what it found.
struct Search
{
    double nanoseconds = 0; ///< with logging in and out
    qint64 texts = 0;       ///< bytes of all that was found, in UTF-8
    QByteArray digest;      ///< the same for the same texts in the same order
};

/// The whole year through the program's own path: DBConnect, its engine, the recordset.
Search SearchByProgram(Session& session);

/// The same rows by the driver manager alone: the same driver, rows in blocks, their texts laid one behind
/// the other into memory as they come in UTF-16.
Search FetchBare(const Session& session);

/// What the first driver of this machine is told to reach the session's server.
QString DriverText(const Session& session);

} // namespace tsms::bench

#pragma once

#include <QString>

namespace tsms {

/// A database that a user has set up to work on. The password is no part of it.
struct SavedConnection
{
    enum class Kind { File, Server };

    QString id; ///< given once and never shown; the key store keeps the password under it
    QString name;
    Kind kind = Kind::File;
    QString file; ///< of an embedded database
    QString server;
    QString port;
    QString database;
    QString login;
    bool keepsPassword = false;           ///< in the desk's key store
    QString number = QStringLiteral("1"); ///< the caller's number and text of the launch line
    QString text;

    bool IsServer() const { return kind == Kind::Server; }
    bool operator==(const SavedConnection&) const = default;
};

/// Where it leads, in one line: "10.0.0.5,1433 / SmsDb" or the file.
QString PlaceOf(const SavedConnection& connection);

/// What keeps it from being started, in words for the user; empty when nothing does. The password is looked
/// at too.
QString FaultOf(const SavedConnection& connection, const QString& password);

/// The launch line that has the program work on it: its values in quotation marks where a connection text
/// would otherwise end or trim them.
QString LaunchLineOf(const SavedConnection& connection, const QString& password);

/// The connection text that the program makes of that line, with another database in place of its own where
/// one is named.
QString ConnectionTextOf(const SavedConnection& connection, const QString& password,
                         const QString& database = {});

} // namespace tsms

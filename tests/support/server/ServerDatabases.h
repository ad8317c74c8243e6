#pragma once

#include <QMap>
#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace tsms {
class Clock;
}

namespace tsms::test {

/// The database that every server has and that lets everybody in.
inline const QString ServersOwnDatabase = QStringLiteral("master");

/// The databases of a server by their names, which ignore case: the one that it was given, its own one, and
/// those that its clients make, whose files go with it.
class ServerDatabases
{
public:
    ServerDatabases(const QString& name, const QString& path, const Clock& clock);

    /// The file of a database; nothing when there is none of the name.
    std::optional<QString> PathOf(const QString& name) const;

    /// The name as it was given first, whatever its case here.
    QString NameOf(const QString& name) const { return databases_.value(name.toLower()).name; }

    void Create(const QString& name); ///< without tables. Raises the server's error for a name that is taken
    void Drop(const QString& name);   ///< raises the server's error where there is none

private:
    const Clock& clock_;
    QTemporaryDir folder_;
    struct Database
    {
        QString name;
        QString path;
    };

    QMap<QString, Database> databases_; // by the name in lower case
};

} // namespace tsms::test

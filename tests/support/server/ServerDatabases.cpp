#include "support/server/ServerDatabases.h"

#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/engine/DatabaseError.h"

#include <QFile>

namespace tsms::test {

ServerDatabases::ServerDatabases(const QString& name, const QString& path, const Clock& clock)
    : clock_(clock), databases_{{name.toLower(), {name, path}}}
{
    Create(ServersOwnDatabase);
}

std::optional<QString> ServerDatabases::PathOf(const QString& name) const
{
    const auto found = databases_.find(name.toLower());
    return found == databases_.end() ? std::nullopt : std::optional(found->path);
}

void ServerDatabases::Create(const QString& name)
{
    if (PathOf(name))
        throw RuntimeError(
            StatementFailure,
            QStringLiteral("Database '%1' already exists. Choose a different database name.").arg(name));
    const QString path = folder_.filePath(QStringLiteral("%1.db").arg(databases_.size()));
    EmbeddedConnection connection(clock_);
    connection.OpenFile(path, true);
    connection.ExecuteNative(QStringLiteral("PRAGMA journal_mode=WAL"));
    databases_.insert(name.toLower(), {name, path});
}

void ServerDatabases::Drop(const QString& name)
{
    const std::optional<QString> path = PathOf(name);
    if (!path)
        throw RuntimeError(StatementFailure, QStringLiteral("Cannot drop the database '%1', because it does "
                                                            "not exist or you do not have permission.")
                                                 .arg(name));
    QFile::remove(*path);
    databases_.remove(name.toLower());
}

} // namespace tsms::test

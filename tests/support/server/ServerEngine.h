#pragma once

#include "store/embedded/EmbeddedConnection.h"
#include "support/server/ServerBatch.h"
#include "support/server/ServerDatabases.h"
#include "support/server/ServerUsers.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tsms::test {

/// What executes the batches of one connection: the embedded engine on a database file, and the server's
/// manner around it.
class ServerEngine
{
public:
    /// Opens one of the databases for a user, or for its owner, who has no name here. Raises a RuntimeError
    /// when it is not there.
    ServerEngine(ServerDatabases& databases, const QString& name, const Clock& clock, ServerUsers& users,
                 const QString& user);

    /// Runs a batch and gives the tokens of the answer. Nothing when the file is locked by somebody else:
    /// then nothing has happened, and the batch has to be run again. A syntax error keeps the whole batch
    /// from running, any other ends it, and what was done before stands.
    std::optional<QByteArray> Run(const QString& batch);

private:
    QByteArray RunAll(const QList<ServerStatement>& statements);
    QByteArray RunOne(const ServerStatement& statement, bool moreFollows);
    QByteArray Use(const ServerStatement& statement, bool moreFollows) const;
    QByteArray Select(const QString& sql, bool moreFollows);
    QByteArray Change(const ServerStatement& statement, bool moreFollows);
    QByteArray ChangeRights(const QString& sql, bool moreFollows);
    QByteArray Transact(const QString& sql, bool moreFollows);
    void Define(const QString& sql);
    void Truncate(const QString& table);

    void RefuseWithoutRight(const ServerStatement& statement);
    bool HasTable(const QString& name);

    EmbeddedConnection connection_;
    ServerDatabases& databases_;
    QString database_;
    ServerUsers& users_;
    QString user_;           ///< empty for the owner
    bool transacts_ = false; ///< the client has begun a transaction of its own
};

} // namespace tsms::test

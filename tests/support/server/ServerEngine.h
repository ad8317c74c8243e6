#pragma once

#include "store/EmbeddedConnection.h"
#include "support/server/ServerBatch.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tsms::test {

/// What executes the batches of one connection: the embedded engine on a database file, and the server's
/// manner around it.
class ServerEngine
{
public:
    /// Opens the file. `database` is the name under which the server has it.
    ServerEngine(const QString& path, const QString& database, const Clock& clock);

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

    EmbeddedConnection connection_;
    QString database_;
};

} // namespace tsms::test

#include "tsms-start/PrepareDatabase.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedConnection.h"
#include "tsms-start/TableProbe.h"

#include <algorithm>

namespace tsms {

namespace {

QList<TableDescription> MissingTables(Connection& connection, YearRange years)
{
    QList<TableDescription> missing;
    for (const TableDescription& table : AllTables(years))
        if (LookAtTable(connection, table).state == TableState::Missing)
            missing += table;
    return missing;
}

bool IsAmong(const QList<TableDescription>& tables, const QString& name)
{
    return std::any_of(tables.begin(), tables.end(),
                       [&name](const TableDescription& table) { return table.name == name; });
}

} // namespace

QString PreparingScript(Connection& connection, YearRange years, const QString& user)
{
    const QList<TableDescription> missing = MissingTables(connection, years);
    const TableDescription account = AccountTable();
    QString script;
    if (!missing.isEmpty())
        script += ServerTables(missing);
    if (IsAmong(missing, account.name) || !HasRow(connection, account))
        script += ServerAccountRow();
    if (!user.isEmpty())
        script += ServerGrants(user, years);
    return script;
}

QStringList BatchesOf(const QString& script)
{
    QStringList batches;
    QString batch;
    const auto end = [&] {
        if (!batch.trimmed().isEmpty())
            batches += batch;
        batch.clear();
    };
    for (const QString& line : script.split(u'\n')) {
        if (line == u"GO")
            end();
        else
            batch += line + u'\n';
    }
    end();
    return batches;
}

void RunScript(Connection& connection, const QString& script, const std::function<void()>& beforeEach)
{
    connection.Execute(QStringLiteral("BEGIN TRANSACTION"));
    try {
        for (const QString& batch : BatchesOf(script)) {
            beforeEach();
            connection.Execute(batch);
        }
        beforeEach();
        connection.Execute(QStringLiteral("COMMIT TRANSACTION"));
    } catch (...) {
        connection.Close(); // the server takes back what was not committed
        throw;
    }
}

QList<int> MissingLogYears(const QString& file, const Clock& clock)
{
    EmbeddedConnection connection(clock);
    connection.OpenFile(file);
    QList<int> years;
    for (const TableDescription& log : LogsNeededIn(clock.Date().year()))
        if (LookAtTable(connection, log).state == TableState::Missing)
            years += log.name.right(4).toInt();
    return years;
}

} // namespace tsms

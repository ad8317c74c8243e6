#include "tsms-start/TableProbe.h"

#include "runtime/RuntimeError.h"
#include "store/engine/Connection.h"
#include "store/engine/DatabaseError.h"

#include <algorithm>

namespace tsms {

namespace {

QString ReadNothing(const TableDescription& table)
{
    QStringList columns;
    for (const ColumnDescription& column : table.columns)
        columns += column.name;
    return QStringLiteral("SELECT ") + columns.join(QStringLiteral(", ")) + QStringLiteral(" FROM ") +
           table.name + QStringLiteral(" WHERE 1 = 0");
}

/// A column that may be written, and be NULL.
QString WritableColumn(const TableDescription& table)
{
    const auto found =
        std::find_if(table.columns.begin(), table.columns.end(), [](const ColumnDescription& column) {
            return column.type != ColumnType::GeneratedKey && column.type != ColumnType::Key &&
                   !column.required;
        });
    return found->name;
}

/// A statement that needs that right and no other.
QString TryRight(const QString& right, const TableDescription& table)
{
    const QString column = WritableColumn(table);
    if (right == u"SELECT")
        return ReadNothing(table);
    if (right == u"INSERT")
        return QStringLiteral("INSERT INTO %1 (%2) SELECT NULL WHERE 1 = 0").arg(table.name, column);
    if (right == u"UPDATE")
        return QStringLiteral("UPDATE %1 SET %2 = NULL WHERE 1 = 0").arg(table.name, column);
    return QStringLiteral("DELETE FROM %1 WHERE 1 = 0").arg(table.name);
}

/// Begun with it and taken back with it.
class TriedTransaction
{
public:
    explicit TriedTransaction(Connection& connection) : connection_(connection)
    {
        connection_.Execute(QStringLiteral("BEGIN TRANSACTION"));
    }
    TriedTransaction(const TriedTransaction&) = delete;
    TriedTransaction& operator=(const TriedTransaction&) = delete;
    ~TriedTransaction()
    {
        try {
            connection_.Execute(QStringLiteral("ROLLBACK TRANSACTION"));
        } catch (const RuntimeError&) {
            connection_.Close(); // which takes it back as well
        }
    }

private:
    Connection& connection_;
};

bool IsGranted(Connection& connection, const QString& right, const TableDescription& table)
{
    try {
        connection.Execute(TryRight(right, table));
        return true;
    } catch (const RuntimeError& error) {
        if (error.Number != PermissionDenied)
            throw;
        return false;
    }
}

} // namespace

TableFinding LookAtTable(Connection& connection, const TableDescription& table)
{
    try {
        connection.Query(ReadNothing(table));
        return {};
    } catch (const RuntimeError& error) {
        switch (error.Number) {
        case NoSuchTable:
            return {TableState::Missing};
        case PermissionDenied:
            return {TableState::Unreadable};
        case StatementFailure:
            return {TableState::Different, error.Description};
        default:
            throw;
        }
    }
}

QList<TableDescription> LogsNeededIn(int year)
{
    constexpr int LastOfAccountPage = 2020;
    QList<TableDescription> logs{LogTable(year)};
    if (year > LastOfAccountPage)
        logs += LogTable(LastOfAccountPage);
    return logs;
}

bool HasRow(Connection& connection, const TableDescription& table)
{
    return connection.Query(QStringLiteral("SELECT COUNT(*) FROM ") + table.name)->Field(0) != u"0";
}

QStringList MissingRights(Connection& connection, const TableDescription& table)
{
    const TriedTransaction transaction(connection);
    QStringList missing;
    for (const QString& right : table.rights.split(QStringLiteral(", ")))
        if (!IsGranted(connection, right, table))
            missing += right;
    return missing;
}

} // namespace tsms

#pragma once

#include "store/engine/Tables.h"

#include <QStringList>

namespace tsms {

class Connection;

/// What a database has of a table.
enum class TableState {
    There,
    Missing,
    Unreadable, ///< it is there, and the log-in may not read it
    Different,  ///< a column of the program's is missing
};

struct TableFinding
{
    TableState state = TableState::There;
    QString words = {}; ///< of the server, where it is Different
};

/// Reads no row of the table with all columns that the program knows. Raises what tells nothing of the table.
TableFinding LookAtTable(Connection& connection, const TableDescription& table);

/// The logs that the program cannot do without in a year: that year's, and that of 2020, with which its
/// account page opens in any later year.
QList<TableDescription> LogsNeededIn(int year);

/// True when the table can be read and has a row.
bool HasRow(Connection& connection, const TableDescription& table);

/// Those of the table's rights that the log-in has not been granted: "INSERT". Each is tried by a statement
/// that changes no row, in a transaction that is taken back, so that not even a trigger leaves something
/// behind. For a SQL Server, and a table that is there.
QStringList MissingRights(Connection& connection, const TableDescription& table);

} // namespace tsms

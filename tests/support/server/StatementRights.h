#pragma once

#include "support/server/ServerBatch.h"

namespace tsms::test {

/// A right to do one thing with one table.
struct TableRight
{
    QString Action; ///< SELECT, INSERT, UPDATE or DELETE
    QString Table;

    bool operator==(const TableRight&) const = default;
};

/// The rights that a statement needs, each once, in the order in which the statement comes to need them. An
/// UPDATE or a DELETE that reads a column of its table, to compute with it or in its WHERE, needs SELECT too;
/// one that only writes does not, nor does an INSERT of values.
QList<TableRight> RightsFor(const ServerStatement& statement);

/// The rights of a list such as "SELECT, INSERT", for one table.
QList<TableRight> RightsOfList(const QString& actions, const QString& table);

} // namespace tsms::test

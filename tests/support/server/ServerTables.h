#pragma once

#include "store/engine/Tables.h"
#include "support/server/ServerColumn.h"

namespace tsms::test {

/// A table by its name; the log of any year is one. Without columns when there is none of the name.
TableDescription ServerTable(const QString& name);

/// The description of a column; nothing when the table has none of the name.
const ColumnDescription* FindColumn(const TableDescription& table, const QString& name);

ServerType TypeOf(const ColumnDescription& column);

} // namespace tsms::test

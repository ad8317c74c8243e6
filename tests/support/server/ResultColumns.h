#pragma once

#include "support/server/ServerColumn.h"

#include <QStringList>

namespace tsms::test {

/// The columns of a SELECT as the server types and names them: columns of the tables by their descriptions,
/// expressions by the server's rules. Where an expression is of no known kind, it is a varchar(8000).
/// `fieldNames` are those that the embedded engine has given its result, one for each column.
QList<ServerColumn> ResultColumns(const QString& select, const QStringList& fieldNames);

} // namespace tsms::test

#pragma once

#include "support/server/TdsTokens.h"

#include <QList>
#include <QString>

namespace tsms::test {

/// One statement of a batch.
struct ServerStatement
{
    /// Rights: GRANT and REVOKE. Transaction: BEGIN, COMMIT and ROLLBACK of one.
    enum class Kind { Set, Use, Select, Insert, Update, Delete, Rights, Transaction, Other };

    Kind kind = Kind::Other;
    QString Text;

    /// Set and Use: they concern the connection alone.
    bool IsSetting() const { return kind == Kind::Set || kind == Kind::Use; }

    bool operator==(const ServerStatement&) const = default;
};

/// The statements of a batch, whether ";" stands between them or not. Raises StatementFailure for a quote
/// that is not closed.
QList<ServerStatement> SplitBatch(const QString& sql);

/// A statement as the embedded engine takes it. A literal is what is left of it in code page 949, unless N
/// stands before it; the N is gone, and so is the owner "dbo" of a table.
QString EngineText(const QString& sql);

/// Raises the server's error when a literal that an INSERT or an UPDATE puts into a column is wider than the
/// column, trailing blanks aside. Whether an UPDATE meets a row at all is not looked at.
void RefuseLongTexts(const QString& sql);

} // namespace tsms::test

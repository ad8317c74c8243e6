#pragma once

#include <QByteArray>
#include <QString>

namespace tsms {

/// A statement of the server's dialect in that of the embedded engine, in UTF-8. What stands in quotes is
/// never touched. Raises StatementFailure for a quote that is not closed.
QByteArray ToEmbeddedDialect(const QString& sql);

/// The collation of every text column.
inline constexpr char KoreanCollationName[] = "KOREAN_CI";

} // namespace tsms

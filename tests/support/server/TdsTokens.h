#pragma once

#include "support/server/ServerColumn.h"
#include "support/server/ServerError.h"

#include <QByteArray>
#include <QString>

namespace tsms::test {

// The tokens of which answers are made (MS-TDS, 2.2.7).

QByteArray DatabaseChange(QStringView name, QStringView former);
QByteArray LanguageChange(QStringView name);
QByteArray PacketSizeChange(int size, int former);
QByteArray CollationChange(); ///< to Korean_Wansung_CI_AS

QByteArray LogInAcknowledgement();

QByteArray ErrorToken(const ServerError& error);
QByteArray InfoToken(const ServerError& message);

QByteArray ColumnsToken(const QList<ServerColumn>& columns);

enum class StatementKind : quint16 { Other = 0, Select = 0xC1, Insert = 0xC3, Delete = 0xC4, Update = 0xC5 };

/// The end of one statement. Below 0 a `count` is none.
QByteArray DoneToken(StatementKind kind, qint64 count, bool moreFollows);
QByteArray FailedToken();    ///< the end of a statement that failed, and of its batch
QByteArray CancelledToken(); ///< the answer to an attention

} // namespace tsms::test

#pragma once

#include "runtime/RuntimeError.h"

#include <QList>
#include <QString>

namespace tsms::test {

/// An error as the server tells it.
struct ServerError
{
    int Number = 0;
    int Class = 16; ///< the severity
    int State = 1;
    QString Words;

    bool operator==(const ServerError&) const = default;
};

/// What the server tells for an error of the embedded engine. A quote that is not closed comes with what the
/// server's parser stumbles over in front of it or behind it: two errors.
QList<ServerError> ServerErrors(const RuntimeError& error, const QString& sql);

ServerError LogInFailed(const QString& user);
ServerError DatabaseIs(const QString& database); ///< no error: tells which database is in use
ServerError LanguageIs(const QString& language);
ServerError UnknownDatabase(const QString& database); ///< of a log-in

/// The server's words for a text that is wider than its column.
inline constexpr char16_t TruncationWords[] = u"String or binary data would be truncated.";

} // namespace tsms::test

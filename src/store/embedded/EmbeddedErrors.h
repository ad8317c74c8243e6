#pragma once

#include "runtime/RuntimeError.h"

#include <QString>

struct sqlite3;

namespace tsms {

/// The error that a call on the handle has just ended with, under the server's number and in its words.
/// `path` names the database, `sql` is the statement if there is one.
RuntimeError EmbeddedError(sqlite3* handle, const QString& path, const QString& sql = {});

/// The same from the engine's result code and message.
RuntimeError TranslateEmbeddedError(int code, const QString& message, const QString& path,
                                    const QString& sql);

/// A file that cannot be reached.
RuntimeError UnreachableFile(const QString& path);

} // namespace tsms

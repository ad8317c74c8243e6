#pragma once

#include "store/engine/Tables.h"

#include <functional>

namespace tsms {

class Clock;
class Connection;

/// Makes an embedded database with all tables and the one account row, empty and with a balance of 0. `fill`
/// may write more before the file appears under its name. Its owner alone may read and write it. Raises a
/// RuntimeError when the name is taken or the file cannot be made; then nothing is left of it.
void CreateEmbeddedDatabase(const QString& path, YearRange years, const Clock& clock,
                            const std::function<void(Connection&)>& fill = {});

/// The statements that make one table with its indexes, in the engine's own language.
QString EmbeddedTableScript(const TableDescription& table);

/// Adds the send log of one more year. Raises a RuntimeError when it is there already, and when the file
/// cannot be opened or written.
void AddEmbeddedLogYear(const QString& path, int year, const Clock& clock);

} // namespace tsms

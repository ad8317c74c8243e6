#pragma once

#include "store/engine/Tables.h"

#include <QStringList>

#include <functional>

namespace tsms {

class Clock;
class Connection;

/// What a server's database lacks, as the script that makes it: word for word what `tsms-db` prints for these
/// tables, and the account row where there is none. With a `user` also the rights on all tables of the years.
/// Empty when there is nothing to do. Raises what keeps the tables from being looked at.
QString PreparingScript(Connection& connection, YearRange years, const QString& user);

/// The batches of a script: what stands between its lines "GO".
QStringList BatchesOf(const QString& script);

/// Runs a script in one transaction. Raises what the server does, and what `beforeEach` raises, which is
/// asked before each step and the end of the transaction; then nothing of it has been done, unless the link
/// was lost behind the COMMIT.
void RunScript(
    Connection& connection, const QString& script, const std::function<void()>& beforeEach = [] {});

/// Those of the logs that the program needs in the clock's year and a database file lacks. Raises what keeps
/// the file from being read.
QList<int> MissingLogYears(const QString& file, const Clock& clock);

} // namespace tsms

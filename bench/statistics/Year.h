#pragma once

#include "bench/Measure.h"

#include <QString>

namespace tsms::bench {

inline constexpr int LogRows = 1'000'000;
inline constexpr int LogYear = 2012;

/// Makes a database whose log of LogYear has LogRows rows, spread over the year as sends and reservations do.
void MakeYear(const QString& database);

/// What a run cost, and the figures that it came to: "total/done/failed" of each month, joined by ",".
struct Outcome
{
    Cost cost;
    QString figures;
};

/// The program's statistics: connection, query and grid, until the grid holds all figures.
Outcome RunThroughGrid(const QString& database);

/// The same statement by the engine's own interface: open, prepare, step, read each column, close.
Outcome RunBareQuery(const QString& database);

} // namespace tsms::bench

#pragma once

#include "store/engine/Tables.h"

#include <QDateTime>

namespace tsms {

class Connection;

/// Fills a new database for a demonstration: the account of the simulated gateway, groups and members,
/// templates, charges, and a year of sent messages up to `now` with reservations for the days behind it. The
/// same moment always gives the same content. Log rows of years outside `years` are left out; the balance
/// fits the rows that are there.
void FillDemo(Connection& connection, const QDateTime& now, YearRange years);

} // namespace tsms

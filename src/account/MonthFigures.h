#pragma once

#include "store/engine/Statement.h"

#include <QString>

#include <cstdint>

namespace tsms {

/// Counts the log of a year by months: ppMonth as "YYYY-MM", ToTalCnt of all rows, SMS0 of those sent or
/// still reserved, SMS1 of those that failed.
Statement MonthQuery(const QString& year);

/// The column of a month, told by its last two characters. Raises 13 when they are no number.
int MonthColumn(const QString& ppMonth);

/// The share of `done` in `total`, which is above 0, in percent: rounded to one decimal and from there to a
/// whole number, so that 94.46 comes by way of 94.5 to "95%". Nothing stands before the sign where that is 0.
QString RateText(std::int32_t total, std::int32_t done);

} // namespace tsms

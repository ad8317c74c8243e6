#pragma once

#include <QString>

namespace tsms {

class fpSpread;
struct Services;

/// The columns of the charge ledger, which are those of its query by position.
enum ChargeColumn : int {
    ChargeKey = 1, ///< hidden
    ChargeDate = 2,
    ChargeCount = 3,
    ChargeAmount = 4,
    ChargeUnitPrice = 5,
    ChargeRemark = 6,
    ChargeRegistered = 7,
};

/// The rows of the month grid. Its columns 1 to 12 are the months.
enum MonthRow : int { MonthSent = 1, MonthDone = 2, MonthFailed = 3, MonthRate = 4 };
inline constexpr int Months = 12;
inline constexpr int MonthTotalColumn = 13;

/// Lays the ledger out anew, without rows.
void InitChargeGrid(fpSpread& grid);

/// Lays the month grid out anew, without figures.
void InitMonthGrid(fpSpread& grid);

/// Shows the ledger as the database holds it. The grid stays as it is when it cannot be read.
void QueryCharges(Services& services, fpSpread& ledger);

/// Takes the entry of the ledger's active row out of the ledger and its count off the balance, after a
/// question. What is tested for being there at all is another row: `testedRow`.
void DeleteCharge(Services& services, fpSpread& ledger, int testedRow);

/// Shows the figures of a year, four digits. The grid stays as it is when its log cannot be read.
void QueryMonths(Services& services, fpSpread& months, const QString& year);

} // namespace tsms

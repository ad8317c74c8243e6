#pragma once

#include "services/RecipientColumn.h"

#include <QList>
#include <QStringList>

namespace tsms {

class fpSpread;

/// Brings a recipient grid to its first state: 20 numbered, empty rows, whatever it held before.
void InitRecipientGrid(fpSpread& grid);

/// Hides the active row, which keeps what it holds, and numbers the rows that are left. Raises 6 beyond
/// 32,767 rows: its counters have 16 bits.
void RemoveActiveRecipient(fpSpread& grid);

/// The walk of the Enter key: from name to number to the next row's name.
void WalkOnEnter(fpSpread& grid);

/// Makes the name of the first row on view that is empty the active cell; without one the name in the active
/// row.
void GoToFreeName(fpSpread& grid);

/// Puts rows of names and numbers, or of numbers alone, into the rows on view from the active cell on, each
/// value up to its column's limit, as if it had been typed. From the number column on a row's first value is
/// the number; from any other but the remove button's the name. Further values are left out. The grid grows
/// as long as rows are left, and its new rows are numbered on.
void PutRecipients(fpSpread& grid, const QList<QStringList>& rows);

} // namespace tsms

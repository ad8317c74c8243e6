#pragma once

#include "services/RecipientColumn.h"

namespace tsms {

class fpSpread;

/// Brings a recipient grid to its first state: 20 numbered, empty rows, whatever it held before.
void InitRecipientGrid(fpSpread& grid);

/// Hides the active row, which keeps what it holds, and numbers the rows that are left. Raises 6 beyond
/// 32,767 rows: its counters have 16 bits.
void RemoveActiveRecipient(fpSpread& grid);

/// The walk of the Enter key: from name to number to the next row's name.
void WalkOnEnter(fpSpread& grid);

} // namespace tsms

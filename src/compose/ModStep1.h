#pragma once

namespace tsms {

class fpSpread;

/// The columns of the recipient grid.
enum RecipientColumn : int {
    NumberColumn = 1,
    NameColumn = 2,
    PhoneColumn = 3,
    RemoveColumn = 4,
    ThirdValueColumn = 5, ///< hidden; written by the spreadsheet import, read by nothing
};

/// Brings a recipient grid to its first state: 20 numbered, empty rows, whatever it held before.
void InitRecipientGrid(fpSpread& grid);

/// Hides the active row, which keeps what it holds, and numbers the rows that are left. Raises 6 beyond
/// 32,767 rows: its counters have 16 bits.
void RemoveActiveRecipient(fpSpread& grid);

/// The walk of the Enter key: from name to number to the next row's name.
void WalkOnEnter(fpSpread& grid);

} // namespace tsms

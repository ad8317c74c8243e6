#pragma once

#include "spreadsheet/write/Sheet.h"

namespace tsms {

class fpSpread;

/// A grid as the sheet of a workbook: its column titles as the title row, then its rows. Row titles stay out;
/// hidden columns go along, hidden; a cell with a picture is empty; columns of numbers, shown in groups or as
/// they stand, hold numbers. The grid must stay as it is as long as the sheet is read.
Sheet SheetOf(const fpSpread& grid);

} // namespace tsms

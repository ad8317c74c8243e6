#pragma once

#include "spreadsheet/write/Sheet.h"

namespace tsms {

class BiffStream;
class SheetCells;

/// The sheet itself: [MS-XLS] 2.1.7.20.5, with everything that a worksheet must have, and the index of its
/// rows. Of `sheet` the text is not asked: its cells are `cells`.
void WriteSheet(BiffStream& stream, const Sheet& sheet, const SheetCells& cells);

} // namespace tsms

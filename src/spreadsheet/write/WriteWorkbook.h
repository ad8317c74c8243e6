#pragma once

#include "spreadsheet/write/Sheet.h"

#include <QString>

namespace tsms {

/// Writes a workbook of the old binary format (BIFF8 records in a compound file: the public documents
/// [MS-XLS] and [MS-CFB]) with one sheet.
///
/// An empty text is no cell, save in title rows, which are yellow throughout. What else a text may hold is
/// told in SheetText.h; no text is ever taken for a formula. A number column holds its texts that are numbers
/// as IEEE doubles; what is beyond a double stays a text.
///
/// The file takes the place of the one that stands under the name only when it is whole and on the disk;
/// until then, and after any error, the former one stands as it was and nothing else is left in the folder.
///
/// Raises 5 for a sheet that the format cannot hold, 6 when the file would pass 2 GiB, 57 when the
/// device fails, 61 when the disk is full, 75 when no file can be made under that name, 76 when its folder is
/// not there, and whatever the sheet's `text` raises.
void WriteWorkbook(const QString& path, const Sheet& sheet);

} // namespace tsms

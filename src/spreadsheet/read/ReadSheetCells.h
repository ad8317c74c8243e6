#pragma once

#include "runtime/CellSource.h"
#include "spreadsheet/read/ReadBiff.h"

#include <memory>

namespace tsms {

struct SheetPlace;
struct WorkbookTables;

/// Reads the texts of the first columns of a worksheet ([MS-XLS] 2.1.7.20.5) as a person sees them: of a
/// formula what it came to when the workbook was saved. Its rows end with the last one that has a text.
/// A sheet that is not where the workbook says is found by its number.
///
/// Raises 321 where the records of the sheet do not follow one another to its end, and where its texts are
/// larger than a sheet of recipients could ever be. Of a text that is cut the part that there is comes; a
/// record too short for its number or its place says nothing, and a shared text that there is not is empty.
///
/// The cells take over the shared texts of `tables`.
std::shared_ptr<const CellSource> ReadSheetCells(BiffReader& reader, const SheetPlace& sheet,
                                                 WorkbookTables& tables, int columns);

} // namespace tsms

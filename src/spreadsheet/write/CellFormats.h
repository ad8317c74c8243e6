#pragma once

#include "spreadsheet/write/Sheet.h"

#include <QtGlobal>

namespace tsms {

class BiffStream;

enum class CellKind { Text, Whole, Fraction, Title };

/// The number of the cell format ([MS-XLS] 2.4.353) for a kind of cell in a column of that alignment.
quint16 CellFormat(CellKind kind, SheetAlignment alignment);

/// The fonts, formats and the one style of a workbook: 굴림 of 9 points, bold on yellow for titles, groups of
/// three for whole numbers.
void WriteFormats(BiffStream& stream);

} // namespace tsms

#pragma once

#include "spreadsheet/write/Sheet.h"

#include <QtGlobal>

#include <vector>

namespace tsms {

class BiffStream;
class SheetCells;
struct CellRange;

inline constexpr int RowsInBlock = 32;        ///< that share an entry in a sheet's index
inline constexpr quint16 RowHeight = 12 * 20; ///< twentieths of a point: a line of the sheet's font

/// The used rows and their cells, in blocks. Returns where the DBCell record of each block stands, which
/// tells where its rows and cells are: [MS-XLS] 2.4.78.
std::vector<quint32> WriteCellTable(BiffStream& stream, const Sheet& sheet, const SheetCells& cells,
                                    const CellRange& rows);

} // namespace tsms

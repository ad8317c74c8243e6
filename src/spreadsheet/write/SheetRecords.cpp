#include "spreadsheet/write/SheetRecords.h"

#include "spreadsheet/write/BiffStream.h"
#include "spreadsheet/write/CellFormats.h"
#include "spreadsheet/write/CellTable.h"
#include "spreadsheet/write/SheetCells.h"
#include "spreadsheet/write/UsedCells.h"

#include <algorithm>
#include <cmath>

namespace tsms {

namespace {

/// From 0: the first, and the one behind the last.
void PutRange(BiffStream& stream, const CellRange& range)
{
    stream.U32(static_cast<quint32>(range.IsEmpty() ? 0 : range.first - 1));
    stream.U32(static_cast<quint32>(range.last));
}

/// An index of which the positions are not known yet; returns where they have to be written: first that of
/// the columns, then those of the blocks of rows.
quint32 WriteIndex(BiffStream& stream, const CellRange& rows)
{
    stream.Begin(BiffRecord::Index);
    stream.U32(0);
    PutRange(stream, rows);
    const quint32 place = stream.Position();
    stream.U32(0);
    for (int row = rows.first; !rows.IsEmpty() && row <= rows.last; row += RowsInBlock)
        stream.U32(0);
    stream.End();
    return place;
}

void WriteCalculation(BiffStream& stream)
{
    stream.Put(BiffRecord::CalcMode, {1});
    stream.Put(BiffRecord::CalcCount, {100});
    stream.Put(BiffRecord::CalcRefMode, {1});
    stream.Put(BiffRecord::CalcIter, {0});
    stream.Begin(BiffRecord::CalcDelta);
    stream.F64(0.001);
    stream.End();
    stream.Put(BiffRecord::CalcSaveRecalc, {1});
}

void WriteSheetSettings(BiffStream& stream)
{
    stream.Put(BiffRecord::PrintRowCol, {0});
    stream.Put(BiffRecord::PrintGrid, {0});
    stream.Put(BiffRecord::GridSet, {1});
    stream.Put(BiffRecord::Guts, {0, 0, 0, 0});
    stream.Put(BiffRecord::DefaultRowHeight, {0, RowHeight});
    stream.Put(BiffRecord::WsBool, {0x04C1}); // as in any new sheet
}

void WritePageSetup(BiffStream& stream)
{
    constexpr quint16 a4 = 9;
    constexpr quint16 percent = 100;
    constexpr quint16 portrait = 2;
    constexpr quint16 dotsPerInch = 600;
    constexpr double margin = 0.5; // inches, of header and footer
    stream.Put(BiffRecord::Header, {});
    stream.Put(BiffRecord::Footer, {});
    stream.Put(BiffRecord::HCenter, {0});
    stream.Put(BiffRecord::VCenter, {0});
    stream.Begin(BiffRecord::Setup);
    for (const quint16 value :
         {a4, percent, quint16(1), quint16(1), quint16(0), portrait, dotsPerInch, dotsPerInch})
        stream.U16(value);
    stream.F64(margin);
    stream.F64(margin);
    stream.U16(1); // copy
    stream.End();
}

quint16 FileWidth(double width)
{
    return static_cast<quint16>(std::lround(std::clamp(width, 0.0, 255.0) * 256));
}

void WriteColumns(BiffStream& stream, const std::vector<SheetColumn>& columns)
{
    stream.Put(BiffRecord::DefColWidth, {8});
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto number = static_cast<quint16>(i);
        const SheetColumn& column = columns[i];
        const CellKind kind = column.number ? CellKind::Whole : CellKind::Text;
        stream.Put(BiffRecord::ColInfo,
                   {number, number, FileWidth(column.width), CellFormat(kind, column.alignment),
                    static_cast<quint16>(column.hidden), 0});
    }
}

void WriteDimensions(BiffStream& stream, const UsedArea& area)
{
    stream.Begin(BiffRecord::Dimensions);
    PutRange(stream, area.rows);
    stream.U16(static_cast<quint16>(area.columns.IsEmpty() ? 0 : area.columns.first - 1));
    stream.U16(static_cast<quint16>(area.columns.last));
    stream.U16(0);
    stream.End();
}

void WriteView(BiffStream& stream)
{
    constexpr quint16 ordinary = 0x06B6; // grid lines, titles, zeros; the sheet that is on view
    constexpr quint16 automatic = 64;
    stream.Put(BiffRecord::Window2, {ordinary, 0, 0, automatic, 0, 0, 0, 0, 0});
    stream.Begin(BiffRecord::Selection); // of the first cell
    stream.U8(3);
    for (const quint16 value : {0, 0, 0, 1, 0, 0})
        stream.U16(value);
    stream.U8(0);
    stream.U8(0);
    stream.End();
}

} // namespace

void WriteSheet(BiffStream& stream, const Sheet& sheet, const SheetCells& cells)
{
    stream.BeginSubstream(Substream::Worksheet);
    const UsedArea area = FindUsedArea(sheet, cells);
    quint32 indexPlace = WriteIndex(stream, area.rows);
    WriteCalculation(stream);
    WriteSheetSettings(stream);
    WritePageSetup(stream);
    stream.Patch(indexPlace, stream.Position());
    WriteColumns(stream, sheet.columns);
    WriteDimensions(stream, area);
    for (const quint32 block : WriteCellTable(stream, sheet, cells, area.rows))
        stream.Patch(indexPlace += 4, block);
    WriteView(stream);
    stream.EndSubstream();
}

} // namespace tsms

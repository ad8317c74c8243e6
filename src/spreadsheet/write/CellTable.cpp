#include "spreadsheet/write/CellTable.h"

#include "spreadsheet/write/BiffStream.h"
#include "spreadsheet/write/CellFormats.h"
#include "spreadsheet/write/SheetCells.h"
#include "spreadsheet/write/UsedCells.h"

#include <cmath>
#include <optional>

namespace tsms {

namespace {

/// Groups of three are for whole numbers that a double holds to the last digit.
bool IsWhole(double number)
{
    return std::abs(number) < 1e15 && std::trunc(number) == number;
}

/// A whole number in the short form: [MS-XLS] 2.5.217. Nothing where its 30 bits are too few.
std::optional<quint32> ShortNumber(double number)
{
    constexpr double limit = 1 << 29;
    constexpr quint32 isInteger = 2;
    if (!IsWhole(number) || number < -limit || number >= limit)
        return std::nullopt;
    return static_cast<quint32>(static_cast<qint32>(number)) << 2 | isInteger;
}

class CellTable
{
public:
    CellTable(BiffStream& stream, const Sheet& sheet, const SheetCells& cells, int firstRow)
        : stream_(stream), sheet_(sheet), cells_(cells), reader_(cells, firstRow)
    {
    }

    /// Writes the rows from `first` to `last`; returns where their DBCell stands.
    quint32 WriteBlock(int first, int last)
    {
        const quint32 rows = stream_.Position();
        for (int row = first; row <= last; ++row)
            WriteRow(row);
        constexpr quint32 rowRecord = 20; // the cells of the first row are told from the end of its record
        quint32 former = rows + rowRecord;
        std::vector<quint16> distances;
        for (int row = first; row <= last; ++row) {
            const quint32 cells = stream_.Position();
            distances.push_back(static_cast<quint16>(cells - former));
            former = cells;
            WriteCells(row);
        }
        const quint32 dbCell = stream_.Position();
        stream_.Begin(BiffRecord::DBCell);
        stream_.U32(dbCell - rows);
        for (const quint16 distance : distances)
            stream_.U16(distance);
        stream_.End();
        return dbCell;
    }

private:
    bool IsTitle(int row) const { return row <= sheet_.titleRows; }

    void WriteRow(int row)
    {
        const CellRange columns = UsedColumns(sheet_, cells_, row);
        const auto first = static_cast<quint16>(columns.IsEmpty() ? 0 : columns.first - 1);
        const auto end = static_cast<quint16>(columns.last);
        constexpr quint16 alwaysSet = 0x0100;
        constexpr quint16 emptyFormat = 15;
        stream_.Put(BiffRecord::Row,
                    {static_cast<quint16>(row - 1), first, end, RowHeight, 0, 0, alwaysSet, emptyFormat});
    }

    void WriteCells(int row)
    {
        for (int col = 1; col <= cells_.Columns(); ++col)
            WriteCell(col, row, reader_.Next());
    }

    void WriteCell(int col, int row, const SheetCell& cell)
    {
        const CellKind text = IsTitle(row) ? CellKind::Title : CellKind::Text;
        if (cell.content == SheetCell::Number) {
            WriteNumber(col, row, cell.number);
        } else if (cell.content == SheetCell::Text) {
            BeginCell(BiffRecord::LabelSst, col, row, text);
            stream_.U32(cell.text);
            stream_.End();
        } else if (IsTitle(row)) {
            BeginCell(BiffRecord::Blank, col, row, text);
            stream_.End();
        }
    }

    void WriteNumber(int col, int row, double number)
    {
        const CellKind kind = IsWhole(number) ? CellKind::Whole : CellKind::Fraction;
        if (const std::optional<quint32> shortNumber = ShortNumber(number)) {
            BeginCell(BiffRecord::RK, col, row, kind);
            stream_.U32(*shortNumber);
        } else {
            BeginCell(BiffRecord::Number, col, row, kind);
            stream_.F64(number);
        }
        stream_.End();
    }

    void BeginCell(BiffRecord record, int col, int row, CellKind kind)
    {
        stream_.Begin(record);
        stream_.U16(static_cast<quint16>(row - 1));
        stream_.U16(static_cast<quint16>(col - 1));
        stream_.U16(CellFormat(kind, sheet_.columns[static_cast<std::size_t>(col - 1)].alignment));
    }

    BiffStream& stream_;
    const Sheet& sheet_;
    const SheetCells& cells_;
    SheetCells::Reader reader_;
};

} // namespace

std::vector<quint32> WriteCellTable(BiffStream& stream, const Sheet& sheet, const SheetCells& cells,
                                    const CellRange& rows)
{
    std::vector<quint32> blocks;
    if (rows.IsEmpty())
        return blocks;
    CellTable table(stream, sheet, cells, rows.first);
    for (int first = rows.first; first <= rows.last; first += RowsInBlock)
        blocks.push_back(table.WriteBlock(first, qMin(first + RowsInBlock - 1, rows.last)));
    return blocks;
}

} // namespace tsms

#include "spreadsheet/write/WriteWorkbook.h"

#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "spreadsheet/write/BiffStream.h"
#include "spreadsheet/write/CompoundFile.h"
#include "spreadsheet/write/SharedStrings.h"
#include "spreadsheet/write/SheetCells.h"
#include "spreadsheet/write/SheetRecords.h"
#include "spreadsheet/write/SheetText.h"
#include "spreadsheet/write/WorkbookGlobals.h"

#include <algorithm>
#include <cmath>

namespace tsms {

namespace {

constexpr char StreamName[] = "Workbook"; // [MS-XLS] 2.1.2

/// Tells the system that a spreadsheet program opens the file.
constexpr unsigned char ClassId[16] = {0x20, 0x08, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00,
                                       0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46};

bool IsSheetName(const QString& name)
{
    constexpr qsizetype longest = 31;
    const QStringView forbidden = u"[]:*?/\\";
    return !name.isEmpty() && name.size() <= longest &&
           std::none_of(name.begin(), name.end(), [&](QChar c) { return forbidden.contains(c); });
}

void DemandThatItFits(const Sheet& sheet)
{
    const auto columns = static_cast<int>(sheet.columns.size());
    if (sheet.rows < 0 || sheet.rows > Sheet::MaxRows || columns > Sheet::MaxColumns)
        throw RuntimeError(InvalidProcedureCall,
                           QStringLiteral("엑셀파일은 %1행 %2열까지만 저장할 수 있습니다.")
                               .arg(Sheet::MaxRows)
                               .arg(Sheet::MaxColumns));
    if (!IsSheetName(sheet.name))
        throw RuntimeError(InvalidProcedureCall);
}

void ReadCell(QStringView text, bool mayBeNumber, SharedStrings& strings, QString& changed, SheetCells& into)
{
    if (text.isEmpty())
        return into.AddEmpty();
    if (mayBeNumber)
        if (const std::optional<double> number = NumberOf(text); number && std::isfinite(*number))
            return into.AddNumber(*number);
    into.AddText(strings.Add(SheetText(text, changed)));
}

SheetCells ReadCells(const Sheet& sheet, SharedStrings& strings)
{
    const auto columns = static_cast<int>(sheet.columns.size());
    SheetCells cells(sheet.rows, columns);
    QString changed;
    for (int row = 1; row <= sheet.rows; ++row)
        for (int col = 1; col <= columns; ++col) {
            const bool mayBeNumber =
                row > sheet.titleRows && sheet.columns[static_cast<std::size_t>(col - 1)].number;
            ReadCell(sheet.text(col, row), mayBeNumber, strings, changed, cells);
        }
    return cells;
}

} // namespace

void WriteWorkbook(const QString& path, const Sheet& sheet)
{
    DemandThatItFits(sheet);
    SharedStrings strings;
    const SheetCells cells = ReadCells(sheet, strings);
    CompoundFile file(path, StreamName, ClassId);
    BiffStream stream(file);
    WriteGlobals(stream, sheet.name, strings);
    WriteSheet(stream, sheet, cells);
    stream.Flush();
    file.Commit();
}

} // namespace tsms

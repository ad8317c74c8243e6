#include "spreadsheet/read/ReadWorkbook.h"

#include "spreadsheet/read/ReadCompoundFile.h"
#include "spreadsheet/read/ReadSheetCells.h"
#include "spreadsheet/read/ReadWorkbookTables.h"

namespace tsms {

WorkbookTexts ReadWorkbook(QIODevice& file, int columns)
{
    // A file may hold the same workbook in both versions: the newer one first.
    return ReadWorkbookStream(ReadCompoundStream(file, {u"Workbook", u"Book"}), columns);
}

WorkbookTexts ReadWorkbookStream(const QByteArray& stream, int columns)
{
    BiffReader reader(stream);
    WorkbookTables tables = ReadWorkbookTables(reader);
    WorkbookTexts texts;
    for (const SheetPlace& sheet : tables.worksheets)
        texts.sheets += sheet.name;
    if (!tables.worksheets.empty())
        texts.firstSheet = ReadSheetCells(reader, tables.worksheets.front(), tables, columns);
    return texts;
}

} // namespace tsms

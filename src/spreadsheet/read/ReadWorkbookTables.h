#pragma once

#include "runtime/CodePages.h"
#include "spreadsheet/read/ReadBiff.h"
#include "spreadsheet/read/TextTable.h"
#include "spreadsheet/read/XlsNumberFormat.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace tsms {

/// A worksheet, and where in the workbook's stream its records begin.
struct SheetPlace
{
    QString name;
    quint32 position = 0; ///< as the workbook tells it
    int part = 0;         ///< its number, from 0, among the sheets of all kinds
};

/// What a workbook says ahead of its sheets.
struct WorkbookTables
{
    BiffVersion version = BiffVersion::Biff8;
    int codePage = KoreanCodePage;        ///< of texts in bytes
    FirstDay firstDay = FirstDay::Of1900; ///< of dates
    std::vector<bool> koreanFonts;      ///< whether a cell's font is Korean, by the number that a cell tells
    std::vector<SheetPlace> worksheets; ///< in their order, hidden ones too; charts and macros are none
    TextTable strings;                  ///< which cells share
    std::vector<std::shared_ptr<const XlsNumberFormat>> formats; ///< by the number that a cell tells
    quint32 end = 0;                                             ///< where the sheets' records begin

    /// The text of that length that comes next: in BIFF8 with its flags, in BIFF5 in bytes of the code page.
    RecordText Text(BiffReader& reader, int length) const;

    /// The same of a cell of that format: in BIFF5 of code page 949 where its font is Korean.
    RecordText CellText(BiffReader& reader, int length, quint16 format) const;

    /// What a cell of that format shows.
    QString Shown(double number, quint16 format) const;
};

/// The version of the part that the present record begins. Null where it begins no such part.
std::optional<BiffVersion> ReadPartHead(BiffReader& reader, Substream part);

/// Reads the globals at the beginning of a workbook: [MS-XLS] 2.1.7.20.3. A record that lacks something gives
/// what it has; a format that lacks something is "General". Raises 321 where the records do not follow one
/// another, for a workbook that wants a password of its own, and for tables beyond all measure.
WorkbookTables ReadWorkbookTables(BiffReader& reader);

} // namespace tsms

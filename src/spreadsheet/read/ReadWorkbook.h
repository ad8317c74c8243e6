#pragma once

#include "runtime/CellSource.h"

#include <QByteArray>
#include <QStringList>

#include <memory>

class QIODevice;

namespace tsms {

/// What the program takes from a workbook.
struct WorkbookTexts
{
    QStringList
        sheets; ///< the names of its worksheets, in their order, hidden ones too; no charts, no macros
    std::shared_ptr<const CellSource> firstSheet; ///< null when there is none
};

/// Reads a workbook of the old binary formats (BIFF8, and BIFF5 in the code pages of Windows; the public
/// documents [MS-XLS] and [MS-CFB]), of its first worksheet the first columns, as a person sees them in the
/// cells.
///
/// The file may be anything. Small slips, which spreadsheet programs overlook, cost the cell or the format
/// that they concern. Raises 321 for a file that is no such workbook, does not hold together or is cut off,
/// wants a password of its own, or is beyond all measure, and takes neither long nor much memory to find out.
WorkbookTexts ReadWorkbook(QIODevice& file, int columns);

/// The same with the stream of a workbook, as it stands in its compound file.
WorkbookTexts ReadWorkbookStream(const QByteArray& stream, int columns);

} // namespace tsms

#pragma once

#include "runtime/Boolean.h"
#include "spreadsheet/read/ReadWorkbook.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace tsms {

class CellSource;
class Clock;

/// An array of texts. It has no size until it is given one.
class SheetNames
{
public:
    void Resize(int size) { names_.resize(static_cast<std::size_t>(size)); }
    int Size() const { return static_cast<int>(names_.size()); }

    /// From 0. Raises 9 beyond its size.
    QString& At(int index);

private:
    std::vector<QString> names_;
};

/// Reads workbooks as a grid does: first the list of the sheets, then one of them.
class SheetOperations
{
public:
    /// Sheets are read as far as the column of that number.
    SheetOperations(const Clock& clock, int columns) : clock_(clock), columns_(columns) {}

    /// Opens a workbook, unless it is the one that is open, and lists its sheets: `count` gets how many there
    /// are, and `names` as many of their names as it has room for. Writes to the log what it has found; a log
    /// that cannot be written is skipped. False, with a count of 0, for a file that is no workbook to be
    /// read.
    Boolean GetSheetList(const QString& file, SheetNames& names, std::int16_t& count, const QString& log,
                         bool replaceLog);

    /// The cells of the first sheet of the open workbook, by its name. Null for any other name.
    std::shared_ptr<const CellSource> ImportSheet(const QString& name) const;

private:
    void Open(const QString& file);
    void WriteLog(const QString& log, bool replace) const;

    const Clock& clock_;
    int columns_;
    QString file_;
    WorkbookTexts workbook_;
};

} // namespace tsms

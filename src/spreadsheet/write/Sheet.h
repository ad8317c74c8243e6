#pragma once

#include <QString>
#include <QStringView>

#include <functional>
#include <vector>

namespace tsms {

enum class SheetAlignment { General, Left, Center, Right }; ///< General: texts left, numbers right

/// What all cells of a column have in common.
struct SheetColumn
{
    double width = 8; ///< in digits of the sheet's font, 0 to 255
    bool hidden = false;
    bool number =
        false; ///< texts that are numbers (NumberOf) go out as numbers, whole ones in groups of three
    SheetAlignment alignment = SheetAlignment::General;
};

/// The one sheet of a workbook, as the writer reads it.
struct Sheet
{
    static constexpr int MaxRows = 65536; ///< what the format holds, title rows included
    static constexpr int MaxColumns = 256;

    QString name = QStringLiteral("Sheet1"); ///< 1 to 31 characters, none of []:*?/\ .
    std::vector<SheetColumn> columns;
    int titleRows = 1; ///< the first rows: bold on yellow, and texts in any column
    int rows = 0;      ///< with the title rows

    /// The text of a cell; both numbers from 1. It is asked once for each cell, row by row from the left, and
    /// its answer is looked at before the next one is asked.
    std::function<QStringView(int col, int row)> text;
};

} // namespace tsms

#pragma once

#include <QString>

#include <cstdint>

namespace tsms {

/// What becomes of a row of a spreadsheet.
enum class ImportVerdict {
    Blank, ///< no name: neither taken nor counted
    Good,
    Lost, ///< the number is none of a mobile phone
};

/// By the name and the number of the row. The number is looked at without the blanks about it and with
/// whatever else it holds; it has no upper length.
ImportVerdict JudgeImportRow(const QString& name, const QString& number);

/// The words of the two counts.
QString ImportCount(std::int16_t count);

/// The line of progress at a row.
QString ImportProgress(std::int32_t total, int row);

} // namespace tsms

#pragma once

#include "spreadsheet/read/XlsFormatCode.h"

#include <QString>
#include <QStringView>

#include <vector>

namespace tsms {

/// The day from which a workbook counts its dates.
enum class FirstDay { Of1900, Of1904 };

/// How a cell shows its number, by a format code of a spreadsheet such as "000-0000-0000" (the language of
/// [ECMA-376] Part 1, 18.8.31).
///
/// Digits, literal words, separators, percents and sections with or without conditions come out as a person
/// sees them, rounded to the 15 digits that a spreadsheet keeps, a half upwards. "General" shows up to 15
/// digits, and so do fractions and exponents. Dates, of whatever calendar, and times come out as YYYY-MM-DD
/// and HH:MM:SS whatever their code says; elapsed hours count on beyond a day.
class XlsNumberFormat
{
public:
    /// A code of more than 255 characters, which no spreadsheet takes, is "General", and so is an empty one.
    explicit XlsNumberFormat(QStringView code = u"General");

    /// The code of a format that a workbook need not write down ([ECMA-376] 18.8.30), without the signs of
    /// currencies; "General" for a number that is none of them.
    static QString BuiltInCode(int number);

    QString Shown(double value, FirstDay firstDay = FirstDay::Of1900) const;

private:
    QString code_;
    std::vector<FormatSection> sections_; // their tokens stand in the code
};

} // namespace tsms

#pragma once

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
/// sees them, rounded by the 15 digits that a spreadsheet keeps, a half upwards. "General" shows up to 15
/// digits, and so do fractions and exponents. Dates and times come out as YYYY-MM-DD and HH:MM:SS whatever
/// their code says.
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
    enum class Relation { None, Less, LessOrEqual, Equal, NotEqual, GreaterOrEqual, Greater };
    enum class What { Literal, WholeDigit, Point, Decimal, General };

    struct Token
    {
        What what;
        QString text = {}; // of a literal its words, of a digit its sign: 0, # or ?
    };

    /// One for all numbers, or several: for positive ones, for negative ones, for zero.
    struct Section
    {
        std::vector<Token> tokens;
        bool date = false;
        bool time = false;
        bool plain = false;                 // shown as "General" shows it
        Relation relation = Relation::None; // the condition that its numbers meet, where it has one
        double limit = 0;
        int wholeDigits = 0;
        int decimals = 0;
        int power = 0; // of ten, by which the number is multiplied
        bool grouped = false;

        bool Meets(double value) const;
    };

    class Parser;

    int SectionFor(double value) const; // -1: none
    static QString ShownDigits(const Section& section, double magnitude);

    std::vector<Section> sections_;
};

} // namespace tsms

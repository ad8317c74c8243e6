#pragma once

#include <QStringView>

#include <vector>

namespace tsms {

/// The most characters of a format code; no spreadsheet takes more.
inline constexpr qsizetype MostCodeCharacters = 255;

/// A piece of a format code. It tells where its text stands in the code and holds none, since a workbook may
/// have thousands of codes.
struct FormatToken
{
    enum What : quint8 {
        Words,      ///< that show as they are
        Blank,      ///< as much room as a character takes
        WholeDigit, ///< a place in front of the point: 0, # or ?
        Point,
        Decimal, ///< a place behind the point
        General, ///< the whole number, as "General" shows it
    };

    QStringView TextIn(QStringView code) const { return code.sliced(at, size); }

    What what;
    quint8 at = 0;
    quint8 size = 0;
};

/// How numbers of one kind show.
struct FormatSection
{
    enum class Relation { None, Less, LessOrEqual, Equal, NotEqual, GreaterOrEqual, Greater };

    bool CanTake(double value) const;

    /// No number above zero meets the condition, or each one does.
    bool HasNoneAboveZero() const;
    bool HasAllAboveZero() const;

    std::vector<FormatToken> tokens;
    Relation relation = Relation::None; ///< the condition that its numbers meet
    double limit = 0;
    bool signless = false; ///< its words tell that a number is negative, no sign does
    bool date = false;
    bool time = false;
    bool elapsed = false; ///< hours count on beyond a day
    bool general = false; ///< as "General" shows it: a fraction or an exponent
    bool grouped = false; ///< in threes
    int power = 0;        ///< of ten, by which the number is multiplied
    int wholeDigits = 0;  ///< tokens of that kind
    int decimals = 0;     ///< tokens of that kind
};

/// Reads a code of at most MostCodeCharacters into its sections for numbers, one to three. A number belongs
/// to the first one that takes it; it may be that none does.
std::vector<FormatSection> ReadFormatCode(QStringView code);

} // namespace tsms

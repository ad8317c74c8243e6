#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace tsms {

/// Text to a 32-bit integer by the ordinary rule: blanks around, a sign, decimals (rounded half to even) and
/// an exponent are allowed. Raises 6 when the number does not fit, 13 when the text is no number.
std::int32_t ToLong(QStringView text);

/// Text to a truth value by the ordinary rule: "true" or "false" in any case, or a number, which is true
/// unless 0. Raises 13 for anything else.
bool ToTruth(QStringView text);

/// The number that a text is by the rule of ToLong, not rounded; infinite where a double cannot hold it, and
/// nothing when the text is no number.
std::optional<double> NumberOf(QStringView text);

/// True when the text is a number by the rule of ToLong, of any size. Behind its first digit the whole part
/// may hold separators, as a shown number does.
bool IsNumeric(QStringView text);

/// The nearest number with so many decimals; of two that are equally near, the one with an even last digit.
double RoundHalfToEven(double value, int decimals = 0);

/// The pattern "#,###,###": digits in groups of three, and nothing at all for 0.
QString FormatCount(std::int64_t n);

/// Groups the digits of a plain number in threes; a sign and decimals stay. Any other text comes back as it
/// is.
QString GroupDigits(QStringView text);

/// The text without any comma, wherever it stands.
QString WithoutSeparators(QStringView text);

/// A 16-bit counter. Raises 6 where a step leaves its range.
class Counter16
{
public:
    constexpr explicit Counter16(std::int16_t value = 0) : value_(value) {}
    Counter16& operator++();
    constexpr std::int16_t Value() const { return value_; }

private:
    std::int16_t value_;
};

/// The last two characters of "00" followed by the decimal `n`, from 0: the running number of a list row.
QString TwoDigits(int n);

} // namespace tsms

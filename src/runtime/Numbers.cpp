#include "runtime/Numbers.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <QByteArray>
#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tsms {

namespace {

/// [sign] digits [. digits] [e [sign] digits], at least one digit before the exponent.
bool HasNumberShape(QStringView text)
{
    qsizetype i = 0;
    const auto isDigit = [&] { return i < text.size() && text[i] >= u'0' && text[i] <= u'9'; };
    const auto skipDigits = [&] {
        const qsizetype from = i;
        while (isDigit())
            ++i;
        return i > from;
    };
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-'))
        ++i;
    bool digits = skipDigits();
    if (i < text.size() && text[i] == u'.') {
        ++i;
        digits = skipDigits() || digits;
    }
    if (!digits)
        return false;
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        ++i;
        if (i < text.size() && (text[i] == u'+' || text[i] == u'-'))
            ++i;
        if (!skipDigits())
            return false;
    }
    return i == text.size();
}

/// The text without the separators that stand behind the first digit of its whole part.
QString WithoutInnerSeparators(QStringView text)
{
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    const auto begins = [&](QChar c) { return isDigit(c) || c == u'.'; }; // behind a point there are none
    const qsizetype first = std::find_if(text.begin(), text.end(), begins) - text.begin();
    qsizetype end = first;
    while (end < text.size() && (isDigit(text[end]) || text[end] == u','))
        ++end;
    return text.toString().replace(first, end - first, WithoutSeparators(text.sliced(first, end - first)));
}

/// What a number becomes that a double does not hold: 0 when it is too small, else infinity. Only the reader
/// of locales tells which, and takes ten times as long as the plain one.
double BeyondDouble(QStringView text)
{
    return QLocale::c().toDouble(text) == 0.0 ? 0.0 : std::numeric_limits<double>::infinity();
}

/// Between the digits from `begin` to `end`.
void SeparateThousands(QString& text, qsizetype begin, qsizetype end)
{
    for (qsizetype at = end - 3; at > begin; at -= 3)
        text.insert(at, u',');
}

} // namespace

std::optional<double> NumberOf(QStringView text)
{
    const QStringView trimmed = Trimmed(text);
    if (!HasNumberShape(trimmed))
        return std::nullopt;
    bool fits = false;
    const double value = trimmed.toLatin1().toDouble(&fits);
    return fits ? value : BeyondDouble(trimmed);
}

std::int32_t ToLong(QStringView text)
{
    const std::optional<double> value = NumberOf(text);
    if (!value)
        throw RuntimeError(TypeMismatch);
    const double rounded = RoundHalfToEven(*value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        throw RuntimeError(Overflow);
    return static_cast<std::int32_t>(rounded);
}

bool ToTruth(QStringView text)
{
    const QString trimmed = Trim(text);
    if (trimmed.compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    if (trimmed.compare(u"false", Qt::CaseInsensitive) == 0)
        return false;
    const std::optional<double> value = NumberOf(trimmed);
    if (!value)
        throw RuntimeError(TypeMismatch);
    return *value != 0.0;
}

bool IsNumeric(QStringView text)
{
    return NumberOf(WithoutInnerSeparators(text)).has_value();
}

double RoundHalfToEven(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    const double scaled = value * scale;
    const double below = std::floor(scaled);
    const double distance = scaled - below;
    const bool up = distance == 0.5 ? std::fmod(below, 2.0) != 0.0 : distance > 0.5;
    return (up ? below + 1 : below) / scale;
}

QString FormatCount(std::int64_t n)
{
    if (n == 0)
        return {};
    QString text = QString::number(n);
    SeparateThousands(text, n < 0 ? 1 : 0, text.size());
    return text;
}

QString GroupDigits(QStringView text)
{
    qsizetype begin = 0;
    if (!text.isEmpty() && (text[0] == u'-' || text[0] == u'+'))
        begin = 1;
    const QString plain = WithoutSeparators(text.sliced(begin));
    const qsizetype point = plain.indexOf(u'.');
    const qsizetype wholeDigits = point < 0 ? plain.size() : point;
    for (qsizetype i = 0; i < plain.size(); ++i)
        if (i != point && (plain[i] < u'0' || plain[i] > u'9'))
            return text.toString();
    if (wholeDigits == 0)
        return text.toString();
    QString grouped = text.first(begin).toString() + plain;
    SeparateThousands(grouped, begin, begin + wholeDigits);
    return grouped;
}

QString WithoutSeparators(QStringView text)
{
    return text.toString().remove(u',');
}

Counter16& Counter16::operator++()
{
    if (value_ == std::numeric_limits<std::int16_t>::max())
        throw RuntimeError(Overflow);
    ++value_;
    return *this;
}

QString TwoDigits(int n)
{
    // Rows are numbered by the ten thousand: their texts are shared.
    static const std::array<QString, 100> texts = [] {
        std::array<QString, 100> made;
        for (int i = 0; i < 100; ++i)
            made[static_cast<std::size_t>(i)] = QStringLiteral("%1").arg(i, 2, 10, QChar(u'0'));
        return made;
    }();
    return texts[static_cast<std::size_t>(n % 100)];
}

} // namespace tsms

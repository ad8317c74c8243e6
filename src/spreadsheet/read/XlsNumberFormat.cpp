#include "spreadsheet/read/XlsNumberFormat.h"

#include <QByteArrayView>
#include <QDate>
#include <QStringList>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace tsms {

namespace {

constexpr int KeptDigits = 15; // of a number, in all that a spreadsheet shows

QString ShownGeneral(double value)
{
    return value == 0 ? QStringLiteral("0") : QString::number(value, 'G', KeptDigits);
}

/// The digits of a number in front of its point, none where it is below 1, and so many behind it.
struct Digits
{
    QString whole;
    QString decimals;
};

/// Half a unit of the last digit that stays is rounded upwards.
void RoundTo(qsizetype kept, QString& digits, qsizetype& point)
{
    if (kept >= digits.size())
        return;
    const bool upwards = kept >= 0 && digits[kept] >= u'5';
    digits.truncate(std::max<qsizetype>(kept, 0));
    if (!upwards)
        return;
    while (digits.endsWith(u'9')) // a zero that need not be written
        digits.chop(1);
    if (digits.isEmpty()) {
        digits = u'1';
        ++point;
    } else {
        digits.back() = QChar(digits.back().unicode() + 1);
    }
}

/// Of a finite number times 10 to the `power`. It is moved and rounded as it is written, so that nothing of
/// it is lost, and a number too large for a double has its digits too.
Digits DigitsOf(double magnitude, int power, int decimals)
{
    if (magnitude == 0)
        return {{}, QString(decimals, u'0')};
    constexpr int writtenDigits = 25; // enough to tell a half of the last digit that is kept
    char written[writtenDigits + 8];  // d.dd...e+ddd
    const char* end = std::to_chars(std::begin(written), std::end(written), magnitude,
                                    std::chars_format::scientific, writtenDigits - 1)
                          .ptr;
    const char* exponent = written + writtenDigits + 2;
    QString digits = QLatin1String(written, 1) + QLatin1String(written + 2, writtenDigits - 1);
    // So many digits stand in front of the point.
    qsizetype point = 1 + QByteArrayView(exponent, end).toInt() + power;
    RoundTo(KeptDigits, digits, point);
    RoundTo(point + decimals, digits, point);
    if (point < 0)
        digits.prepend(QString(-point, u'0'));
    point = std::max<qsizetype>(point, 0);
    return {digits.left(point).leftJustified(point, u'0'),
            digits.mid(point).leftJustified(decimals, u'0', true)};
}

qsizetype LengthWithoutZeros(QStringView decimals)
{
    while (decimals.endsWith(u'0'))
        decimals.chop(1);
    return decimals.size();
}

/// Writes a number into the places of a section.
class PlacesWriter
{
public:
    PlacesWriter(const FormatSection& section, double value)
        : section_(section),
          magnitude_(std::abs(value)),
          digits_(DigitsOf(magnitude_, section.power, section.decimals)),
          placesLeft_(section.wholeDigits),
          digitsLeft_(digits_.whole.size()),
          decimalsNeeded_(LengthWithoutZeros(digits_.decimals))
    {
        if (value < 0 && !section.signless)
            shown_ = u'-';
    }

    /// In no more memory than the text takes, since a sheet has many.
    QString Write(QStringView code)
    {
        for (const FormatToken& token : section_.tokens)
            WriteToken(token, token.TextIn(code));
        shown_.squeeze();
        return shown_;
    }

private:
    void WriteToken(const FormatToken& token, QStringView text)
    {
        switch (token.what) {
        case FormatToken::Words:
            shown_ += text;
            break;
        case FormatToken::Blank:
            shown_ += u' ';
            break;
        case FormatToken::WholeDigit:
            --placesLeft_;
            if (digitsLeft_ <= placesLeft_ && text != u"#")
                WriteWhole(text == u"0" ? u'0' : u' ', placesLeft_);
            WriteWholeDigits(); // the first place takes all that have none
            break;
        case FormatToken::Point:
            WriteWholeDigits();
            shown_ += u'.';
            break;
        case FormatToken::Decimal:
            if (text == u"0" || decimal_ < decimalsNeeded_)
                shown_ += digits_.decimals[decimal_];
            else if (text == u"?")
                shown_ += u' ';
            ++decimal_;
            break;
        case FormatToken::General:
            shown_ += ShownGeneral(magnitude_);
            break;
        }
    }

    /// Those for which no place is left.
    void WriteWholeDigits()
    {
        const QString& whole = digits_.whole;
        for (; digitsLeft_ > placesLeft_; --digitsLeft_)
            WriteWhole(whole[whole.size() - digitsLeft_], digitsLeft_ - 1);
    }

    /// With so many digits or places behind it.
    void WriteWhole(QChar digit, qsizetype behind)
    {
        shown_ += digit;
        if (section_.grouped && behind > 0 && behind % 3 == 0)
            shown_ += u',';
    }

    const FormatSection& section_;
    double magnitude_;
    Digits digits_;
    qsizetype placesLeft_;     // for whole digits
    qsizetype digitsLeft_;     // in front of the point
    qsizetype decimalsNeeded_; // without the zeros at their end
    qsizetype decimal_ = 0;
    QString shown_;
};

QDate DateOf(qint64 day, FirstDay firstDay)
{
    if (firstDay == FirstDay::Of1904)
        return QDate(1904, 1, 1).addDays(day);
    return QDate(1899, 12, day < 60 ? 31 : 30).addDays(day); // day 60 is one that never was
}

QString ShownTime(qint64 seconds)
{
    const QChar zero(u'0');
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600, 2, 10, zero)
        .arg(seconds / 60 % 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

/// A number that stands for no moment shows as itself.
QString ShownMoment(const FormatSection& section, double value, FirstDay firstDay)
{
    constexpr double lastDay = 2958465; // 9999-12-31
    if (value < 0 || value > lastDay)
        return ShownGeneral(value);
    constexpr qint64 secondsOfDay = qint64{24} * 60 * 60;
    const qint64 seconds = std::llround(value * static_cast<double>(secondsOfDay));
    QStringList parts;
    if (section.date)
        parts += DateOf(seconds / secondsOfDay, firstDay).toString(QStringLiteral("yyyy-MM-dd"));
    if (section.time)
        parts += ShownTime(section.elapsed ? seconds : seconds % secondsOfDay);
    return parts.join(u' ');
}

} // namespace

XlsNumberFormat::XlsNumberFormat(QStringView code)
    : code_(code.isEmpty() || code.size() > MostCodeCharacters ? QStringLiteral("General") : code.toString()),
      sections_(ReadFormatCode(code_))
{
}

QString XlsNumberFormat::BuiltInCode(int number)
{
    static constexpr QStringView date = u"yyyy-mm-dd";
    static constexpr QStringView time = u"hh:mm:ss";
    static constexpr QStringView whole = u"#,##0";
    static constexpr QStringView cents = u"#,##0.00";
    static constexpr struct
    {
        int first;
        int last;
        QStringView code;
    } codes[] = {{1, 1, u"0"},
                 {2, 2, u"0.00"},
                 {3, 3, whole},
                 {4, 4, cents},
                 {5, 6, whole},
                 {7, 8, cents},
                 {9, 9, u"0%"},
                 {10, 10, u"0.00%"},
                 {14, 17, date},
                 {18, 21, time},
                 {22, 22, u"yyyy-mm-dd hh:mm"},
                 {27, 31, date},
                 {32, 33, time},
                 {34, 36, date},
                 {37, 38, whole},
                 {39, 40, cents},
                 {41, 42, whole},
                 {43, 44, cents},
                 {45, 45, time},
                 {46, 46, u"[h]:mm:ss"},
                 {47, 47, time},
                 {50, 58, date}};
    for (const auto& [first, last, code] : codes)
        if (number >= first && number <= last)
            return code.toString();
    return QStringLiteral("General");
}

QString XlsNumberFormat::Shown(double value, FirstDay firstDay) const
{
    if (!std::isfinite(value))
        return QStringLiteral("#NUM!");
    const auto section = std::find_if(sections_.begin(), sections_.end(),
                                      [&](const FormatSection& each) { return each.CanTake(value); });
    if (section == sections_.end())
        return ShownGeneral(value);
    if (section->date || section->time)
        return ShownMoment(*section, value, firstDay);
    if (section->general)
        return ShownGeneral(value);
    return PlacesWriter(*section, value).Write(code_);
}

} // namespace tsms

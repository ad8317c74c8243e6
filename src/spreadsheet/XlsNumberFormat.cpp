#include "spreadsheet/XlsNumberFormat.h"

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace tsms {

namespace {

constexpr qsizetype MostCodeCharacters = 255;
constexpr std::size_t MostSections = 3; // a fourth one is for texts
constexpr int KeptDigits = 15;          // of a number, in all that a spreadsheet shows

bool IsDigitSign(QChar c)
{
    return c == u'0' || c == u'#' || c == u'?';
}

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
    const QString written = QString::number(magnitude, 'e', KeptDigits - 1); // d.dd...e+dd
    const qsizetype exponent = KeptDigits + 2;
    QString digits = written.first(1) + written.sliced(2, KeptDigits - 1);
    qsizetype point = 1 + written.sliced(exponent).toInt() + power; // so many digits stand in front of it
    RoundTo(point + decimals, digits, point);
    if (point < 0)
        digits.prepend(QString(-point, u'0'));
    point = std::max<qsizetype>(point, 0);
    return {digits.left(point).leftJustified(point, u'0'),
            digits.mid(point).leftJustified(decimals, u'0', true)};
}

/// The moment that a number stands for. No moment for one that is none.
QDateTime MomentOf(double value, FirstDay firstDay)
{
    constexpr double lastDay = 2958465; // 9999-12-31
    if (value < 0 || value > lastDay)
        return {};
    constexpr qint64 secondsOfDay = qint64{24} * 60 * 60;
    const qint64 seconds = std::llround(value * static_cast<double>(secondsOfDay));
    const qint64 day = seconds / secondsOfDay;
    QDate from(1904, 1, 1);
    if (firstDay == FirstDay::Of1900)
        from = day < 60 ? QDate(1899, 12, 31) : QDate(1899, 12, 30); // day 60 is one that never was
    return QDateTime(from.addDays(day), QTime(0, 0), Qt::UTC).addSecs(seconds % secondsOfDay);
}

QString ShownMoment(const QDateTime& moment, bool date, bool time)
{
    QStringList parts;
    if (date)
        parts += moment.toString(QStringLiteral("yyyy-MM-dd"));
    if (time)
        parts += moment.toString(QStringLiteral("HH:mm:ss"));
    return parts.join(u' ');
}

} // namespace

/// Reads a code, section by section.
class XlsNumberFormat::Parser
{
public:
    explicit Parser(QStringView code) : code_(code) {}

    std::vector<Section> Sections()
    {
        std::vector<Section> sections{ReadSection()};
        while (!AtEnd()) {
            ++at_; // the semicolon
            sections.push_back(ReadSection());
        }
        return sections;
    }

private:
    bool AtEnd() const { return at_ >= code_.size(); }
    QChar Next() const { return AtEnd() ? QChar() : code_[at_]; }

    QStringView Until(QChar end)
    {
        const qsizetype begin = at_;
        while (!AtEnd() && code_[at_] != end)
            ++at_;
        const QStringView words = code_.sliced(begin, at_ - begin);
        at_ = std::min(at_ + 1, code_.size());
        return words;
    }

    Section ReadSection()
    {
        section_ = {};
        afterPoint_ = false;
        monthOrMinute_ = false;
        while (!AtEnd() && Next() != u';')
            if (!ReadGeneral())
                ReadSign(code_[at_++]);
        section_.date = section_.date || (monthOrMinute_ && !section_.time);
        return section_;
    }

    /// Korean spreadsheets write its name in their own language.
    bool ReadGeneral()
    {
        for (const QStringView name : {QStringView(u"General"), QStringView(u"G/표준")})
            if (code_.sliced(at_).startsWith(name, Qt::CaseInsensitive)) {
                at_ += name.size();
                Add(What::General);
                return true;
            }
        return false;
    }

    void ReadSign(QChar sign)
    {
        switch (sign.toLower().unicode()) {
        case u'0':
        case u'#':
        case u'?':
            ++(afterPoint_ ? section_.decimals : section_.wholeDigits);
            Add(afterPoint_ ? What::Decimal : What::WholeDigit, sign);
            break;
        case u'.':
            Add(afterPoint_ ? What::Literal : What::Point, sign);
            afterPoint_ = true;
            break;
        case u',':
            ReadComma();
            break;
        case u'%':
            section_.power += 2;
            Add(What::Literal, sign);
            break;
        case u'"':
            Add(What::Literal, Until(u'"').toString());
            break;
        case u'\\':
            Add(What::Literal, Next());
            ++at_;
            break;
        case u'_': // as much room as the next character takes
            Add(What::Literal, QChar(u' '));
            ++at_;
            break;
        case u'*': // the next character fills up the cell
            ++at_;
            break;
        case u'[':
            ReadBrackets(Until(u']'));
            break;
        case u'@':
            Add(What::General);
            break;
        default:
            ReadLetter(sign);
        }
    }

    void ReadLetter(QChar sign)
    {
        switch (sign.toLower().unicode()) {
        case u'y':
        case u'd':
            section_.date = true;
            break;
        case u'h':
        case u's':
            section_.time = true;
            break;
        case u'm':
            monthOrMinute_ = true;
            break;
        case u'e': // of an exponent
            section_.plain = section_.plain || Next() == u'+' || Next() == u'-';
            break;
        case u'/': // of a fraction
            section_.plain = section_.plain || (FollowsDigit() && (IsDigitSign(Next()) || Next().isDigit()));
            break;
        default:
            break;
        }
        Add(What::Literal, sign);
    }

    /// Between digits it groups them in threes; behind them it leaves out three digits.
    void ReadComma()
    {
        if (!FollowsDigit())
            Add(What::Literal, QChar(u','));
        else if (IsDigitSign(Next()))
            section_.grouped = true;
        else
            section_.power -= 3;
    }

    /// A currency with its language, a condition, a count of hours, or a colour, which does not show here.
    void ReadBrackets(QStringView words)
    {
        static constexpr std::pair<QStringView, Relation> relations[] = {
            {u"<=", Relation::LessOrEqual}, {u">=", Relation::GreaterOrEqual}, {u"<>", Relation::NotEqual},
            {u"<", Relation::Less},         {u">", Relation::Greater},         {u"=", Relation::Equal}};
        if (words.startsWith(u'$')) {
            Add(What::Literal, words.sliced(1).toString().section(u'-', 0, 0));
            return;
        }
        if (words == u"h" || words == u"hh" || words == u"m" || words == u"mm" || words == u"s" ||
            words == u"ss")
            section_.time = true;
        const auto relation = std::find_if(std::begin(relations), std::end(relations),
                                           [&](const auto& each) { return words.startsWith(each.first); });
        if (relation == std::end(relations))
            return;
        section_.relation = relation->second;
        section_.limit = words.sliced(relation->first.size()).toDouble();
    }

    bool FollowsDigit() const
    {
        return !section_.tokens.empty() && (section_.tokens.back().what == What::WholeDigit ||
                                            section_.tokens.back().what == What::Decimal);
    }

    void Add(What what, const QString& text = {}) { section_.tokens.push_back({what, text}); }

    QStringView code_;
    qsizetype at_ = 0;
    Section section_;
    bool afterPoint_ = false;
    bool monthOrMinute_ = false;
};

XlsNumberFormat::XlsNumberFormat(QStringView code)
{
    if (code.isEmpty() || code.size() > MostCodeCharacters)
        code = u"General";
    sections_ = Parser(code).Sections();
    sections_.resize(std::min(sections_.size(), MostSections));
}

QString XlsNumberFormat::BuiltInCode(int number)
{
    static constexpr QStringView date = u"yyyy-mm-dd";
    static constexpr QStringView time = u"hh:mm:ss";
    static constexpr QStringView whole = u"#,##0";
    static constexpr QStringView cents = u"#,##0.00";
    static constexpr QStringView elapsed = u"[h]:mm:ss";
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
                 {45, 47, elapsed},
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
    const int place = SectionFor(value);
    if (place < 0)
        return ShownGeneral(value);
    const Section& section = sections_[static_cast<std::size_t>(place)];
    if (section.date || section.time) {
        const QDateTime moment = MomentOf(value, firstDay);
        return moment.isValid() ? ShownMoment(moment, section.date, section.time) : ShownGeneral(value);
    }
    if (section.plain)
        return ShownGeneral(value);
    // A section of their own tells negative numbers by its words.
    const QString sign = value < 0 && place == 0 ? QStringLiteral("-") : QString();
    return sign + ShownDigits(section, std::abs(value));
}

int XlsNumberFormat::SectionFor(double value) const
{
    const auto sections = static_cast<int>(sections_.size());
    for (int place = 0; place < sections; ++place) {
        const Section& section = sections_[static_cast<std::size_t>(place)];
        const bool last = place == sections - 1;
        const bool byPlace = place == 0 ? (sections == 2 ? value >= 0 : value > 0) : value < 0;
        if (section.relation != Relation::None ? section.Meets(value) : last || byPlace)
            return place;
    }
    return -1;
}

bool XlsNumberFormat::Section::Meets(double value) const
{
    switch (relation) {
    case Relation::Less:
        return value < limit;
    case Relation::LessOrEqual:
        return value <= limit;
    case Relation::Equal:
        return value == limit;
    case Relation::NotEqual:
        return value != limit;
    case Relation::GreaterOrEqual:
        return value >= limit;
    case Relation::Greater:
        return value > limit;
    case Relation::None:
        break;
    }
    return true;
}

QString XlsNumberFormat::ShownDigits(const Section& section, double magnitude)
{
    const auto [whole, decimals] = DigitsOf(magnitude, section.power, section.decimals);
    qsizetype needed = decimals.size(); // decimals up to the last one that is no zero
    while (needed > 0 && decimals[needed - 1] == u'0')
        --needed;

    QString shown;
    // A digit, or the sign of an empty place, that has so many places behind it.
    const auto addWhole = [&](QChar digit, int behind) {
        shown += digit;
        if (section.grouped && behind > 0 && behind % 3 == 0)
            shown += u',';
    };
    qsizetype behind = section.wholeDigits; // places for digits that are still to come
    qsizetype left = whole.size();          // digits that are still to come
    qsizetype decimal = 0;
    for (const auto& [what, text] : section.tokens) {
        switch (what) {
        case What::Literal:
            shown += text;
            break;
        case What::General:
            shown += ShownGeneral(magnitude);
            break;
        case What::WholeDigit:
            --behind;
            if (left <= behind && text != u"#")
                addWhole(text == u"0" ? u'0' : u' ', static_cast<int>(behind));
            for (; left > behind; --left) // the first place takes all that have none
                addWhole(whole[whole.size() - left], static_cast<int>(left - 1));
            break;
        case What::Point:
            for (; left > behind; --left) // the code has no place for any
                shown += whole[whole.size() - left];
            shown += u'.';
            break;
        case What::Decimal:
            if (text == u"0" || decimal < needed)
                shown += decimals[decimal];
            else if (text == u"?")
                shown += u' ';
            ++decimal;
            break;
        }
    }
    return shown;
}

} // namespace tsms

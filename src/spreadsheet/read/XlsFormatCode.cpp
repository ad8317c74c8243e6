#include "spreadsheet/read/XlsFormatCode.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tsms {

namespace {

using Relation = FormatSection::Relation;

constexpr std::size_t MostSections = 3; // a fourth one is for texts

bool IsDigitSign(QChar c)
{
    return c == u'0' || c == u'#' || c == u'?';
}

/// Hours, minutes or seconds that go on counting: [h], [MM] and so on.
bool IsElapsedTime(QStringView words)
{
    return !words.isEmpty() && QStringView(u"hms").contains(words[0], Qt::CaseInsensitive) &&
           words.count(words[0], Qt::CaseInsensitive) == words.size();
}

/// Reads one section.
class SectionReader
{
public:
    SectionReader(QStringView code, qsizetype begin) : code_(code), at_(begin) {}

    FormatSection Read()
    {
        while (!AtEnd() && Next() != u';')
            if (!ReadName())
                ReadSign(code_[at_++]);
        const bool hasDigits = section_.wholeDigits + section_.decimals > 0;
        if ((hasMonthOrMinute_ && !section_.time) || (hasCalendar_ && !hasDigits))
            section_.date = true;
        return std::move(section_);
    }

    qsizetype End() const { return std::min(at_, code_.size()); }
    bool IsForTexts() const { return isForTexts_; }

private:
    bool AtEnd() const { return at_ >= code_.size(); }
    QChar Next() const { return AtEnd() ? QChar() : code_[at_]; }

    /// What stands before `end`, which is left behind.
    QStringView Until(QChar end)
    {
        const qsizetype begin = at_;
        const qsizetype found = code_.indexOf(end, begin);
        at_ = found < 0 ? code_.size() : found;
        const QStringView words = code_.sliced(begin, at_ - begin);
        ++at_;
        return words;
    }

    bool Skip(QStringView name)
    {
        const bool isThere = code_.sliced(at_).startsWith(name, Qt::CaseInsensitive);
        at_ += isThere ? name.size() : 0;
        return isThere;
    }

    /// Korean spreadsheets write "General" in their own language.
    bool ReadName()
    {
        if (Skip(u"General") || Skip(u"G/표준"))
            Add(FormatToken::General);
        else if (Skip(u"AM/PM") || Skip(u"A/P"))
            section_.time = true;
        else
            return false;
        return true;
    }

    void ReadSign(QChar sign)
    {
        switch (sign.unicode()) {
        case u'0':
        case u'#':
        case u'?':
            ++(isBehindPoint_ ? section_.decimals : section_.wholeDigits);
            Add(isBehindPoint_ ? FormatToken::Decimal : FormatToken::WholeDigit, Last());
            break;
        case u'.':
            Add(isBehindPoint_ ? FormatToken::Words : FormatToken::Point, Last());
            isBehindPoint_ = true;
            break;
        case u',':
            ReadComma();
            break;
        case u'%':
            section_.power += 2;
            Add(FormatToken::Words, Last());
            break;
        case u'"':
            Add(FormatToken::Words, Until(u'"'));
            break;
        case u'\\':
            Add(FormatToken::Words, code_.sliced(at_).first(AtEnd() ? 0 : 1));
            ++at_;
            break;
        case u'_': // as much room as the next character takes
            Add(FormatToken::Blank);
            ++at_;
            break;
        case u'*': // the next character fills up the cell
            ++at_;
            break;
        case u'[':
            ReadBrackets(Until(u']'));
            break;
        case u'@':
            isForTexts_ = true;
            Add(FormatToken::General);
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
            hasMonthOrMinute_ = true;
            break;
        case u'a': // days of the week, eras and years of other calendars
        case u'b':
        case u'g':
            hasCalendar_ = true;
            break;
        case u'e': // such a year too, if not an exponent
            (Next() == u'+' || Next() == u'-' ? section_.general : hasCalendar_) = true;
            break;
        case u'/': // of a fraction
            section_.general =
                section_.general || (FollowsDigit() && (IsDigitSign(Next()) || Next().isDigit()));
            break;
        default:
            break;
        }
        Add(FormatToken::Words, Last());
    }

    /// Between digits it groups them in threes; behind them it leaves out three digits.
    void ReadComma()
    {
        if (!FollowsDigit())
            Add(FormatToken::Words, Last());
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
            const qsizetype language = words.indexOf(u'-');
            Add(FormatToken::Words, words.first(language < 0 ? words.size() : language).sliced(1));
            return;
        }
        if (IsElapsedTime(words))
            section_.time = section_.elapsed = true;
        const auto relation = std::find_if(std::begin(relations), std::end(relations),
                                           [&](const auto& each) { return words.startsWith(each.first); });
        if (relation == std::end(relations))
            return;
        section_.relation = relation->second;
        section_.limit = words.sliced(relation->first.size()).toDouble();
    }

    bool FollowsDigit() const
    {
        return !section_.tokens.empty() && (section_.tokens.back().what == FormatToken::WholeDigit ||
                                            section_.tokens.back().what == FormatToken::Decimal);
    }

    /// The sign that was read just now.
    QStringView Last() const { return code_.sliced(at_ - 1, 1); }

    /// `text` is a piece of the code.
    void Add(FormatToken::What what, QStringView text)
    {
        section_.tokens.push_back(
            {what, static_cast<quint8>(text.data() - code_.data()), static_cast<quint8>(text.size())});
    }
    void Add(FormatToken::What what) { section_.tokens.push_back({what}); }

    QStringView code_;
    qsizetype at_;
    FormatSection section_;
    bool isForTexts_ = false;
    bool isBehindPoint_ = false;
    bool hasMonthOrMinute_ = false;
    bool hasCalendar_ = false;
};

/// Without conditions the first section is for positive numbers, the second one for negative ones, and the
/// last one for all others.
void AddConditions(std::vector<FormatSection>& sections)
{
    constexpr Relation relations[] = {Relation::Greater, Relation::Less};
    for (std::size_t i = 0; i + 1 < sections.size(); ++i)
        if (sections[i].relation == Relation::None)
            sections[i].relation = sections.size() == 2 ? Relation::GreaterOrEqual : relations[i];
}

/// A negative number shows its sign where positive ones show as well.
void AddSigns(std::vector<FormatSection>& sections)
{
    bool positiveAreTaken = false;
    for (FormatSection& section : sections) {
        section.signless = positiveAreTaken || section.HasNoneAboveZero();
        positiveAreTaken = positiveAreTaken || section.HasAllAboveZero();
    }
}

} // namespace

bool FormatSection::CanTake(double value) const
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

bool FormatSection::HasNoneAboveZero() const
{
    const bool isBelow =
        relation == Relation::Less || relation == Relation::LessOrEqual || relation == Relation::Equal;
    return isBelow && limit <= 0;
}

bool FormatSection::HasAllAboveZero() const
{
    return (relation == Relation::Greater || relation == Relation::GreaterOrEqual) && limit <= 0;
}

std::vector<FormatSection> ReadFormatCode(QStringView code)
{
    std::vector<FormatSection> sections;
    bool lastIsForTexts = false;
    for (qsizetype at = 0; at <= code.size() && sections.size() < MostSections;) {
        SectionReader reader(code, at);
        sections.push_back(reader.Read());
        lastIsForTexts = reader.IsForTexts();
        at = reader.End() + 1; // behind the semicolon
    }
    if (lastIsForTexts && sections.size() > 1)
        sections.pop_back();
    AddConditions(sections);
    AddSigns(sections);
    return sections;
}

} // namespace tsms

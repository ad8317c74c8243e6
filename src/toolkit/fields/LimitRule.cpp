#include "toolkit/fields/LimitRule.h"

#include "runtime/CodePage949.h"
#include "runtime/Numbers.h"

#include <algorithm>
#include <iterator>

namespace tsms {

namespace {

bool SplitsPair(QStringView text, qsizetype at)
{
    if (at <= 0 || at >= text.size())
        return false;
    return (text[at - 1].isHighSurrogate() && text[at].isLowSurrogate()) ||
           (text[at - 1] == u'\r' && text[at] == u'\n');
}

qsizetype CommonBeginning(QStringView a, QStringView b)
{
    const qsizetype most = std::min(a.size(), b.size());
    const auto difference = std::mismatch(a.begin(), a.begin() + most, b.begin());
    return difference.first - a.begin();
}

qsizetype CommonEnd(QStringView a, QStringView b)
{
    const qsizetype most = std::min(a.size(), b.size());
    qsizetype length = 0;
    while (length < most && a[a.size() - 1 - length] == b[b.size() - 1 - length])
        ++length;
    return length;
}

int Characters(QStringView text)
{
    return static_cast<int>(text.size());
}

qsizetype FittingCharacters(QStringView text, int room)
{
    const qsizetype length = std::clamp<qsizetype>(room, 0, text.size());
    return SplitsPair(text, length) ? length - 1 : length;
}

bool IsPhoneCharacter(QChar c)
{
    return (c >= u'0' && c <= u'9') || c == u'-' || c == u'.' || c == u'/';
}

QString PhoneCharacters(QStringView text)
{
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), IsPhoneCharacter);
    return kept;
}

CaretText FirstLinePutIn(const QString& before, const CaretText& now)
{
    const QStringView text = now.text;
    const Insertion put = FindInsertion(before, text, now.caret);
    const qsizetype end = put.start + FirstLineLength(text.sliced(put.start, put.length));
    if (end == put.start + put.length)
        return now;
    return {text.first(end).toString().append(text.sliced(put.start + put.length)), end};
}

} // namespace

const Measure BytesMeasure{MessageBytes, FittingLength};
const Measure CharactersMeasure{Characters, FittingCharacters};

Insertion FindInsertion(QStringView before, QStringView after, qsizetype caret)
{
    qsizetype end = std::clamp<qsizetype>(caret, 0, after.size());
    if (!before.endsWith(after.sliced(end))) {
        const qsizetype beginning = CommonBeginning(before, after);
        end = after.size() - CommonEnd(before.sliced(beginning), after.sliced(beginning));
        if (SplitsPair(after, end))
            ++end;
    }
    const QStringView keptBefore = before.chopped(std::min(before.size(), after.size() - end));
    qsizetype start = CommonBeginning(keptBefore, after.first(end));
    if (SplitsPair(after, start))
        --start;
    return {start, end - start};
}

CaretText LimitChange(QStringView before, QStringView after, qsizetype caret, const Measure& measure,
                      int limit)
{
    if (measure.length(after) <= limit)
        return {after.toString(), caret};
    const Insertion put = FindInsertion(before, after, caret);
    const QStringView ahead = after.first(put.start);
    const QStringView behind = after.sliced(put.start + put.length);
    const int room = limit - measure.length(ahead) - measure.length(behind);
    const qsizetype kept = measure.fitting(after.sliced(put.start, put.length), room);
    const QString whole = after.first(put.start + kept).toString().append(behind);
    // What stood there before may have been too long already: then the end goes too.
    const QString text = LimitText(whole, measure, limit);
    return {text, std::min(put.start + kept, text.size())};
}

CaretText KeepPhoneCharacters(const CaretText& text)
{
    return {PhoneCharacters(text.text), PhoneCharacters(QStringView(text.text).first(text.caret)).size()};
}

CaretText GroupThousands(const CaretText& text)
{
    const QString grouped = GroupDigits(text.text);
    const qsizetype fromEnd = text.text.size() - text.caret;
    return {grouped, std::max<qsizetype>(0, grouped.size() - fromEnd)};
}

CaretText Admit(const QString& before, const CaretText& now, const FieldLimits& limits, bool byProgram)
{
    const auto hold = [&](const CaretText& text, const Measure& measure, int most) {
        if (most == 0 || measure.length(text.text) <= most)
            return text;
        if (!byProgram)
            return LimitChange(before, text.text, text.caret, measure, most);
        const QString kept = LimitText(text.text, measure, most);
        return CaretText{kept, std::min(text.caret, kept.size())};
    };
    const auto holdBoth = [&](const CaretText& text) {
        return hold(hold(text, CharactersMeasure, limits.characters), BytesMeasure, limits.bytes);
    };
    const CaretText put = limits.oneLine && !byProgram ? FirstLinePutIn(before, now) : now;
    if (!limits.filter)
        return holdBoth(put);
    const CaretText filtered = limits.filter(hold(put, CharactersMeasure, limits.characters));
    CaretText kept = limits.filter(holdBoth(filtered));
    if (holdBoth(kept) == kept)
        return kept;
    return {before, std::min(FindInsertion(before, now.text, now.caret).start, before.size())};
}

qsizetype FirstLineLength(QStringView text)
{
    const auto isBreak = [](QChar c) {
        return c == u'\r' || c == u'\n' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    return std::find_if(text.begin(), text.end(), isBreak) - text.begin();
}

QString LimitText(QStringView text, const Measure& measure, int limit)
{
    return text.first(measure.fitting(text, limit)).toString();
}

QString Manageable(QStringView text)
{
    return LimitText(text, CharactersMeasure, MostGiven);
}

} // namespace tsms

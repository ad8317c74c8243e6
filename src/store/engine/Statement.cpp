#include "store/engine/Statement.h"

#include "runtime/Text.h"
#include "store/engine/DatabaseError.h"

#include <algorithm>
#include <utility>

namespace tsms {

namespace {

constexpr QChar Apostrophe(u'\'');
constexpr QChar Mark(u'?'); ///< of a value among the words

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool IsWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c.isSurrogate() || c == u'_';
}

/// A driver ends a text at a NUL and at half of a surrogate pair. What the program put behind a value would
/// be lost, the condition of an UPDATE for one.
bool IsCutByDrivers(QStringView text)
{
    return text.contains(QChar(QChar::Null)) || !text.isValidUtf16();
}

/// A value without an apostrophe and without anything that a driver could cut it at, as nearly all are.
bool IsHarmless(QStringView value)
{
    return std::none_of(value.begin(), value.end(),
                        [](QChar c) { return c == Apostrophe || c == QChar::Null || c.isSurrogate(); });
}

/// The word or the sign at a position: what a syntax error names.
QStringView TokenAt(QStringView text, qsizetype at)
{
    while (at < text.size() && text[at].isSpace())
        ++at;
    qsizetype end = at;
    while (end < text.size() && IsWordCharacter(text[end]))
        ++end;
    if (end == at && at < text.size())
        ++end;
    return text.sliced(at, end - at);
}

/// Reads a bare value: numbers with + - * / between them.
class BareReader
{
public:
    explicit BareReader(QStringView text) : text_(text) {}

    QString Fault()
    {
        for (const QStringView comment : {QStringView(u"--"), QStringView(u"/*")})
            if (text_.contains(comment))
                return SyntaxErrorNear(comment);
        SkipBlanks();
        if (AtEnd())
            return {};
        for (bool divides = false;;) {
            while (Take(u'+') || Take(u'-'))
                SkipBlanks();
            const qsizetype from = at_;
            if (!TakeNumber())
                return SyntaxErrorNear(AtEnd() ? text_.last(1) : TokenAt(text_, at_));
            if (divides && text_.sliced(from, at_ - from).toDouble() == 0)
                return QStringLiteral("Divide by zero error encountered.");
            SkipBlanks();
            if (AtEnd())
                return {};
            divides = text_[at_] == u'/';
            if (!Take(u'+') && !Take(u'-') && !Take(u'*') && !Take(u'/'))
                return SyntaxErrorNear(TokenAt(text_, at_));
            SkipBlanks();
        }
    }

private:
    bool AtEnd() const { return at_ >= text_.size(); }

    void SkipBlanks()
    {
        while (!AtEnd() && text_[at_] == u' ')
            ++at_;
    }

    bool Take(char16_t sign)
    {
        if (AtEnd() || text_[at_] != sign)
            return false;
        ++at_;
        return true;
    }

    int TakeDigits()
    {
        const qsizetype from = at_;
        while (!AtEnd() && IsDigit(text_[at_]))
            ++at_;
        return static_cast<int>(at_ - from);
    }

    bool TakeNumber()
    {
        int digits = TakeDigits();
        if (Take(u'.'))
            digits += TakeDigits();
        if (digits == 0)
            return false;
        if (!Take(u'e') && !Take(u'E'))
            return true;
        if (!Take(u'+'))
            Take(u'-');
        return TakeDigits() > 0;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

/// What stands outside the literals of a text.
struct Outside
{
    explicit Outside(QStringView text)
    {
        for (qsizetype at = 0; at < text.size(); ++at)
            if (text[at] == Apostrophe)
                endsInsideLiteral = !endsInsideLiteral;
            else if (!endsInsideLiteral && hidingMark.isEmpty())
                hidingMark = MarkAt(text.sliced(at));
    }

    bool endsInsideLiteral = false;
    QStringView hidingMark; ///< a comment or a quoted name: it could hide an apostrophe

private:
    static QStringView MarkAt(QStringView text)
    {
        for (const QStringView mark : {u"--", u"/*", u"\"", u"[", u"`"})
            if (text.startsWith(mark))
                return mark;
        return {};
    }
};

} // namespace

Statement::Statement(QStringView own) : words_(own.toString()) {}

Statement& Statement::Own(QStringView words)
{
    words_ += words;
    return *this;
}

Statement& Statement::Quoted(const QString& value)
{
    const QString trimmed = Trim(value);
    return trimmed.isEmpty() ? Add(std::nullopt) : InQuotes(trimmed);
}

Statement& Statement::InQuotes(const QString& value)
{
    if (!IsHarmless(value)) {
        isCut_ = isCut_ || IsCutByDrivers(value);
        hasApostrophe_ = hasApostrophe_ || value.contains(Apostrophe);
    }
    return Add(value);
}

Statement& Statement::Bare(QStringView value)
{
    isCut_ = isCut_ || IsCutByDrivers(value);
    if (bareFault_.isEmpty())
        bareFault_ = words_.endsWith(u'-') && value.startsWith(u'-') ? SyntaxErrorNear(u"--")
                                                                     : BareReader(value).Fault();
    return Own(value);
}

Statement& Statement::Add(std::optional<QString> value)
{
    constexpr qsizetype usual = 16; // the row of a send has fewer
    if (values_.isEmpty())
        values_.reserve(usual);
    values_.append(Value{words_.size(), std::move(value)});
    words_ += Mark;
    return *this;
}

QString Statement::Text() const
{
    return TextBefore(values_.size());
}

/// The text up to the value of this index.
QString Statement::TextBefore(qsizetype index) const
{
    QString text;
    qsizetype from = 0;
    for (const Value& value : values_.first(index)) {
        text += QStringView(words_).sliced(from, value.at - from);
        text += value.text ? Apostrophe + *value.text + Apostrophe : QStringLiteral("Null");
        from = value.at + 1;
    }
    const qsizetype to = index < values_.size() ? values_[index].at : words_.size();
    return text += QStringView(words_).sliced(from, to - from);
}

QString Statement::Fault() const
{
    if (isCut_)
        return SyntaxErrorNear(QStringView());
    if (!bareFault_.isEmpty())
        return bareFault_;
    return hasApostrophe_ ? FaultOfApostrophe() : QString();
}

QString Statement::FaultOfApostrophe() const
{
    const QString text = Text();
    const Outside outside(text);
    // Looked at before the quotes: where these stand, the server may pair the quotes in another way than we
    // do.
    if (!outside.hidingMark.isEmpty())
        return SyntaxErrorNear(outside.hidingMark);
    if (outside.endsInsideLiteral)
        return {};
    qsizetype behind = FirstApostrophe();
    while (behind < text.size() && text[behind] == Apostrophe)
        ++behind;
    return SyntaxErrorNear(TokenAt(text, behind));
}

/// Where in the text the first apostrophe of a value stands.
qsizetype Statement::FirstApostrophe() const
{
    qsizetype index = 0;
    while (!values_[index].text || !values_[index].text->contains(Apostrophe))
        ++index;
    return TextBefore(index).size() + 1 + values_[index].text->indexOf(Apostrophe);
}

} // namespace tsms

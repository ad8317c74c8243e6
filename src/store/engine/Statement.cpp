#include "store/engine/Statement.h"

#include "runtime/Text.h"
#include "store/engine/DatabaseError.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tsms {

namespace {

constexpr char16_t Apostrophe = u'\'';

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
            while (Takes(u'+') || Takes(u'-'))
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
            if (!Takes(u'+') && !Takes(u'-') && !Takes(u'*') && !Takes(u'/'))
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

    bool Takes(char16_t sign)
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
        if (Takes(u'.'))
            digits += TakeDigits();
        if (digits == 0)
            return false;
        if (!Takes(u'e') && !Takes(u'E'))
            return true;
        if (!Takes(u'+'))
            Takes(u'-');
        return TakeDigits() > 0;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

/// What stands outside the literals of a text.
class OutsideScan
{
public:
    explicit OutsideScan(QStringView text) : text_(text) { Walk(); }

    bool endsInsideLiteral = false;
    QStringView hidingMark;      ///< a comment or a quoted name: it could hide an apostrophe
    QStringView secondStatement; ///< what begins one

private:
    void Walk()
    {
        for (qsizetype at = 0; at < text_.size();) {
            const QChar c = text_[at];
            if (endsInsideLiteral) {
                endsInsideLiteral = c != Apostrophe;
                ++at;
            } else if (IsWordCharacter(c)) {
                const QStringView word = TokenAt(text_, at);
                TakeWord(word);
                at += word.size();
            } else {
                TakeSign(at);
                ++at;
            }
        }
    }

    void TakeSign(qsizetype at)
    {
        const QChar c = text_[at];
        const QChar next = at + 1 < text_.size() ? text_[at + 1] : QChar();
        if (c == Apostrophe)
            endsInsideLiteral = true;
        else if (c == u'(')
            ++depth_;
        else if (c == u')')
            --depth_;
        else if ((c == u'-' && next == u'-') || (c == u'/' && next == u'*'))
            Note(hidingMark, text_.sliced(at, 2));
        else if (c == u'"' || c == u'[' || c == u'`')
            Note(hidingMark, text_.sliced(at, 1));
        else if (c == u';')
            Note(secondStatement, text_.sliced(at, 1));
    }

    void TakeWord(QStringView word)
    {
        if (firstWord_.isEmpty())
            firstWord_ = word;
        else if (BeginsAnother(word))
            Note(secondStatement, word);
    }

    /// True for a word behind the first that only a further statement can hold.
    bool BeginsAnother(QStringView word)
    {
        static constexpr std::array<QStringView, 22> beginnings = {
            u"INSERT",   u"UPDATE", u"DELETE",  u"DROP",   u"CREATE",   u"ALTER", u"EXEC",   u"EXECUTE",
            u"TRUNCATE", u"MERGE",  u"DECLARE", u"USE",    u"SHUTDOWN", u"BEGIN", u"COMMIT", u"ROLLBACK",
            u"GRANT",    u"REVOKE", u"WAITFOR", u"BACKUP", u"RESTORE",  u"UNION"};
        const auto is = [word](QStringView other) {
            return word.size() == other.size() && word.compare(other, Qt::CaseInsensitive) == 0;
        };
        if (is(u"SELECT"))
            return depth_ <= 0;
        if (is(u"SET"))
            return std::exchange(setSeen_, true) || firstWord_.compare(u"UPDATE", Qt::CaseInsensitive) != 0;
        return std::any_of(beginnings.begin(), beginnings.end(), is);
    }

    static void Note(QStringView& place, QStringView found)
    {
        if (place.isEmpty())
            place = found;
    }

    QStringView text_;
    QStringView firstWord_;
    int depth_ = 0;
    bool setSeen_ = false;
};

} // namespace

Statement::Statement(QStringView own)
{
    Own(own);
}

Statement& Statement::Own(QStringView words)
{
    text_ += words;
    return *this;
}

Statement& Statement::Quoted(QStringView value)
{
    const QString trimmed = Trim(value);
    if (trimmed.isEmpty())
        return Own(u"Null");
    return Own(u"'").InQuotes(trimmed).Own(u"'");
}

Statement& Statement::InQuotes(QStringView value)
{
    return Value(value);
}

Statement& Statement::Bare(QStringView value)
{
    if (bareFault_.isEmpty())
        bareFault_ = BareReader(value).Fault();
    return Value(value);
}

Statement& Statement::Value(QStringView value)
{
    values_ += Span{text_.size(), text_.size() + value.size()};
    text_ += value;
    return *this;
}

QString Statement::Fault() const
{
    if (IsCutByDrivers(text_))
        return SyntaxErrorNear(QStringView());
    if (!bareFault_.isEmpty())
        return bareFault_;
    const OutsideScan scan(text_);
    // Looked at before the quotes: where these stand, the server may pair the quotes in another way than we
    // do.
    if (!scan.hidingMark.isEmpty())
        return SyntaxErrorNear(scan.hidingMark);
    if (scan.endsInsideLiteral)
        return {};
    if (QString fault = FaultOfValues(); !fault.isEmpty())
        return fault;
    return scan.secondStatement.isEmpty() ? QString() : SyntaxErrorNear(scan.secondStatement);
}

QString Statement::FaultOfValues() const
{
    for (const Span& value : values_) {
        const qsizetype at = QStringView(text_).sliced(value.from, value.to - value.from).indexOf(Apostrophe);
        if (at < 0)
            continue;
        qsizetype behind = value.from + at;
        while (behind < text_.size() && text_[behind] == Apostrophe)
            ++behind;
        return SyntaxErrorNear(TokenAt(text_, behind));
    }
    return {};
}

} // namespace tsms

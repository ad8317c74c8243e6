// Puts any values into statements like the program's, and any text through the dialect of the embedded
// engine. The first byte chooses the statement (its two low bits; with bit 2 the text itself is one) and how
// the rest is read (bit 3: UTF-16, else UTF-8); values stand between characters 0x1E.
#include "fuzz/Target.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "store/embedded/DialectTokens.h"
#include "store/embedded/EmbeddedDialect.h"
#include "store/engine/DatabaseError.h"
#include "store/engine/Statement.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

using namespace tsms;
using namespace tsms::test;

namespace {

// The places of values in a pattern: bare, an optional text, a text in quotes.
constexpr QChar Bare(u'#');
constexpr QChar Quoted(u'?');
constexpr QChar InQuotes(u'@');

constexpr std::array<QStringView, 4> Patterns = {
    u"Insert INTO SMSLog_# (A,B,C) VALUES (?,@,?)",
    u"SELECT CONVERT(VARCHAR(10),A,120) FROM SMSLog_# AS P WHERE 1 = 1 AND REPLACE(A,'-','') LIKE @ AND "
    u"(LEFT(B,10) >= @)",
    u"UPDATE T SET A = @, B = ? WHERE K=#",
    u"DELETE T WHERE A = @ AND DATEADD(DAY,1,B) < @",
};

/// The kinds of the places of a pattern, in order.
QString PlacesIn(QStringView pattern)
{
    QString places;
    for (const QChar c : pattern)
        if (c == Bare || c == Quoted || c == InQuotes)
            places += c;
    return places;
}

Statement Assembled(QStringView pattern, const QStringList& values)
{
    Statement statement;
    qsizetype place = 0;
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        if (pattern[at] == Bare)
            statement.Bare(values[place++]);
        else if (pattern[at] == Quoted)
            statement.Quoted(values[place++]);
        else if (pattern[at] == InQuotes)
            statement.InQuotes(values[place++]);
        else
            statement.Own(pattern.sliced(at, 1));
    }
    return statement;
}

QChar MarkOf(qsizetype place)
{
    return QChar(static_cast<char16_t>(0xE000 + place));
}

/// Values that only mark the places of the texts among the given ones.
QStringList Marks(const QString& places, QStringList values)
{
    for (qsizetype place = 0; place < places.size(); ++place)
        if (places[place] == InQuotes || (places[place] == Quoted && !IsBlank(values[place])))
            values[place] = MarkOf(place);
    return values;
}

/// A text with the values in place of their marks.
QString Filled(QString text, const QString& places, const QStringList& values)
{
    for (qsizetype place = 0; place < places.size(); ++place)
        text.replace(MarkOf(place), places[place] == Quoted ? Trim(values[place]) : values[place]);
    return text;
}

bool IsHarmless(QChar place, const QString& value)
{
    if (place == Bare)
        return !value.isEmpty() &&
               std::all_of(value.begin(), value.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return !value.contains(u'\'') && !value.contains(QChar(QChar::Null)) && QStringView(value).isValidUtf16();
}

bool AreHarmless(const QString& places, const QStringList& values)
{
    for (qsizetype place = 0; place < places.size(); ++place)
        if (!IsHarmless(places[place], values[place]))
            return false;
    return true;
}

/// A statement as a SQL Server takes it apart: what stands outside its literals, and these.
struct TakenApart
{
    explicit TakenApart(QStringView text) : text_(text)
    {
        while (!text_.isEmpty())
            if (text_.startsWith(u'\''))
                literals += Take(text_.indexOf(u'\'', 1), 1).toString();
            else if (text_.startsWith(u"--"))
                outside += Take(text_.contains(u'\n') ? text_.indexOf(u'\n') : text_.size(), 0);
            else if (text_.startsWith(u"/*"))
                outside += Take(text_.indexOf(u"*/", 2), 2);
            else if (text_.startsWith(u'['))
                outside += Take(text_.indexOf(u']'), 1);
            else if (text_.startsWith(u'"'))
                outside += Take(text_.indexOf(u'"', 1), 1);
            else
                outside += Take(0, 1);
    }

    QString outside; ///< with nothing where a literal stood
    QStringList literals;
    bool isWhole = true;

private:
    QStringView Take(qsizetype close, qsizetype closeSize)
    {
        isWhole = isWhole && close >= 0;
        const qsizetype size = close < 0 ? text_.size() : std::max<qsizetype>(close + closeSize, 1);
        const QStringView taken = text_.first(size);
        text_ = text_.sliced(size);
        return taken;
    }

    QStringView text_;
};

/// The statement for the embedded engine; none where it is refused.
std::optional<QString> Embedded(const QString& sql)
{
    try {
        return QString::fromUtf8(ToEmbeddedDialect(sql));
    } catch (const RuntimeError& error) {
        Require(error.Number == StatementFailure);
        return std::nullopt;
    }
}

/// What passes the guard is what the pattern is with its values in their places, to the server and to the
/// engine.
void RequireUnchanged(QStringView pattern, const QStringList& values)
{
    const QString places = PlacesIn(pattern);
    const Statement statement = Assembled(pattern, values);
    if (!statement.Fault().isEmpty())
        return Require(!AreHarmless(places, values));
    const TakenApart actual(statement.Text());
    if (!actual.isWhole) // the server refuses it itself
        return Require(!Embedded(statement.Text()));
    const Statement marked = Assembled(pattern, Marks(places, values));
    const TakenApart expected(marked.Text());
    Require(actual.outside == expected.outside && actual.literals.size() == expected.literals.size());
    for (qsizetype i = 0; i < actual.literals.size(); ++i)
        Require(actual.literals[i] == Filled(expected.literals[i], places, values));
    Require(!statement.HasApostrophe() && statement.Words() == marked.Words());
}

/// Any text is translated or refused, and its pieces make it up without a gap.
void Translate(const QString& sql)
{
    const QByteArray utf8 = sql.toUtf8();
    if (!Embedded(sql) || utf8.isEmpty())
        return;
    std::size_t size = 0;
    for (const DialectToken& token :
         SplitDialect(std::string_view(utf8.constData(), std::size_t(utf8.size()))))
        size += token.text.size();
    Require(size == static_cast<std::size_t>(utf8.size()));
}

void ReadStatement(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    const unsigned int how = static_cast<unsigned char>(bytes[0]);
    const QString text = TextIn(bytes.sliced(1), (how & 8) != 0);
    if ((how & 4) != 0)
        return Translate(text);
    const QStringView pattern = Patterns[how % Patterns.size()];
    QStringList values = text.split(u'\x1E');
    values.resize(PlacesIn(pattern).size());
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return c >= MarkOf(0) && c < MarkOf(16); }))
        RequireUnchanged(pattern, values);
}

const Target statement("statement", ReadStatement);

} // namespace

#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace tsms {

/// A SQL text under assembly. Texts are joined as they stand and nothing in a value is ever escaped; what
/// keeps a value from changing the statement is Fault(), which knows which words are the program's own and
/// which came from outside.
class Statement
{
public:
    Statement() = default;
    Statement(QStringView own);
    Statement(const QString& own) : Statement(QStringView(own)) {}
    Statement(const char16_t* own) : Statement(QStringView(own)) {}

    /// The program's own words. Their apostrophes open and close literals.
    Statement& Own(QStringView words);

    /// The rule of optional texts: trimmed; the word Null if nothing is left, else between apostrophes.
    Statement& Quoted(QStringView value);

    /// A value from outside that stands between apostrophes which own words open and close.
    Statement& InQuotes(QStringView value);

    /// A value from outside that stands bare: numbers, and + - * / between them. Anything else is a fault,
    /// except nothing at all, which the server refuses by itself.
    Statement& Bare(QStringView value);

    const QString& Text() const { return text_; }

    /// Empty when the text may be sent, else the words with which it is refused: a value that leaves its
    /// literal, a second statement (behind ";" or not), a comment or a quoted name outside the literals, a
    /// bare value that is no number, a NUL or half of a surrogate pair anywhere. A text whose quotes do not
    /// balance is no fault: the server refuses it as a whole and in its own words.
    QString Fault() const;

private:
    struct Span
    {
        qsizetype from;
        qsizetype to;
    };

    Statement& Value(QStringView value);
    QString FaultOfValues() const;

    QString text_;
    QList<Span> values_; ///< where the texts from outside stand
    QString bareFault_;
};

} // namespace tsms

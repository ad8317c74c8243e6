#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

namespace tsms {

/// A SQL statement under assembly, in its pieces: the program's own words and the values from outside. An
/// engine either binds the values or takes the text, in which they stand as they are: nothing is ever
/// escaped. Fault() keeps a value from changing the statement.
class Statement
{
public:
    Statement() = default;
    Statement(QStringView own);
    Statement(const QString& own) : Statement(QStringView(own)) {}
    Statement(const char16_t* own) : Statement(QStringView(own)) {}

    /// The program's own words, with whole literals if any.
    Statement& Own(QStringView words);

    /// The rule of optional texts: trimmed; the word Null if nothing is left, else between apostrophes.
    Statement& Quoted(const QString& value);
    Statement& Quoted(QStringView value) { return Quoted(value.toString()); }

    /// A value from outside, between apostrophes.
    Statement& InQuotes(const QString& value);
    Statement& InQuotes(QStringView value) { return InQuotes(value.toString()); }

    /// A value from outside that stands bare: numbers, and + - * / between them. Anything else is a fault,
    /// except nothing at all, which the server refuses by itself.
    Statement& Bare(QStringView value);

    /// The statement as the server gets it.
    QString Text() const;

    /// Empty when the statement may be sent, else the words with which it is refused: a quoted value that
    /// holds an apostrophe, a bare value that is no number, a NUL or half of a surrogate pair in a value.
    /// Apostrophes that leave the text with a quote unclosed are no fault: the server refuses it as a whole
    /// and in its own words.
    QString Fault() const;

    /// A quoted value of Words(); none is the word Null.
    struct Value
    {
        qsizetype at; ///< of its mark among the words
        std::optional<QString> text;
    };

    /// The own words and the bare values, with the mark "?" for each quoted value.
    const QString& Words() const { return words_; }
    const QList<Value>& Values() const { return values_; }

    /// True when a quoted value holds an apostrophe. Such a statement has no meaning but its text's.
    bool HasApostrophe() const { return hasApostrophe_; }

private:
    Statement& Add(std::optional<QString> value);
    QString TextBefore(qsizetype index) const;
    QString FaultOfApostrophe() const;
    qsizetype FirstApostrophe() const;

    QString words_;
    QList<Value> values_;
    QString bareFault_;
    bool isCut_ = false;
    bool hasApostrophe_ = false;
};

} // namespace tsms

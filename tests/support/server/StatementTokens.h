#pragma once

#include "store/embedded/DialectTokens.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tsms::test {

/// The words and signs of a statement, without the blanks and the comments between them. Positions count
/// from 0; behind the last one there is nothing that is any word or sign.
class StatementTokens
{
public:
    explicit StatementTokens(const QString& sql); ///< raises StatementFailure for a quote that is not closed
    StatementTokens(const StatementTokens&) = delete;
    StatementTokens& operator=(const StatementTokens&) = delete;

    /// From one token to the one behind the last.
    struct Range
    {
        int from;
        int to;
        int Count() const { return to - from; }
    };

    int Count() const { return static_cast<int>(tokens_.size()); }
    std::string_view operator[](int at) const;
    DialectToken::Kind KindOf(int at) const;
    bool Is(int at, std::string_view upper) const { return IsDialectWord((*this)[at], upper); }

    QString Text(int at) const;
    QString Name(int at) const;       ///< without the brackets or quotation marks around it
    QString TakeTable(int& at) const; ///< a table's, its owner before it or not; `at` then stands behind it
    QString Literal(int at) const;    ///< what it stands for
    QString Text(Range range) const;  ///< with everything between its tokens

    /// Behind the parenthesis that closes the one at `at`, or behind the last token.
    int GroupEnd(int at) const;

    /// What is parted by commas, those in parentheses left alone.
    QList<Range> Items(Range range) const;

    /// Where a word stands outside parentheses; the end of the range if it does not.
    int Find(Range range, std::string_view upper) const;

private:
    void DropComments(std::vector<DialectToken> tokens);

    QByteArray utf8_;
    std::vector<DialectToken> tokens_;
};

} // namespace tsms::test

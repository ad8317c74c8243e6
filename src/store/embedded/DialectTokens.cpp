#include "store/embedded/DialectTokens.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"

namespace tsms {

namespace {

using Token = DialectToken;
using Kind = DialectToken::Kind;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsWordCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_' || (c & 0x80) != 0;
}

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

/// Ends behind the closing sign of a quoted piece; a doubled sign inside does not close it.
std::size_t QuotedEnd(std::string_view sql, std::size_t from, char close)
{
    for (std::size_t at = from + 1; at < sql.size(); ++at) {
        if (sql[at] != close)
            continue;
        if (at + 1 == sql.size() || sql[at + 1] != close)
            return at + 1;
        ++at;
    }
    const std::string_view rest = sql.substr(from + 1);
    throw RuntimeError(StatementFailure,
                       QStringLiteral("Unclosed quotation mark after the character string '") +
                           QString::fromUtf8(rest.data(), static_cast<qsizetype>(rest.size())) +
                           QStringLiteral("'."));
}

template <class Is> std::size_t RunEnd(std::string_view sql, std::size_t from, Is is)
{
    while (from < sql.size() && is(sql[from]))
        ++from;
    return from;
}

Token TokenAt(std::string_view sql, std::size_t at)
{
    const auto to = [sql, at](Kind kind, std::size_t end) { return Token{kind, sql.substr(at, end - at)}; };
    const char c = sql[at];
    const char next = at + 1 < sql.size() ? sql[at + 1] : '\0';
    if (IsSpace(c))
        return to(Kind::Space, RunEnd(sql, at, IsSpace));
    if (c == '\'')
        return to(Kind::Literal, QuotedEnd(sql, at, '\''));
    if (c == '"')
        return to(Kind::Word, QuotedEnd(sql, at, '"'));
    if (c == '[')
        return to(Kind::Word, QuotedEnd(sql, at, ']'));
    if (IsDigit(c))
        return to(Kind::Number, RunEnd(sql, at, [](char d) { return IsDigit(d) || d == '.'; }));
    if (IsWordCharacter(c))
        return to(Kind::Word, RunEnd(sql, at, IsWordCharacter));
    const bool pair = (next == '=' && (c == '<' || c == '>' || c == '!')) || (c == '<' && next == '>') ||
                      (c == '-' && next == '-') || (c == '/' && next == '*');
    return to(Kind::Sign, at + (pair ? 2 : 1));
}

} // namespace

std::vector<DialectToken> SplitDialect(std::string_view sql)
{
    std::vector<DialectToken> tokens;
    tokens.reserve(sql.size() / 3 + 1);
    for (std::size_t at = 0; at < sql.size(); at += tokens.back().text.size())
        tokens.push_back(TokenAt(sql, at));
    return tokens;
}

bool IsDialectWord(std::string_view word, std::string_view upper)
{
    if (word.size() != upper.size())
        return false;
    for (std::size_t at = 0; at < word.size(); ++at)
        if (Upper(word[at]) != upper[at])
            return false;
    return true;
}

} // namespace tsms

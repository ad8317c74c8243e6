#include "support/server/ServerError.h"

#include "store/engine/DatabaseError.h"
#include "support/server/StatementTokens.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace tsms::test {

namespace {

/// Errors of the embedded engine by their number and words, and the server's number, class and state for
/// them. The first that fits counts.
struct Translation
{
    long number;
    const char16_t* pattern;
    int serverNumber;
    int serverClass;
    int serverState;
};

constexpr Translation Translations[] = {
    {NoSuchTable, u"", 208, 16, 1},
    {UserNotice, u"", 50000, 16, 1},
    {IntegrityViolation, u"^Cannot insert the value NULL", 515, 16, 2},
    {IntegrityViolation, u"^Cannot insert duplicate key row", 2601, 14, 1},
    {IntegrityViolation, u"", 2627, 14, 1},
    {CannotConvert, u"date and/or time", 241, 16, 1},
    {CannotConvert, u"to money", 235, 16, 0},
    {CannotConvert, u"", 245, 16, 1},
    {DataOverflow, u"", 8115, 16, 2},
    {CommunicationFailure, u"", 945, 16, 2},
    {StatementFailure, u"^Unclosed quotation mark", 105, 15, 1},
    {StatementFailure, u"^Incorrect syntax near", 102, 15, 1},
    {StatementFailure, u"^Invalid column name", 207, 16, 1},
    {StatementFailure, u"^Ambiguous column name", 209, 16, 1},
    {StatementFailure, u"is not a recognized built-in function name", 195, 15, 10},
    {StatementFailure, u"function was called with a wrong number of arguments", 174, 15, 1},
    {StatementFailure, u"^There are more columns in the INSERT", 109, 15, 1},
    {StatementFailure, u"would be truncated", 8152, 16, 2},
    {StatementFailure, u"is not a valid style number", 281, 16, 1},
    {StatementFailure, u"^Invalid length parameter", 536, 16, 4},
    {StatementFailure, u"^There is already an object named", 2714, 16, 6},
    {StatementFailure, u"^Database '.*' does not exist", 911, 16, 1},
    {StatementFailure, u"permission was denied on the object", 229, 14, 5},
    {StatementFailure, u"permission denied in database", 262, 14, 1},
    {StatementFailure, u"^Cannot find the object \"", 4701, 16, 1},
    {StatementFailure, u"^Cannot find the (object|user)", 15151, 16, 1},
    {StatementFailure, u"^Cannot insert explicit value for identity", 544, 16, 1},
    {StatementFailure, u"^Cannot update identity column", 8102, 16, 1},
    {StatementFailure, u"^The number of row value expressions", 10738, 15, 1},
    {StatementFailure, u"is read-only", 3906, 16, 1},
    {StatementFailure, u"disk is full", 1101, 17, 10},
};

/// What the engine says in words of its own: an internal failure of the statement.
constexpr Translation Untranslated = {StatementFailure, u"", 8630, 17, 1};

const Translation& TranslationOf(const RuntimeError& error)
{
    for (const Translation& translation : Translations)
        if (translation.number == error.Number &&
            error.Description.contains(QRegularExpression(QString::fromUtf16(translation.pattern))))
            return translation;
    return Untranslated;
}

ServerError SyntaxError(const QString& token)
{
    return {102, 15, 1, SyntaxErrorNear(token)};
}

/// A word that may stand behind a literal.
bool MayFollowLiteral(std::string_view word)
{
    static constexpr std::array<std::string_view, 20> words = {
        "AND",  "OR",  "AS",   "FROM", "WHERE", "GROUP", "ORDER", "HAVING",  "UNION",  "THEN",
        "ELSE", "END", "WHEN", "LIKE", "IN",    "IS",    "NOT",   "BETWEEN", "ESCAPE", "COLLATE"};
    return std::any_of(words.begin(), words.end(),
                       [word](std::string_view known) { return IsDialectWord(word, known); });
}

/// The word that stands right behind a literal where none can; empty without one.
QString WordBehindLiteral(const QString& sql)
{
    const StatementTokens tokens(sql);
    for (int at = 1; at < tokens.Count(); ++at)
        if (tokens.KindOf(at - 1) == DialectToken::Kind::Literal &&
            tokens.KindOf(at) == DialectToken::Kind::Word && !MayFollowLiteral(tokens[at]))
            return tokens.Text(at);
    return {};
}

/// What stands behind the quote that is not closed.
QString OpenEnd(const QString& words)
{
    static const QRegularExpression quoted(QStringLiteral("'(.*)'\\.$"),
                                           QRegularExpression::DotMatchesEverythingOption);
    return quoted.match(words).captured(1);
}

} // namespace

QList<ServerError> ServerErrors(const RuntimeError& error, const QString& sql)
{
    const Translation& translation = TranslationOf(error);
    const ServerError first{translation.serverNumber, translation.serverClass, translation.serverState,
                            error.Description};
    if (first.Number != 105)
        return {first};
    const QString end = OpenEnd(first.Words);
    // Read from the left: whatever is out of place in front of the open quote is found before it.
    const QString word = WordBehindLiteral(sql.chopped(end.size() + 1));
    return word.isEmpty() ? QList{first, SyntaxError(end)} : QList{SyntaxError(word), first};
}

ServerError LogInFailed(const QString& user)
{
    return {18456, 14, 1, QStringLiteral("Login failed for user '%1'.").arg(user)};
}

ServerError DatabaseIs(const QString& database)
{
    return {5701, 0, 2, QStringLiteral("Changed database context to '%1'.").arg(database)};
}

ServerError LanguageIs(const QString& language)
{
    return {5703, 0, 1, QStringLiteral("Changed language setting to %1.").arg(language)};
}

ServerError UnknownDatabase(const QString& database)
{
    return {4060, 11, 1,
            QStringLiteral("Cannot open database \"%1\" requested by the login. The login failed.")
                .arg(database)};
}

} // namespace tsms::test

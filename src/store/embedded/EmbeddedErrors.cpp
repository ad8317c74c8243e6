#include "store/embedded/EmbeddedErrors.h"

#include "store/engine/DatabaseError.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <sqlite3.h>

namespace tsms {

namespace {

/// Messages of the engine, and the server's words for what they tell. %1 and %2 are what the brackets catch.
struct Translation
{
    const char16_t* pattern;
    long number;
    const char16_t* words;
};

constexpr Translation Translations[] = {
    {u"^no such table: (?:main\\.)?(.*)$", NoSuchTable, u"Invalid object name '%1'."},
    // Of a word in double quotes SQLite 3.41 and newer say more.
    {u"^no such column: \"(.*)\" - should this be a string literal in single-quotes\\?$", StatementFailure,
     u"Invalid column name '%1'."},
    {u"^no such column: (?:.*\\.)?(.*)$", StatementFailure, u"Invalid column name '%1'."},
    {u"^table .* has no column named (.*)$", StatementFailure, u"Invalid column name '%1'."},
    {u"^ambiguous column name: (.*)$", StatementFailure, u"Ambiguous column name '%1'."},
    {u"^near \"(.*)\": syntax error$", StatementFailure, u"Incorrect syntax near '%1'."},
    {u"^unrecognized token: \"(.*)\"$", StatementFailure, u"Incorrect syntax near '%1'."},
    {u"^no such function: (.*)$", StatementFailure, u"'%1' is not a recognized built-in function name."},
    {u"^wrong number of arguments to function (?:server_)?(.*)\\(\\)$", StatementFailure,
     u"The %1 function was called with a wrong number of arguments."},
    {u"^\\d+ values for \\d+ columns$", StatementFailure,
     u"There are more columns in the INSERT statement than values specified in the VALUES clause."},
    {u"^(Conversion failed when converting .*|Cannot convert .*)$", CannotConvert, u"%1"},
    {u"^(Arithmetic overflow error .*)$", DataOverflow, u"%1"},
    {u"^NOT NULL constraint failed: (.*)\\.(.*)$", IntegrityViolation,
     u"Cannot insert the value NULL into column '%2', table '%1'; column does not allow nulls."},
    {u"^UNIQUE constraint failed: (.*)\\..*$", IntegrityViolation,
     u"Violation of PRIMARY KEY constraint. Cannot insert duplicate key in object '%1'."},
    {u"^table (.*) already exists$", StatementFailure,
     u"There is already an object named '%1' in the database."},
};

/// The last word or sign of a statement that broke off.
QString LastToken(const QString& sql)
{
    static const QRegularExpression last(QStringLiteral("(\\w+|[^\\w\\s])\\s*$"));
    return last.match(sql).captured(1);
}

} // namespace

RuntimeError UnreachableFile(const QString& path)
{
    return RuntimeError(CommunicationFailure,
                        QStringLiteral("Cannot open database \"") + path + QStringLiteral("\"."));
}

RuntimeError EmbeddedError(sqlite3* handle, const QString& path, const QString& sql)
{
    return TranslateEmbeddedError(sqlite3_errcode(handle), QString::fromUtf8(sqlite3_errmsg(handle)), path,
                                  sql);
}

RuntimeError TranslateEmbeddedError(int code, const QString& message, const QString& path, const QString& sql)
{
    switch (code & 0xFF) {
    case SQLITE_CANTOPEN:
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_IOERR:
    case SQLITE_AUTH:
    case SQLITE_PERM:
        return UnreachableFile(path);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return RuntimeError(CommandTimedOut, QStringLiteral("Timeout expired"));
    case SQLITE_READONLY:
        return RuntimeError(StatementFailure, QStringLiteral("Failed to update database \"") +
                                                  QFileInfo(path).fileName() +
                                                  QStringLiteral("\" because the database is read-only."));
    case SQLITE_FULL:
        return RuntimeError(StatementFailure, QStringLiteral("Could not allocate space in database '") +
                                                  QFileInfo(path).fileName() +
                                                  QStringLiteral("' because the disk is full."));
    default:
        break;
    }
    if (message == u"incomplete input")
        return RuntimeError(StatementFailure, SyntaxErrorNear(LastToken(sql)));
    for (const Translation& translation : Translations) {
        const QRegularExpression pattern(QString::fromUtf16(translation.pattern),
                                         QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpressionMatch match = pattern.match(message);
        if (!match.hasMatch())
            continue;
        QString words = QString::fromUtf16(translation.words);
        words.replace(QStringLiteral("%2"), match.captured(2))
            .replace(QStringLiteral("%1"), match.captured(1));
        return RuntimeError(translation.number, words);
    }
    const long number = (code & 0xFF) == SQLITE_CONSTRAINT ? IntegrityViolation : StatementFailure;
    return RuntimeError(number, message);
}

} // namespace tsms

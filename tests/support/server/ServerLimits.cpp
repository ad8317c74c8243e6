#include "support/server/ServerLimits.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/server/ServerTables.h"
#include "support/server/StatementTokens.h"

#include <algorithm>
#include <array>

namespace tsms::test {

namespace {

constexpr qsizetype MostRowsOfValues = 1000;

constexpr std::array<std::string_view, 11> EngineWords = {
    "RECURSIVE", "LIMIT", "PRAGMA", "SQLITE_MASTER", "SQLITE_SEQUENCE", "ROWID",
    "SUBSTR",    "GLOB",  "IFNULL", "STRFTIME",      "CHANGES"};

bool IsEngineWord(const StatementTokens& tokens, int at)
{
    return tokens.KindOf(at) == DialectToken::Kind::Word &&
           std::any_of(EngineWords.begin(), EngineWords.end(),
                       [&](std::string_view word) { return tokens.Is(at, word); });
}

bool IsEngineSign(const StatementTokens& tokens, int at)
{
    const std::string_view sign = tokens[at];
    return (sign == "|" || sign == "=") && tokens[at + 1] == sign;
}

void RefuseEngineWords(const StatementTokens& tokens)
{
    for (int at = 0; at < tokens.Count(); ++at)
        if (IsEngineWord(tokens, at) || IsEngineSign(tokens, at))
            throw RuntimeError(StatementFailure, SyntaxErrorNear(tokens.Text(at)));
}

bool IsGenerated(const TableDescription& table, const QString& column)
{
    const ColumnDescription* description = FindColumn(table, column);
    return description && description->type == ColumnType::GeneratedKey;
}

void RefuseInsert(const StatementTokens& tokens)
{
    int at = tokens.Is(1, "INTO") ? 2 : 1;
    const TableDescription table = ServerTable(tokens.TakeTable(at));
    if (tokens[at] == "(")
        for (const auto& column : tokens.Items({at + 1, tokens.GroupEnd(at) - 1}))
            if (IsGenerated(table, tokens.Name(column.from)))
                throw RuntimeError(StatementFailure,
                                   QStringLiteral("Cannot insert explicit value for identity column in table "
                                                  "'%1' when IDENTITY_INSERT is set to OFF.")
                                       .arg(table.name));
    const int values = tokens.Find({at, tokens.Count()}, "VALUES");
    if (tokens.Items({values + 1, tokens.Count()}).size() > MostRowsOfValues)
        throw RuntimeError(
            StatementFailure,
            QStringLiteral("The number of row value expressions in the INSERT statement exceeds "
                           "the maximum allowed number of 1000 row values."));
}

void RefuseUpdate(const StatementTokens& tokens)
{
    int at = 1;
    const TableDescription table = ServerTable(tokens.TakeTable(at));
    for (const auto& item : tokens.Items({at + 1, tokens.Find({at, tokens.Count()}, "WHERE")}))
        if (IsGenerated(table, tokens.Name(item.from)))
            throw RuntimeError(
                StatementFailure,
                QStringLiteral("Cannot update identity column '%1'.").arg(tokens.Name(item.from)));
}

} // namespace

void RefuseWhatTheEngineAloneTakes(const QString& sql)
{
    const StatementTokens tokens(sql);
    RefuseEngineWords(tokens);
    if (tokens.Is(0, "INSERT"))
        RefuseInsert(tokens);
    else if (tokens.Is(0, "UPDATE"))
        RefuseUpdate(tokens);
}

} // namespace tsms::test

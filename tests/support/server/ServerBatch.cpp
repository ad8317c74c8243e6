#include "support/server/ServerBatch.h"

#include "runtime/CodePage949.h"
#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/server/ServerError.h"
#include "support/server/ServerTables.h"
#include "support/server/StatementTokens.h"

namespace tsms::test {

namespace {

using Kind = ServerStatement::Kind;
using Range = StatementTokens::Range;

struct Beginning
{
    std::string_view word;
    Kind kind;
};

/// Words that can stand at the beginning of a statement alone, but for SELECT and SET.
constexpr Beginning Beginnings[] = {{"SELECT", Kind::Select},       {"SET", Kind::Set},
                                    {"INSERT", Kind::Insert},       {"UPDATE", Kind::Update},
                                    {"DELETE", Kind::Delete},       {"USE", Kind::Use},
                                    {"CREATE", Kind::Other},        {"DROP", Kind::Other},
                                    {"ALTER", Kind::Other},         {"TRUNCATE", Kind::Other},
                                    {"EXEC", Kind::Other},          {"DECLARE", Kind::Other},
                                    {"GRANT", Kind::Rights},        {"REVOKE", Kind::Rights},
                                    {"BEGIN", Kind::Transaction},   {"COMMIT", Kind::Transaction},
                                    {"ROLLBACK", Kind::Transaction}};

const Beginning* FindBeginning(const StatementTokens& tokens, int at)
{
    for (const Beginning& beginning : Beginnings)
        if (tokens.Is(at, beginning.word))
            return &beginning;
    return nullptr;
}

bool Continues(const StatementTokens& tokens, int from, int at)
{
    if (tokens.Is(from, "GRANT") || tokens.Is(from, "REVOKE"))
        return tokens.Find({from, at}, "ON") == at;
    if (tokens.Is(at, "SELECT"))
        return (tokens.Is(from, "INSERT") && tokens.Find({from, at}, "VALUES") == at &&
                tokens.Find({from, at}, "SELECT") == at) ||
               tokens.Is(at - 1, "UNION") || tokens.Is(at - 1, "ALL") || tokens.Is(at - 1, "EXCEPT") ||
               tokens.Is(at - 1, "INTERSECT");
    return tokens.Is(at, "SET") && tokens.Is(from, "UPDATE") && tokens.Find({from, at}, "SET") == at;
}

int StatementEnd(const StatementTokens& tokens, int from)
{
    int at = tokens[from] == "(" ? tokens.GroupEnd(from) : from + 1;
    for (; at < tokens.Count(); at = tokens[at] == "(" ? tokens.GroupEnd(at) : at + 1)
        if (tokens[at] == ";" || (FindBeginning(tokens, at) && !Continues(tokens, from, at)))
            break;
    return at;
}

QString TextOf(const DialectToken& token)
{
    return QString::fromUtf8(token.text.data(), static_cast<qsizetype>(token.text.size()));
}

void RefuseLongText(const TableDescription& table, const QString& column, const StatementTokens& tokens,
                    Range value)
{
    const ColumnDescription* description = FindColumn(table, column);
    if (!description || description->type != ColumnType::Text || description->width == 0 ||
        value.Count() != 1 || tokens.KindOf(value.from) != DialectToken::Kind::Literal)
        return;
    QByteArray bytes = ToCodePage949(tokens.Literal(value.from));
    while (bytes.endsWith(' '))
        bytes.chop(1);
    if (bytes.size() > description->width)
        throw RuntimeError(StatementFailure, QString::fromUtf16(TruncationWords));
}

void RefuseLongInsert(const StatementTokens& tokens)
{
    int at = tokens.Is(1, "INTO") ? 2 : 1;
    const TableDescription table = ServerTable(tokens.TakeTable(at));
    const QList<Range> columns = tokens.Items({at + 1, tokens.GroupEnd(at) - 1});
    at = tokens.Find({at, tokens.Count()}, "VALUES") + 1;
    const QList<Range> values = tokens.Items({at + 1, tokens.GroupEnd(at) - 1});
    for (qsizetype index = 0; index < qMin(columns.size(), values.size()); ++index)
        RefuseLongText(table, tokens.Name(columns[index].from), tokens, values[index]);
}

void RefuseLongUpdate(const StatementTokens& tokens)
{
    int at = 1;
    const TableDescription table = ServerTable(tokens.TakeTable(at));
    for (const Range& item : tokens.Items({at + 1, tokens.Find({at, tokens.Count()}, "WHERE")}))
        if (tokens[item.from + 1] == "=")
            RefuseLongText(table, tokens.Name(item.from), tokens, {item.from + 2, item.to});
}

} // namespace

QList<ServerStatement> SplitBatch(const QString& sql)
{
    const StatementTokens tokens(sql);
    QList<ServerStatement> statements;
    for (int from = 0; from < tokens.Count();) {
        if (tokens[from] == ";") {
            ++from;
            continue;
        }
        const int end = StatementEnd(tokens, from);
        const Beginning* beginning = FindBeginning(tokens, from);
        statements += {beginning ? beginning->kind : Kind::Other, tokens.Text({from, end})};
        from = end;
    }
    return statements;
}

QString EngineText(const QString& sql)
{
    const QByteArray utf8 = sql.toUtf8();
    const std::vector<DialectToken> tokens =
        SplitDialect({utf8.constData(), static_cast<std::size_t>(utf8.size())});
    QString text;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const DialectToken next = at + 1 < tokens.size() ? tokens[at + 1] : DialectToken();
        if (IsDialectWord(tokens[at].text, "DBO") && next.text == ".")
            ++at;
        else if (IsDialectWord(tokens[at].text, "N") && next.kind == DialectToken::Kind::Literal)
            text += TextOf(tokens[++at]);
        else
            text += TextOf(tokens[at]);
    }
    return text;
}

void RefuseLongTexts(const QString& sql)
{
    const StatementTokens tokens(sql);
    if (tokens.Is(0, "INSERT"))
        RefuseLongInsert(tokens);
    else if (tokens.Is(0, "UPDATE"))
        RefuseLongUpdate(tokens);
}

} // namespace tsms::test

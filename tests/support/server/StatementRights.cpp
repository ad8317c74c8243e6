#include "support/server/StatementRights.h"

#include "support/server/ServerTables.h"
#include "support/server/StatementTokens.h"

#include <algorithm>
#include <array>

namespace tsms::test {

namespace {

using Kind = ServerStatement::Kind;
using Range = StatementTokens::Range;

/// Reads what a statement does with which table.
class RightsReader
{
public:
    explicit RightsReader(const ServerStatement& statement) : kind_(statement.kind), tokens_(statement.Text)
    {
    }

    QList<TableRight> Rights()
    {
        switch (kind_) {
        case Kind::Insert:
            Change(QStringLiteral("INSERT"), "INTO");
            break;
        case Kind::Update:
            Change(QStringLiteral("UPDATE"), {});
            break;
        case Kind::Delete:
            Change(QStringLiteral("DELETE"), "FROM");
            break;
        default:
            break;
        }
        for (; at_ < tokens_.Count(); ++at_)
            if (tokens_.Is(at_, "FROM") || tokens_.Is(at_, "JOIN"))
                ReadFrom();
        return rights_;
    }

private:
    /// The table that the statement changes, behind a word that need not be there.
    void Change(const QString& action, std::string_view word)
    {
        at_ = !word.empty() && tokens_.Is(1, word) ? 2 : 1;
        const QString table = tokens_.TakeTable(at_);
        Need(action, table);
        if (kind_ != Kind::Insert && ReadsColumns(ServerTable(table)))
            Need(QStringLiteral("SELECT"), table);
    }

    bool ReadsColumns(const TableDescription& table) const
    {
        const int where = tokens_.Find({at_, tokens_.Count()}, "WHERE");
        if (NamesColumn(table, {where, tokens_.Count()}))
            return true;
        const QList<Range> items = kind_ == Kind::Update ? tokens_.Items({at_ + 1, where}) : QList<Range>();
        return std::any_of(items.begin(), items.end(), [&](const Range& item) {
            return NamesColumn(table, {item.from + 1, item.to}); // the first is written
        });
    }

    bool NamesColumn(const TableDescription& table, Range range) const
    {
        for (int at = range.from; at < range.to; ++at)
            if (tokens_.KindOf(at) == DialectToken::Kind::Word && FindColumn(table, tokens_.Name(at)))
                return true;
        return false;
    }

    /// The tables between commas behind a FROM or a JOIN. A query in their place is met later.
    void ReadFrom()
    {
        for (const Range& item : tokens_.Items({at_ + 1, FromEnd()})) {
            int table = item.from;
            if (tokens_[table] != "(")
                Need(QStringLiteral("SELECT"), tokens_.TakeTable(table));
        }
    }

    int FromEnd() const
    {
        static constexpr std::array<std::string_view, 7> ends = {"WHERE", "GROUP",  "ORDER",    "HAVING",
                                                                 "UNION", "EXCEPT", "INTERSECT"};
        const auto isEnd = [this](int at) {
            return tokens_[at] == ")" || std::any_of(ends.begin(), ends.end(), [&](std::string_view word) {
                       return tokens_.Is(at, word);
                   });
        };
        int at = at_ + 1;
        while (at < tokens_.Count() && !isEnd(at))
            at = tokens_[at] == "(" ? tokens_.GroupEnd(at) : at + 1;
        return at;
    }

    void Need(const QString& action, const QString& table)
    {
        if (const TableRight right{action, table}; !rights_.contains(right))
            rights_ += right;
    }

    Kind kind_;
    StatementTokens tokens_;
    int at_ = 0;
    QList<TableRight> rights_;
};

} // namespace

QList<TableRight> RightsFor(const ServerStatement& statement)
{
    return RightsReader(statement).Rights();
}

QList<TableRight> RightsOfList(const QString& actions, const QString& table)
{
    QList<TableRight> rights;
    for (const QString& action : actions.split(u','))
        rights += {action.trimmed().toUpper(), table};
    return rights;
}

} // namespace tsms::test

#include "support/server/ServerUsers.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/server/StatementTokens.h"

namespace tsms::test {

namespace {

using Lock = std::lock_guard<std::mutex>;

/// Where the table stands.
int TablePlace(const StatementTokens& tokens)
{
    return tokens.Find({0, tokens.Count()}, "ON") + 1;
}

} // namespace

void ServerUsers::Add(const QString& user, const QString& password)
{
    const Lock lock(mutex_);
    users_[user.toLower()] = {password, {}};
}

std::optional<QString> ServerUsers::PasswordOf(const QString& user) const
{
    const Lock lock(mutex_);
    const auto found = users_.find(user.toLower());
    return found == users_.end() ? std::nullopt : std::optional(found->password);
}

bool ServerUsers::MayDo(const QString& user, const TableRight& right) const
{
    const Lock lock(mutex_);
    return users_.value(user.toLower()).rights.contains(TableRight{right.Action, right.Table.toLower()});
}

void ServerUsers::Change(const QString& grantOrRevoke)
{
    const StatementTokens tokens(grantOrRevoke);
    int at = TablePlace(tokens);
    const QString actions = tokens.Text({1, at - 1});
    const QString table = tokens.TakeTable(at);
    const QString name = tokens.Name(at + 1); // behind TO or FROM
    const Lock lock(mutex_);
    const auto user = users_.find(name.toLower());
    if (user == users_.end())
        throw RuntimeError(StatementFailure, QStringLiteral("Cannot find the user '%1', because it does not "
                                                            "exist or you do not have permission.")
                                                 .arg(name));
    for (const TableRight& right : RightsOfList(actions, table.toLower())) {
        user->rights.removeAll(right);
        if (tokens.Is(0, "GRANT"))
            user->rights += right;
    }
}

QString TableOfRights(const QString& grantOrRevoke)
{
    const StatementTokens tokens(grantOrRevoke);
    int at = TablePlace(tokens);
    return tokens.TakeTable(at);
}

} // namespace tsms::test

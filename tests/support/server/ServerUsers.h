#pragma once

#include "support/server/StatementRights.h"

#include <QMap>
#include <QString>

#include <mutex>
#include <optional>

namespace tsms::test {

/// The users of a server beside the owner of its database, by their names, which ignore case. What they may
/// do in that database is what they have been granted: nothing at first. For any thread.
class ServerUsers
{
public:
    void Add(const QString& user, const QString& password);

    /// Nothing when there is no such user.
    std::optional<QString> PasswordOf(const QString& user) const;

    bool MayDo(const QString& user, const TableRight& right) const;

    /// Does what "GRANT SELECT, INSERT ON dbo.Table TO [user]" or "REVOKE ... FROM [user]" says. Raises the
    /// server's error where there is no such user.
    void Change(const QString& grantOrRevoke);

private:
    struct User
    {
        QString password;
        QList<TableRight> rights; // the tables in lower case
    };

    mutable std::mutex mutex_;
    QMap<QString, User> users_; // by the name in lower case
};

/// The table that a GRANT or a REVOKE is about.
QString TableOfRights(const QString& grantOrRevoke);

} // namespace tsms::test

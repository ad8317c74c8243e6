#include "shell/LaunchLine.h"

#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "session/Session.h"

#include <QStringList>

namespace tsms {

void StoreLaunchLine(const QString& line, Session& session)
{
    const QStringList fields = line.split(LaunchSeparator);
    const auto field = [&](int number) {
        if (number > fields.size())
            throw RuntimeError(SubscriptOutOfRange);
        return fields[number - 1];
    };
    session.DBCatalog = field(1);
    session.DBServer = field(2);
    session.DBPort = field(3);
    session.DBUser = field(4);
    session.DBPassword = field(5);
    session.UserData1 = ToLong(field(6));
    session.UserData2 = field(7);
}

} // namespace tsms

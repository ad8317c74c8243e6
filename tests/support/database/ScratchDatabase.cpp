#include "support/database/ScratchDatabase.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/ConnectionText.h"

#include <QCoreApplication>

#include <cstdio>

namespace tsms::test {

namespace {

QString NewName()
{
    static int count = 0;
    return QStringLiteral("tsms_test_%1_%2").arg(QCoreApplication::applicationPid()).arg(++count);
}

Session SessionOf(const QString& launchFields)
{
    const QStringList fields = launchFields.split(u'■');
    Session session;
    session.DBCatalog = fields.value(0);
    session.DBServer = fields.value(1);
    session.DBPort = fields.value(2);
    session.DBUser = fields.value(3);
    session.DBPassword = fields.value(4);
    return session;
}

} // namespace

ScratchDatabase::ScratchDatabase(const QString& launchFields, YearRange years, const Clock& clock)
    : launchFields_(launchFields), clock_(clock), name_(NewName())
{
    Connect(SessionOf(launchFields_).DBCatalog)
        ->Execute(QStringLiteral("CREATE DATABASE ") + name_ +
                  QStringLiteral(" COLLATE Korean_Wansung_CI_AS"));
    link_ = Connect(name_);
    for (const QString& batch : ServerScript(years).split(QStringLiteral("\nGO\n"), Qt::SkipEmptyParts))
        link_->Execute(batch);
}

ScratchDatabase::~ScratchDatabase()
{
    try {
        link_.reset();
        Connect(SessionOf(launchFields_).DBCatalog)->Execute(QStringLiteral("DROP DATABASE ") + name_);
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s stays on the server: %s\n", qPrintable(name_),
                     qPrintable(error.Description));
    }
}

void ScratchDatabase::Describe(Session& session) const
{
    const Session server = SessionOf(launchFields_);
    session.DBCatalog = name_;
    session.DBServer = server.DBServer;
    session.DBPort = server.DBPort;
    session.DBUser = server.DBUser;
    session.DBPassword = server.DBPassword;
}

std::unique_ptr<Connection> ScratchDatabase::Connect(const QString& catalog) const
{
    Session session = SessionOf(launchFields_);
    session.DBCatalog = catalog;
    std::unique_ptr<Connection> connection = MakeConnections(clock_)();
    connection->ConnectionString = AssembleConnectionText(session);
    connection->Open();
    return connection;
}

QString LiveServer()
{
    return qEnvironmentVariable("TSMS_TEST_SERVER");
}

} // namespace tsms::test

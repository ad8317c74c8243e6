#include "support/database/ScratchDatabase.h"
#include "store/MakeConnections.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/engine/ConnectionText.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace tsms::test {

namespace {

/// A server may hold a connection for a moment after its client has closed it.
constexpr int DropAttempts = 10;
constexpr int DropPause = 200; // milliseconds

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

std::unique_ptr<Connection> ConnectTo(const Session& session)
{
    static const SystemClock clock;
    std::unique_ptr<Connection> connection = MakeConnections(clock)();
    connection->ConnectionString = AssembleConnectionText(session);
    connection->Open();
    return connection;
}

/// Those that no test has at the moment.
std::vector<std::unique_ptr<ScratchDatabase>>& IdleDatabases()
{
    static auto databases = [] {
        qAddPostRoutine(DropIdleDatabases);
        return std::vector<std::unique_ptr<ScratchDatabase>>();
    }();
    return databases;
}

std::unique_ptr<ScratchDatabase> TakeIdle(YearRange years)
{
    auto& idle = IdleDatabases();
    const auto found = std::find_if(idle.begin(), idle.end(), [years](const auto& database) {
        return database->Years().first == years.first && database->Years().last == years.last;
    });
    if (found == idle.end())
        return nullptr;
    std::unique_ptr<ScratchDatabase> taken = std::move(*found);
    idle.erase(found);
    return taken;
}

/// What a test has left behind may be beyond that, such as a table dropped.
bool CanBeEmptied(ScratchDatabase& database)
{
    try {
        database.Empty();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace

ScratchDatabase::ScratchDatabase(const QString& launchFields, YearRange years)
    : launchFields_(launchFields), years_(years), name_(NewName())
{
    ConnectTo(SessionOf(launchFields_))
        ->Execute(QStringLiteral("CREATE DATABASE ") + name_ +
                  QStringLiteral(" COLLATE Korean_Wansung_CI_AS"));
    Session session;
    Describe(session);
    link_ = ConnectTo(session);
    for (const QString& batch : ServerScript(years).split(QStringLiteral("\nGO\n"), Qt::SkipEmptyParts))
        link_->Execute(batch);
}

ScratchDatabase::~ScratchDatabase()
{
    try {
        link_.reset();
        Drop();
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s stays on the server: %s\n", qPrintable(name_),
                     qPrintable(error.Description));
    }
}

void ScratchDatabase::Drop() const
{
    for (int left = DropAttempts;; --left) {
        try {
            ConnectTo(SessionOf(launchFields_))->Execute(QStringLiteral("DROP DATABASE ") + name_);
            return;
        } catch (const RuntimeError&) {
            if (left == 1)
                throw;
            QThread::msleep(DropPause);
        }
    }
}

void ScratchDatabase::Empty()
{
    QStringList batch;
    for (const TableDescription& table : AllTables(years_))
        batch += QStringLiteral("TRUNCATE TABLE dbo.") + table.name;
    batch += AccountRow();
    link_->Execute(batch.join(QStringLiteral(";\n")));
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

std::unique_ptr<ScratchDatabase> BorrowScratchDatabase(YearRange years)
{
    while (std::unique_ptr<ScratchDatabase> idle = TakeIdle(years))
        if (CanBeEmptied(*idle))
            return idle;
    return std::make_unique<ScratchDatabase>(LiveServer(), years);
}

void GiveBack(std::unique_ptr<ScratchDatabase> database)
{
    IdleDatabases().push_back(std::move(database));
}

void DropIdleDatabases()
{
    IdleDatabases().clear();
}

QString LiveServer()
{
    return qEnvironmentVariable("TSMS_TEST_SERVER");
}

QString LiveServerVersion()
{
    const std::unique_ptr<Recordset> told =
        ConnectTo(SessionOf(LiveServer()))->Query(QStringLiteral("SELECT @@VERSION, @@LANGUAGE"));
    return told->Field(0).section(u'\n', 0, 0).trimmed() + QStringLiteral(", ") + told->Field(1);
}

bool SpeaksAsSqlServer(const QString& version)
{
    return version.startsWith(QStringLiteral("Microsoft SQL Server")) &&
           version.endsWith(QStringLiteral(", us_english"));
}

} // namespace tsms::test

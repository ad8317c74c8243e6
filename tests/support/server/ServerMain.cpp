// The test server as a program of its own, on a database with empty tables that goes with it, or on a new one
// without tables, which stays:
//   test-server [FILE]
// The owner's password is that of the environment's TSMS_TEST_PASSWORD, if there is one. Prints the first
// five fields of a launch line that reaches it, and serves until its standard input ends.
#include "runtime/Clock.h"
#include "session/Session.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedTables.h"
#include "support/server/TestServer.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const bool isBare = argc > 1;
    const QString path =
        isBare ? QString::fromLocal8Bit(argv[1]) : folder.filePath(QStringLiteral("server.db"));
    const tsms::SystemClock clock;
    if (isBare)
        tsms::EmbeddedConnection(clock).OpenFile(path, true);
    else
        tsms::CreateEmbeddedDatabase(path, {2012, 2012}, clock);
    tsms::test::ServerAccount account;
    account.Password = qEnvironmentVariable("TSMS_TEST_PASSWORD", account.Password);
    const tsms::test::TestServer server(path, clock, account);
    tsms::Session session;
    server.Describe(session);
    const QStringList fields{session.DBCatalog, session.DBServer, session.DBPort, session.DBUser,
                             session.DBPassword};
    std::puts(fields.join(u'■').toUtf8().constData());
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}

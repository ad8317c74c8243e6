// The test server as a program of its own, on an empty database that goes with it. Prints the first five
// fields of a launch line that reaches it, and serves until its standard input ends.
#include "runtime/Clock.h"
#include "session/Session.h"
#include "store/embedded/EmbeddedTables.h"
#include "support/server/TestServer.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("server.db"));
    const tsms::SystemClock clock;
    tsms::CreateEmbeddedDatabase(path, {2012, 2012}, clock);
    const tsms::test::TestServer server(path, clock);
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

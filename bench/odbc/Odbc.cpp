#include "bench/ChildProcess.h"
#include "bench/history/SendLog.h"
#include "bench/Measure.h"
#include "bench/odbc/Search.h"
#include "bench/OtherTool.h"

#include "session/Session.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/server/ServerEngine.h"
#include "support/server/TestServer.h"

#include <QCoreApplication>
#include <QFile>

namespace tsms::bench {

namespace {

constexpr int Rows = 32000;
constexpr int ShellRounds = 4;
constexpr double DemandedRatio = 1.3;

/// One side, and what it found last.
class Side
{
public:
    explicit Side(const char* name) : name_(name) {}

    Cost Run(const QString& port)
    {
        const SideReport report = RunSide({QString::fromLatin1(name_), port}, 2);
        found_ = report.words;
        return report.cost;
    }
    bool HasFoundWhat(const Side& other) const
    {
        return found_.value(0).toLongLong() > 0 && found_ == other.found_;
    }

private:
    const char* name_;
    QByteArrayList found_; // the size of the texts and their digest
};

void CompareSides(const test::TestServer& server, const std::string& what)
{
    const QString port = QString::number(server.Port());
    Side ours("program");
    Side baseline("bare");
    Compare(
        {.what = what, .size = std::to_string(Rows) + " rows", .rounds = 8, .limit = DemandedRatio},
        [&] { return ours.Run(port); }, [&] { return baseline.Run(port); },
        [&] {
            Demand(ours.HasFoundWhat(baseline),
                   "bench_odbc: the program and the bare fetch did not find the same");
        });
}

Session SessionOn(const QString& port)
{
    const test::ServerAccount account;
    Session session;
    session.DBServer = QStringLiteral("127.0.0.1");
    session.DBPort = port;
    session.DBCatalog = account.Database;
    session.DBUser = account.User;
    session.DBPassword = account.Password;
    return session;
}

/// The page's statement by the driver manager's shell, which prints the rows as they come.
Cost SearchInShell(const QString& port)
{
    const ToolRun run = RunTool(QStringLiteral("isql"),
                                {QStringLiteral("-k"), DriverText(SessionOn(port)), QStringLiteral("-b"),
                                 QStringLiteral("-e"), QStringLiteral("-d|")},
                                WholeYear().Text().toUtf8() + '\n');
    Demand(run.output.count("|010-") == Rows, "bench_odbc: isql did not find all rows");
    return run.cost;
}

void CompareWithShell(const test::TestServer& server)
{
    if (!HasTool("unixodbc", QStringLiteral("isql"), {QStringLiteral("--version")}))
        return;
    const QString port = QString::number(server.Port());
    Side ours("program");
    Compare(
        {.what = "search over ODBC, beside isql",
         .size = std::to_string(Rows) + " rows",
         .rounds = ShellRounds},
        [&] { return ours.Run(port); }, [&] { return SearchInShell(port); });
}

void CompareAll()
{
    const test::FixedClock clock(Moment());
    test::TestDatabase database(clock);
    QFile::remove(database.Path()); // another one takes its place
    MakeSendLog(database.Path(), Rows);
    test::TestServer server(database.Path(), clock);
    CompareSides(server, "search over ODBC");
    CompareWithShell(server);

    const QString sql = WholeYear().Text();
    test::ServerDatabases databases(server.Account().Database, database.Path(), clock);
    test::ServerUsers users;
    const std::optional<QByteArray> answer =
        test::ServerEngine(databases, server.Account().Database, clock, users, QString()).Run(sql);
    Demand(answer.has_value(), "bench_odbc: the database is locked");
    server.AnswerWhere(sql, *answer);
    CompareSides(server, "search over ODBC, answer made beforehand");
    PrintNote("search over ODBC: each side in a fresh process, from the log-in to the log-out; the server is "
              "that of the tests");
}

/// "program" or "bare", and the server's port.
void BeSide(const QStringList& arguments)
{
    Session session = SessionOn(arguments[1]);
    const Search search = arguments[0] == u"program" ? SearchByProgram(session) : FetchBare(session);
    TellCost({search.nanoseconds, PeakMemory()}, QByteArray::number(search.texts) + ' ' + search.digest);
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}

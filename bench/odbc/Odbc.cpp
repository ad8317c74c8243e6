#include "bench/ChildProcess.h"
#include "bench/history/SendLog.h"
#include "bench/Measure.h"
#include "bench/odbc/Search.h"

#include "session/Session.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/server/ServerEngine.h"
#include "support/server/TestServer.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr int Rows = 32000;
constexpr int Rounds = 12; // each side begins equally often
constexpr double DemandedRatio = 1.3;

[[noreturn]] void Fail(const char* words)
{
    std::fprintf(stderr, "bench_odbc: %s\n", words);
    std::exit(1);
}

/// What one side took in its rounds.
class Side
{
public:
    explicit Side(const char* name) : name_(name) {}

    void Run(const QString& port)
    {
        const QByteArrayList words =
            RunChild(QCoreApplication::applicationFilePath(), {QString::fromLatin1(name_), port}, 4).words;
        costs_.push_back({words[0].toDouble(), words[1].toLong()});
        texts_ = words[2].toLongLong();
        digest_ = words[3];
    }
    Cost Median() const { return MedianCost(costs_); }
    bool HasFoundWhat(const Side& other) const
    {
        return texts_ > 0 && texts_ == other.texts_ && digest_ == other.digest_;
    }

private:
    const char* name_;
    std::vector<Cost> costs_;
    qint64 texts_ = 0;
    QByteArray digest_;
};

void CompareSides(const test::TestServer& server, const std::string& what)
{
    const QString port = QString::number(server.Port());
    Side ours("program");
    Side baseline("bare");
    for (int round = 0; round < Rounds; ++round) {
        const bool oursFirst = round % 2 == 0;
        (oursFirst ? ours : baseline).Run(port);
        (oursFirst ? baseline : ours).Run(port);
        if (!ours.HasFoundWhat(baseline))
            Fail("the program and the bare fetch did not find the same");
    }
    PrintRow(what, std::to_string(Rows) + " rows", ours.Median(), baseline.Median(), DemandedRatio);
}

int Compare()
{
    const test::FixedClock clock(Moment());
    test::TestDatabase database(clock);
    QFile::remove(database.Path()); // another one takes its place
    MakeSendLog(database.Path(), Rows);
    test::TestServer server(database.Path(), clock);
    CompareSides(server, "search over ODBC");

    const QString sql = WholeYear().Text();
    test::ServerDatabases databases(server.Account().Database, database.Path(), clock);
    const std::optional<QByteArray> answer =
        test::ServerEngine(databases, server.Account().Database, clock).Run(sql);
    if (!answer)
        Fail("the database is locked");
    server.AnswerWhere(sql, *answer);
    CompareSides(server, "search over ODBC, answer made beforehand");
    PrintNote("search over ODBC: medians of " + std::to_string(Rounds) +
              " rounds in turn, each side in a fresh process, from the log-in to the log-out; the server is "
              "that of the tests");
    return 0;
}

int BeSide(const QString& side, const QString& port)
{
    const test::ServerAccount account;
    Session session;
    session.DBServer = QStringLiteral("127.0.0.1");
    session.DBPort = port;
    session.DBCatalog = account.Database;
    session.DBUser = account.User;
    session.DBPassword = account.Password;
    const Search search = side == u"program" ? SearchByProgram(session) : FetchBare(session);
    std::printf("%.0f %ld %lld %s\n", search.nanoseconds, PeakMemory(), static_cast<long long>(search.texts),
                search.digest.constData());
    return 0;
}

} // namespace

} // namespace tsms::bench

// Without arguments: the comparison. With "program" or "bare" and the server's port: one run of one side.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 3)
        return tsms::bench::BeSide(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    return tsms::bench::Compare();
}

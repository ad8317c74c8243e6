#include "bench/ChildProcess.h"
#include "bench/dispatch/Workload.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"
#include "store/EmbeddedConnection.h"
#include "store/EmbeddedTables.h"
#include "tsms-gateway/SimulatedGateway.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr int Rounds = 7;
constexpr double DemandedRatio = 1.15;

enum Side { Ours, Baseline };

/// What a run left behind, without what differs from run to run.
struct Traces
{
    QStringList log;
    QList<QStringList> calls;
    int connections = 0;

    bool AreThoseOf(const Traces& other) const { return log == other.log && calls == other.calls; }
};

/// The gateway in this process, and on a given disk a fresh database for each run.
class Contest
{
public:
    explicit Contest(const QString& disk) : disk_(disk), gateway_(clock_, {})
    {
        if (!gateway_.Start())
            Fail("the simulated gateway found no port");
    }

    void Run(const std::string& what, double demandedRatio)
    {
        std::vector<Cost> ours;
        std::vector<Cost> baseline;
        for (int round = 0; round < Rounds; ++round) {
            const bool oursFirst = round % 2 == 0;
            const Cost first = RunOnce(oursFirst ? Ours : Baseline);
            const Cost second = RunOnce(oursFirst ? Baseline : Ours);
            ours.push_back(oursFirst ? first : second);
            baseline.push_back(oursFirst ? second : first);
            if (!traces_[Ours].AreThoseOf(traces_[Baseline]))
                Fail("the two sides did not send and log the same");
        }
        const std::string size = std::to_string(Rows) + " rows";
        PrintRow("dispatch, " + what, size, MedianCost(ours), MedianCost(baseline), demandedRatio);
        PrintCountRow("gateway connections, " + what, size, traces_[Ours].connections,
                      traces_[Baseline].connections - 1,
                      1); // less the one that read the description beforehand
    }

private:
    [[noreturn]] static void Fail(const char* words)
    {
        std::fprintf(stderr, "bench_dispatch: %s\n", words);
        std::exit(1);
    }

    QString MakeDatabase(const QTemporaryDir& folder) const
    {
        const QString path = folder.filePath(QStringLiteral("dispatch.db"));
        const int year = clock_.Date().year();
        CreateEmbeddedDatabase(path, {year, year + 1}, clock_, [](Connection& connection) {
            connection.Execute(QStringLiteral("UPDATE SMSSetup SET SMSID='demo', SMSPWD='demo', "
                                              "SMSDNS='sms.example.kr', SMSTelNo='02-1234-5678', "
                                              "SMSOrgNm='한빛교회', SMSRemainCnt=1000000"));
        });
        return path;
    }

    Cost RunOnce(Side side)
    {
        const QTemporaryDir folder(disk_ + QStringLiteral("/bench_dispatch-XXXXXX"));
        const QString database = MakeDatabase(folder);
        const int connectionsBefore = gateway_.ConnectionCount();
        const qsizetype callsBefore = gateway_.Calls().size();
        const ChildReport report = RunChild(QCoreApplication::applicationFilePath(),
                                            {side == Ours ? QStringLiteral("dialog") : QStringLiteral("bare"),
                                             database, gateway_.Url() + DescriptionPath()},
                                            2);
        traces_[side] = {LogOf(database), CallsSince(callsBefore),
                         gateway_.ConnectionCount() - connectionsBefore};
        return {report.words[0].toDouble(), report.words[1].toLong()};
    }

    QStringList LogOf(const QString& database) const
    {
        EmbeddedConnection connection(clock_);
        connection.OpenFile(database);
        const auto records = connection.Query(
            QStringLiteral(
                "SELECT SMSStatus,SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,UserData1,UserData2,"
                "UserData3,ErrCd,ErrMsg FROM SMSLog_%1 ORDER BY SMSKey")
                .arg(clock_.Date().year()));
        QStringList values;
        for (int row = 0; row < records->RecordCount(); ++row)
            for (int column = 0; column < records->FieldCount(); ++column)
                values +=
                    records->IsNull(row, column) ? QStringLiteral("(null)") : records->Text(row, column);
        return values;
    }

    QList<QStringList> CallsSince(qsizetype first) const
    {
        QList<QStringList> calls;
        for (const ServiceCall& call : gateway_.Calls().sliced(first))
            calls += call.Arguments;
        return calls;
    }

    QString disk_;
    SystemClock clock_;
    SimulatedGateway gateway_;
    Traces traces_[2];
};

int RunSide(const QString& side, const World& world)
{
    const Cost cost = side == u"dialog" ? RunThroughDialog(world) : RunBareLoop(world);
    std::printf("%.0f %ld\n", cost.nanoseconds, cost.peakMemory);
    return 0;
}

int Compare()
{
    Contest(QDir::tempPath()).Run("database on disk", DemandedRatio);
    if (const QString memory = QStringLiteral("/dev/shm"); QFileInfo(memory).isWritable())
        Contest(memory).Run("database in memory", NoLimit);
    PrintNote("dispatch: medians of " + std::to_string(Rounds) +
              " rounds, each side in a process and with a "
              "database of its own; gateway in a third process");
    return 0;
}

} // namespace

} // namespace tsms::bench

// Without arguments: the comparison. With "dialog" or "bare", a database and an address: one run of one side.
int main(int argc, char** argv)
{
    using namespace tsms::bench;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the processes of both sides inherit it
    if (argc == 4)
        return RunSide(QString::fromLocal8Bit(argv[1]),
                       {QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3])});
    const QCoreApplication application(argc, argv);
    return Compare();
}

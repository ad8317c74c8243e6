#include "bench/ChildProcess.h"
#include "bench/dispatch/Workload.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedTables.h"
#include "tsms-gateway/SimulatedGateway.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace tsms::bench {

namespace {

constexpr double DemandedRatio = 1.1;
constexpr double DemandedStall = 50e6; // nanoseconds, the wait for the gateway and the disk included

enum Side { Ours, Baseline };

/// What a run left behind, without what differs from run to run.
struct Traces
{
    QStringList log;
    QList<QStringList> calls;
    int connections = 0;

    bool AreThoseOf(const Traces& other) const { return log == other.log && calls == other.calls; }
};

/// A gateway in this process and a fresh database on a given disk for each run.
class Contest
{
public:
    Contest(const QString& disk, std::string what)
        : disk_(disk), what_(std::move(what)), growth_("dispatch, " + what_, "messages")
    {
    }

    void Run(int rows, int rounds, double demandedRatio)
    {
        const std::string size = std::to_string(rows) + " messages";
        const Comparison comparison{.what = "dispatch, " + what_,
                                    .size = size,
                                    .rounds = rounds,
                                    .limit = demandedRatio,
                                    .warmUp = rows == Sizes[0]};
        stalls_.clear();
        const Costs costs = Compare(
            comparison, [&] { return RunOnce(Ours, rows); }, [&] { return RunOnce(Baseline, rows); },
            [this] {
                Demand(traces_[Ours].AreThoseOf(traces_[Baseline]),
                       "bench_dispatch: the two sides did not send and log the same");
            });
        growth_.Add(rows, costs);
        PrintTimeRow("longest stall of the window, " + what_, size,
                     {{Median(stalls_)}, {costs.baseline.nanoseconds / rows}, costs.rounds}, DemandedStall);
        PrintCountRow("gateway connections, " + what_, size, traces_[Ours].connections,
                      traces_[Baseline].connections - 1,
                      1); // less the one that read the description beforehand
    }

    void PrintGrowth() const { growth_.PrintRows(); }

private:
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

    Cost RunOnce(Side side, int rows)
    {
        SimulatedGateway gateway(clock_, {});
        Demand(gateway.Start(), "bench_dispatch: the simulated gateway found no port");
        const QTemporaryDir folder(disk_ + QStringLiteral("/bench_dispatch-XXXXXX"));
        const QString database = MakeDatabase(folder);
        const QString name = side == Ours ? QStringLiteral("dialog") : QStringLiteral("bare");
        const SideReport report = RunSide(
            {name, database, gateway.Url() + DescriptionPath(), QString::number(rows)}, side == Ours ? 1 : 0);
        if (side == Ours)
            stalls_.push_back(report.words[0].toDouble());
        traces_[side] = {LogOf(database), CallsOf(gateway), gateway.ConnectionCount()};
        return report.cost;
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

    static QList<QStringList> CallsOf(const SimulatedGateway& gateway)
    {
        QList<QStringList> calls;
        for (const ServiceCall& call : gateway.Calls())
            calls += call.Arguments;
        return calls;
    }

    QString disk_;
    std::string what_;
    Growth growth_;
    SystemClock clock_;
    Traces traces_[2];
    std::vector<double> stalls_; ///< of each run of ours
};

void CompareAll()
{
    Contest disk(QDir::tempPath(), "database on disk");
    disk.Run(1000, 7, DemandedRatio);
    // Each message waits for the disk: three rounds have to do, and of so few nothing is demanded.
    disk.Run(10'000, 3, NoLimit);
    disk.Run(32'000, 3, NoLimit);
    disk.PrintGrowth();
    if (const QString folder = QStringLiteral("/dev/shm"); QFileInfo(folder).isWritable()) {
        Contest memory(folder, "database in memory");
        memory.Run(1000, 5, NoLimit);
        memory.Run(10'000, 1, NoLimit);
        memory.Run(32'000, 1, NoLimit);
        memory.PrintGrowth();
    }
    PrintNote("dispatch: each side in a process and with a database of its own; gateway in a third process");
}

/// "dialog" or "bare", a database, an address and how many messages.
void BeSide(const QStringList& arguments)
{
    const World world{arguments[1], arguments[2], arguments[3].toInt()};
    if (arguments[0] != u"dialog") {
        TellCost(RunBareLoop(world));
        return;
    }
    const Sending sending = RunThroughDialog(world);
    TellCost(sending.cost, QByteArray::number(sending.stall, 'f', 0));
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}

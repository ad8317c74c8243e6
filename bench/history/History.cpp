#include "bench/ChildProcess.h"
#include "bench/history/Scrolling.h"
#include "bench/history/Search.h"
#include "bench/history/SendLog.h"
#include "bench/Measure.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr std::size_t Rounds = 12; // each side begins equally often
constexpr int LimitedRows = 32000;
constexpr double DemandedTimes = 2;      // of the bare fetch
constexpr double DemandedMemory = 3;     // of the texts' own bytes
constexpr double DemandedRepaint = 16e6; // nanoseconds

ChildReport RunSide(const char* side, const QString& database, int words)
{
    return RunChild(QCoreApplication::applicationFilePath(), {QString::fromLatin1(side), database}, words);
}

Search SearchIn(const char* side, const QString& database)
{
    const QByteArrayList words = RunSide(side, database, 4).words;
    return {words[0].toDouble(), words[1].toDouble(), words[2].toLongLong(), words[3]};
}

/// What one side took in its rounds.
class Side
{
public:
    explicit Side(const char* name) : name_(name) {}

    void Run(const QString& database)
    {
        last_ = SearchIn(name_, database);
        times_.push_back(last_.nanoseconds);
        memory_.push_back(last_.memory);
    }
    Cost Time() const { return {Median(times_)}; }
    double Memory() const { return Median(memory_); }
    const Search& Last() const { return last_; }

private:
    const char* name_;
    Search last_;
    std::vector<double> times_;
    std::vector<double> memory_;
};

void DemandTheSame(const Search& ours, const Search& baseline)
{
    if (ours.texts > 0 && ours.digest == baseline.digest)
        return;
    std::fprintf(stderr, "bench_history: the page and the bare fetch did not find the same\n");
    std::exit(1);
}

void CompareSearches(const QString& database, const std::string& size, bool limited)
{
    Side first("page");
    Side again("again");
    Side baseline("bare");
    const std::array<Side*, 3> sides{&first, &again, &baseline};
    for (std::size_t round = 0; round < Rounds; ++round) {
        for (std::size_t turn = 0; turn < sides.size(); ++turn)
            sides[(round + turn) % sides.size()]->Run(database);
        DemandTheSame(first.Last(), baseline.Last());
        DemandTheSame(again.Last(), baseline.Last());
    }
    const double times = limited ? DemandedTimes : NoLimit;
    const double memory = limited ? DemandedMemory : NoLimit;
    const auto texts = static_cast<double>(baseline.Last().texts);
    PrintRow("search into an empty list", size, first.Time(), baseline.Time(), times);
    PrintRow("search into a filled list", size, again.Time(), baseline.Time(), times);
    PrintMemoryRow("memory of a search / its texts alone", size, first.Memory(), texts, memory);
    PrintMemoryRow("memory of two searches / one's texts", size, again.Memory(), texts, memory);
    PrintMemoryRow("memory of a search / bare fetch", size, first.Memory(), baseline.Memory(), NoLimit);
}

/// Times of the same places in several rounds: of each place the median, so that a round in which something
/// else had the processor does not count.
class PlaceTimes
{
public:
    void Add(const QByteArrayList& words)
    {
        for (std::size_t place = 0; place < places_.size(); ++place)
            places_[place].push_back(words[static_cast<qsizetype>(place)].toDouble());
    }
    std::vector<double> Medians() const
    {
        std::vector<double> medians;
        for (const std::vector<double>& times : places_)
            medians.push_back(Median(times));
        return medians;
    }

private:
    std::vector<std::vector<double>> places_ = std::vector<std::vector<double>>(ScrolledPlaces);
};

double Worst(const std::vector<double>& times)
{
    return *std::max_element(times.begin(), times.end());
}

void CompareScrolling(const QString& database, const std::string& size)
{
    PlaceTimes oursRounds;
    PlaceTimes baselineRounds;
    for (std::size_t round = 0; round < Rounds; ++round) {
        const QByteArrayList words = RunSide("scroll", database, 2 * ScrolledPlaces).words;
        oursRounds.Add(words.first(ScrolledPlaces));
        baselineRounds.Add(words.last(ScrolledPlaces));
    }
    const std::vector<double> ours = oursRounds.Medians();
    const std::vector<double> baseline = baselineRounds.Medians();
    PrintTimeRow("repaint of the scrolled list, median place", size, Median(ours), Median(baseline),
                 DemandedRepaint);
    PrintTimeRow("repaint of the scrolled list, worst place", size, Worst(ours), Worst(baseline),
                 DemandedRepaint);
}

int Compare()
{
    const QTemporaryDir folder;
    for (const int rows : {1000, 10000, LimitedRows}) {
        const QString database = folder.filePath(QStringLiteral("%1.db").arg(rows));
        MakeSendLog(database, rows);
        const std::string size = std::to_string(rows) + " rows";
        CompareSearches(database, size, rows == LimitedRows);
        CompareScrolling(database, size);
    }
    PrintNote("send log: medians of " + std::to_string(Rounds) +
              " rounds in turn, each side in a fresh process; bytes of texts in UTF-8");
    return 0;
}

void PrintWords(const std::vector<double>& times)
{
    for (const double time : times)
        std::printf("%.0f ", time);
}

int BeSide(const QString& side, const QString& database)
{
    if (side == u"scroll") {
        const Scrolling times = ScrollEverywhere(database);
        PrintWords(times.ours);
        PrintWords(times.baseline);
        return 0;
    }
    const Search search = side == u"page"    ? SearchOnPage(database, 0)
                          : side == u"again" ? SearchOnPage(database, 1)
                                             : FetchBare(database);
    std::printf("%.0f %.0f %lld %s\n", search.nanoseconds, search.memory,
                static_cast<long long>(search.texts), search.digest.constData());
    return 0;
}

} // namespace

} // namespace tsms::bench

// Without arguments: the comparison. With "page", "again", "bare" or "scroll" and a database: one run of one
// side.
int main(int argc, char** argv)
{
    using namespace tsms::bench;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the processes of all sides inherit it
    if (argc == 3)
        return BeSide(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    const QCoreApplication application(argc, argv);
    return Compare();
}

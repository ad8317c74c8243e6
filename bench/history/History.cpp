#include "bench/ChildProcess.h"
#include "bench/history/Scrolling.h"
#include "bench/history/Search.h"
#include "bench/history/SendLog.h"
#include "bench/Measure.h"
#include "bench/OtherTool.h"

#include <QTemporaryDir>

#include <algorithm>

namespace tsms::bench {

namespace {

constexpr int Rounds = 6;                // each side begins equally often
constexpr double DemandedTimes = 1.2;    // of the bare fetch
constexpr double DemandedMemory = 3;     // of the texts' own bytes
constexpr double DemandedRepaint = 16e6; // nanoseconds
constexpr int Year = 1'000'000;          // rows of a very large office
constexpr double DemandedStall = 300e6;  // nanoseconds
constexpr double DemandedYearsMemory = 2.5;

/// What one side took in its rounds.
class Side
{
public:
    explicit Side(const char* name) : name_(name) {}

    Cost Run(const QString& database, int rows)
    {
        const SideReport report = RunSide({QString::fromLatin1(name_), database, QString::number(rows)}, 4);
        memory_.push_back(report.words[0].toDouble());
        texts_ = report.words[1].toLongLong();
        digest_ = report.words[2];
        stall_ = report.words[3].toDouble();
        return report.cost;
    }
    double Memory() const { return Median(memory_); }
    qint64 Texts() const { return texts_; }
    double Stall() const { return stall_; } ///< of the last round
    bool HasFoundWhat(const Side& other) const { return texts_ > 0 && digest_ == other.digest_; }

private:
    const char* name_;
    std::vector<double> memory_;
    qint64 texts_ = 0;
    QByteArray digest_;
    double stall_ = 0;
};

/// What our first search and the bare fetch cost.
Costs CompareSearches(const QString& database, int rows)
{
    const std::string size = std::to_string(rows) + " rows";
    const bool limited = rows == LargestSize;
    Side first("page");
    Side again("again");
    Side bare("bare");
    const Comparison comparison{.what = "search into an empty list",
                                .size = size,
                                .rounds = Rounds,
                                .limit = limited ? DemandedTimes : NoLimit};
    const std::vector<Cost> medians =
        RunInTurn(comparison,
                  {[&] { return first.Run(database, rows); }, [&] { return again.Run(database, rows); },
                   [&] { return bare.Run(database, rows); }},
                  [&] {
                      Demand(first.HasFoundWhat(bare) && again.HasFoundWhat(bare),
                             "bench_history: the page and the bare fetch did not find the same");
                  });
    const int rounds = RoundsOf(comparison);
    const Costs costs{medians[0], medians[2], rounds};
    const double memory = limited ? DemandedMemory : NoLimit;
    const auto texts = static_cast<double>(bare.Texts());
    PrintRow(comparison.what, size, costs, comparison.limit);
    PrintRow("search into a filled list", size, {medians[1], medians[2], rounds}, comparison.limit);
    PrintMemoryRow("memory of a search / its texts alone", size, {first.Memory(), texts, rounds}, memory);
    PrintMemoryRow("memory of two searches / one's texts", size, {again.Memory(), texts, rounds}, memory);
    PrintMemoryRow("memory of a search / bare fetch", size, {first.Memory(), bare.Memory(), rounds}, NoLimit);
    return costs;
}

void CompareWithShell(const QString& database, int rows)
{
    if (!HasTool("sqlite3", QStringLiteral("sqlite3"), {QStringLiteral("-version")}))
        return;
    Side page("page");
    Search shell;
    Compare(
        {.what = "search, beside sqlite3", .size = std::to_string(rows) + " rows", .rounds = Rounds},
        [&] { return page.Run(database, rows); },
        [&] {
            shell = SearchInShell(database);
            return shell.cost;
        },
        [&] {
            Demand(shell.texts == page.Texts(), "bench_history: the page and sqlite3 did not find as much");
        });
}

/// A search of so many rows that it takes seconds: the window lives on, and the list costs little beside its
/// texts. A single round of each side.
void CompareYear(const QString& database)
{
    const std::string size = std::to_string(Year) + " rows";
    Side page("page");
    Side bare("bare");
    const Costs costs{page.Run(database, Year), bare.Run(database, Year), 1};
    Demand(page.HasFoundWhat(bare), "bench_history: the page and the bare fetch did not find the same");
    PrintRow("search into an empty list", size, costs, NoLimit);
    PrintTimeRow("longest stall of the window / bare fetch", size, {{page.Stall()}, costs.baseline, 1},
                 DemandedStall);
    PrintMemoryRow("memory of a search / its texts alone", size,
                   {page.Memory(), static_cast<double>(bare.Texts()), 1}, DemandedYearsMemory);
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
    const int rounds = RoundsOf({.what = "repaint", .size = size, .rounds = Rounds});
    PlaceTimes oursRounds;
    PlaceTimes baselineRounds;
    for (int round = 0; round < rounds; ++round) {
        const QByteArrayList words = RunSide({QStringLiteral("scroll"), database}, 2 * ScrolledPlaces).words;
        oursRounds.Add(words.first(ScrolledPlaces));
        baselineRounds.Add(words.last(ScrolledPlaces));
    }
    const std::vector<double> ours = oursRounds.Medians();
    const std::vector<double> baseline = baselineRounds.Medians();
    PrintTimeRow("repaint of the scrolled list, median place", size,
                 {{Median(ours)}, {Median(baseline)}, rounds}, DemandedRepaint);
    PrintTimeRow("repaint of the scrolled list, worst place", size,
                 {{Worst(ours)}, {Worst(baseline)}, rounds}, DemandedRepaint);
}

void CompareAll()
{
    const QTemporaryDir folder;
    Growth growth("search", "rows");
    for (const int rows : Sizes) {
        const QString database = folder.filePath(QStringLiteral("%1.db").arg(rows));
        MakeSendLog(database, rows);
        growth.Add(rows, CompareSearches(database, rows));
        CompareScrolling(database, std::to_string(rows) + " rows");
        if (rows == LargestSize)
            CompareWithShell(database, rows);
    }
    const QString year = folder.filePath(QStringLiteral("year.db"));
    MakeSendLog(year, Year);
    CompareYear(year);
    growth.PrintRows();
    PrintNote("send log: each side in a fresh process; bytes of texts in UTF-8");
}

QByteArray Words(const std::vector<double>& times)
{
    QByteArray words;
    for (const double time : times)
        words += QByteArray::number(time, 'f', 0) + ' ';
    return words;
}

void TellScrolling(const QString& database)
{
    const Scrolling times = ScrollEverywhere(database);
    TellCost({}, Words(times.ours) + Words(times.baseline));
}

void TellSearch(const Search& search)
{
    TellCost(search.cost, Words({search.memory}) + QByteArray::number(search.texts) + ' ' + search.digest +
                              ' ' + QByteArray::number(search.stall, 'f', 0));
}

/// "page", "again", "bare" or "scroll", a database, and how many rows a search finds.
void BeSide(const QStringList& arguments)
{
    const QString& side = arguments[0];
    const QString& database = arguments[1];
    if (side == u"scroll")
        TellScrolling(database);
    else if (side == u"bare")
        TellSearch(FetchBare(database));
    else
        TellSearch(SearchOnPage(database, arguments[2].toInt(), side == u"again" ? 1 : 0));
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}

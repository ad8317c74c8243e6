#include "bench/ChildProcess.h"
#include "bench/recipients/Steps.h"

#include "bench/history/SendLog.h"

#include <QTemporaryDir>

#include <algorithm>

namespace tsms::bench {

namespace {

constexpr int Rounds = 5;
constexpr double DemandedStep = 16e6; // nanoseconds

/// What each step took in the rounds of one side.
class Side
{
public:
    explicit Side(const char* name) : name_(name) {}

    void Run(const QString& database)
    {
        const QByteArrayList words = RunSide({QString::fromLatin1(name_), database}, StepsOfDay).words;
        for (std::size_t step = 0; step < steps_.size(); ++step)
            steps_[step].push_back(words[static_cast<qsizetype>(step)].toDouble());
    }

    /// The medians of such steps, from one to another.
    std::vector<double> Medians(int from, int count) const
    {
        std::vector<double> medians;
        for (int step = from; step < from + count; ++step)
            medians.push_back(Median(steps_[static_cast<std::size_t>(step)]));
        return medians;
    }

private:
    const char* name_;
    std::vector<std::vector<double>> steps_ = std::vector<std::vector<double>>(StepsOfDay);
};

double Worst(const std::vector<double>& times)
{
    return *std::max_element(times.begin(), times.end());
}

void CompareAll()
{
    const QTemporaryDir folder;
    const QString database = folder.filePath(QStringLiteral("recipients.db"));
    MakeSendLog(database, 1);
    const std::string size = std::to_string(LargestSize) + " recipients";
    const int rounds = RoundsOf({.what = "recipients", .size = size, .rounds = Rounds});
    Side ours("page");
    Side baseline("bare");
    for (int round = 0; round < rounds; ++round) {
        ours.Run(database);
        baseline.Run(database);
    }
    const auto print = [&](const char* what, int from, int count) {
        const Costs costs{{Worst(ours.Medians(from, count))}, {Worst(baseline.Medians(from, count))}, rounds};
        PrintTimeRow(what, size, costs, DemandedStep);
    };
    print("recipients pasted", PasteStep, 1);
    print("a recipient removed from the middle, worst", FirstRemoval, Removals);
    print("a step by Enter, worst", FirstWalk, Walks);
    print("the list emptied", EmptyStep, 1);
    PrintNote("recipients: each side in a fresh process; each step with its painting");
}

/// "page" or "bare", and a database.
void BeSide(const QStringList& arguments)
{
    QByteArray words;
    for (const double time : arguments[0] == u"page" ? DayOnPage(arguments[1]) : DayInBareList())
        words += QByteArray::number(time, 'f', 0) + ' ';
    TellCost({}, words);
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}

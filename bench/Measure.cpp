#include "bench/Measure.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <malloc.h>

namespace tsms::bench {

namespace {

std::string Printed(const char* pattern, double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, pattern, value);
    return buffer;
}

std::string Time(double nanoseconds)
{
    if (nanoseconds >= 1e9)
        return Printed("%.2f s", nanoseconds / 1e9);
    if (nanoseconds >= 1e6)
        return Printed("%.1f ms", nanoseconds / 1e6);
    return Printed("%.2f us", nanoseconds / 1e3);
}

std::string Memory(long kib)
{
    return kib == NotMeasured ? "-" : Printed("%.1f MiB", static_cast<double>(kib) / 1024);
}

void PrintCells(std::initializer_list<std::string> cells)
{
    const char* separator = "";
    for (const std::string& cell : cells) {
        std::printf("%s%s", separator, cell.c_str());
        separator = "\t";
    }
    std::printf("\n");
    std::fflush(stdout);
}

const char* Verdict(bool kept)
{
    return kept ? " kept" : " MISSED";
}

std::string RatioLimit(double ratio, double limit)
{
    return limit == NoLimit ? std::string("-") : Printed("<= %.3g", limit) + Verdict(ratio <= limit);
}

/// The distance between the quartiles as a share of the median.
double Spread(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t quarter = values.size() / 4;
    return (values[values.size() - 1 - quarter] - values[quarter]) / Median(values);
}

/// How far the rounds of the restless side lie apart. A ratio that misses a limit by less says nothing.
std::string Noise(const Costs& costs)
{
    constexpr double restless = 0.2;
    const double spread = std::max(costs.ours.spread, costs.baseline.spread);
    if (spread == 0) // of a single round, or of figures that are none of a round's
        return "-";
    return Printed("%.0f %%", 100 * spread) + (spread > restless ? " NOISY" : "");
}

/// A figure in KiB of what the system tells about this process.
long StatusOf(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long kib = 0; word == name && status >> kib)
            return kib;
    return 0;
}

} // namespace

void Demand(bool condition, const char* words)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", words);
    std::exit(1);
}

std::int64_t Nanoseconds()
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

long PeakMemory()
{
    return StatusOf("VmHWM:");
}

long HeldMemory()
{
    return StatusOf("VmRSS:");
}

void ForgetPeakMemory()
{
    malloc_trim(0);
    constexpr int peakAnew = 5;
    Demand(bool(std::ofstream("/proc/self/clear_refs") << peakAnew << std::flush),
           "the system does not count the peak of the memory anew");
}

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*middle + *std::max_element(values.begin(), middle)) / 2;
}

Cost MedianCost(const std::vector<Cost>& rounds)
{
    std::vector<double> times;
    std::vector<double> peaks;
    for (const Cost& round : rounds) {
        times.push_back(round.nanoseconds);
        peaks.push_back(static_cast<double>(round.peakMemory));
    }
    return {Median(times), std::lround(Median(peaks)), Spread(times)};
}

int RoundsOf(const Comparison& comparison)
{
    return std::getenv("TSMS_BENCH_QUICK") ? 1 : comparison.rounds;
}

std::vector<Cost> RunInTurn(const Comparison& comparison, const std::vector<Run>& sides,
                            const std::function<void()>& afterRound)
{
    const int rounds = RoundsOf(comparison);
    std::vector<std::vector<Cost>> costs(sides.size());
    for (int round = comparison.warmUp ? -1 : 0; round < rounds; ++round) {
        for (std::size_t turn = 0; turn < sides.size(); ++turn) {
            const std::size_t side = (static_cast<std::size_t>(round + 1) + turn) % sides.size();
            const Cost cost = sides[side]();
            if (round >= 0)
                costs[side].push_back(cost);
        }
        if (afterRound)
            afterRound();
    }
    std::vector<Cost> medians;
    for (const std::vector<Cost>& side : costs)
        medians.push_back(MedianCost(side));
    return medians;
}

Costs Compare(const Comparison& comparison, const Run& ours, const Run& baseline,
              const std::function<void()>& afterRound)
{
    const std::vector<Cost> medians = RunInTurn(comparison, {ours, baseline}, afterRound);
    const Costs costs{medians[0], medians[1], RoundsOf(comparison)};
    PrintRow(comparison.what, comparison.size, costs, comparison.limit);
    return costs;
}

void Growth::PrintRow(int from, int to, double limit) const
{
    const Costs& small = costs_.at(from);
    const Costs& large = costs_.at(to);
    const double ours = large.ours.nanoseconds / small.ours.nanoseconds;
    const double baseline = OfBaseline(from, to);
    PrintCells({"growth: " + what_, std::to_string(to) + " / " + std::to_string(from) + " " + unit_,
                Printed("%.1f", static_cast<double>(to) / from), Printed("%.1f", ours),
                Printed("%.1f", baseline), RatioLimit(ours, limit)});
}

void Growth::PrintRows() const
{
    for (const int size : Sizes)
        if (size != Sizes[0])
            PrintRow(Sizes[0], size);
}

void PrintRow(const std::string& what, const std::string& size, const Costs& costs, double limit)
{
    const double ratio = costs.ours.nanoseconds / costs.baseline.nanoseconds;
    PrintCells({what, size, Time(costs.ours.nanoseconds), Time(costs.baseline.nanoseconds),
                Printed("%.3f", ratio),
                Memory(costs.ours.peakMemory) + " / " + Memory(costs.baseline.peakMemory),
                std::to_string(costs.rounds), Noise(costs), RatioLimit(ratio, limit)});
}

void PrintTimeRow(const std::string& what, const std::string& size, const Costs& costs, double limit)
{
    const double ours = costs.ours.nanoseconds;
    const double baseline = costs.baseline.nanoseconds;
    PrintCells({what, size, Time(ours), Time(baseline), Printed("%.3f", ours / baseline), "-",
                std::to_string(costs.rounds), Noise(costs), "< " + Time(limit) + Verdict(ours < limit)});
}

void PrintMemoryRow(const std::string& what, const std::string& size, const Held& held, double limit)
{
    const double ratio = held.ours / held.baseline;
    constexpr double mebibyte = 1024 * 1024;
    PrintCells({what, size, Printed("%.2f MiB", held.ours / mebibyte),
                Printed("%.2f MiB", held.baseline / mebibyte), Printed("%.3f", ratio), "-",
                std::to_string(held.rounds), "-", RatioLimit(ratio, limit)});
}

void PrintCountRow(const std::string& what, const std::string& size, int ours, int baseline, int demanded)
{
    PrintCells({what, size, std::to_string(ours), std::to_string(baseline), "-", "-", "1", "-",
                "= " + std::to_string(demanded) + Verdict(ours == demanded)});
}

void PrintNote(const std::string& words)
{
    PrintCells({"# " + words});
}

} // namespace tsms::bench

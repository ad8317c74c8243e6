#include "bench/Measure.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>

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
    return kib == 0 ? "-" : Printed("%.1f MiB", static_cast<double>(kib) / 1024);
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

} // namespace

std::int64_t Nanoseconds()
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

long PeakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long kib = 0; word == "VmHWM:" && status >> kib)
            return kib;
    return 0;
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
    return {Median(times), std::lround(Median(peaks))};
}

void PrintRow(const std::string& what, const std::string& size, const Cost& ours, const Cost& baseline,
              double limit)
{
    const double ratio = ours.nanoseconds / baseline.nanoseconds;
    PrintCells({what, size, Time(ours.nanoseconds), Time(baseline.nanoseconds), Printed("%.3f", ratio),
                Memory(ours.peakMemory) + " / " + Memory(baseline.peakMemory),
                limit == NoLimit ? std::string("-") : Printed("<= %g", limit) + Verdict(ratio <= limit)});
}

void PrintCountRow(const std::string& what, const std::string& size, int ours, int baseline, int demanded)
{
    PrintCells({what, size, std::to_string(ours), std::to_string(baseline), "-", "-",
                "= " + std::to_string(demanded) + Verdict(ours == demanded)});
}

void PrintNote(const std::string& words)
{
    PrintCells({"# " + words});
}

} // namespace tsms::bench

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

std::string RatioLimit(double ratio, double limit)
{
    return limit == NoLimit ? std::string("-") : Printed("<= %g", limit) + Verdict(ratio <= limit);
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
    if (std::ofstream("/proc/self/clear_refs") << peakAnew << std::flush)
        return;
    std::fprintf(stderr, "the system does not count the peak of the memory anew\n");
    std::exit(1);
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
                Memory(ours.peakMemory) + " / " + Memory(baseline.peakMemory), RatioLimit(ratio, limit)});
}

void PrintTimeRow(const std::string& what, const std::string& size, double ours, double baseline,
                  double limit)
{
    PrintCells({what, size, Time(ours), Time(baseline), Printed("%.3f", ours / baseline), "-",
                "< " + Time(limit) + Verdict(ours < limit)});
}

void PrintMemoryRow(const std::string& what, const std::string& size, double ours, double baseline,
                    double limit)
{
    const double ratio = ours / baseline;
    constexpr double mebibyte = 1024 * 1024;
    PrintCells({what, size, Printed("%.2f MiB", ours / mebibyte), Printed("%.2f MiB", baseline / mebibyte),
                Printed("%.3f", ratio), "-", RatioLimit(ratio, limit)});
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

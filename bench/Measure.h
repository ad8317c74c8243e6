#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tsms::bench {

/// Ends the process with words on stderr, unless `condition` holds.
void Demand(bool condition, const char* words);

/// Nanoseconds of a clock that never jumps and that all processes of the machine share.
std::int64_t Nanoseconds();

/// The most memory that this process has held at once, in KiB; 0 where the system does not tell.
long PeakMemory();

/// The memory that this process holds now, in KiB; 0 where the system does not tell.
long HeldMemory();

/// Gives what the heap keeps free back to the system. From here on PeakMemory tells the most that is held
/// since. Ends the process with words on stderr where the system cannot begin anew.
void ForgetPeakMemory();

double Median(std::vector<double> values); ///< of at least one value

/// The sizes at which an operation is measured, to see how it grows; the last one is a large church's.
inline constexpr int Sizes[] = {1000, 10'000, 32'000};
inline constexpr int LargestSize = 32'000;

inline constexpr long NotMeasured = -1;

/// What one side of a comparison cost.
struct Cost
{
    double nanoseconds = 0;
    long peakMemory = NotMeasured; ///< KiB
    double spread = 0; ///< of several rounds: the distance between their quartiles, as a share of the median
};

/// What both sides cost: the medians of so many rounds.
struct Costs
{
    Cost ours;
    Cost baseline;
    int rounds = 0;
};

inline constexpr double NoLimit = 0;

/// How a comparison is made, and the beginning and the end of its row.
struct Comparison
{
    std::string what;
    std::string size;
    int rounds = 1;
    double limit = NoLimit; ///< of ours / baseline, in time
    bool warmUp = true;     ///< a round before the others brings programs and files into the system's caches
};

/// The median of each figure over the rounds of one side, and how far they lie apart.
Cost MedianCost(const std::vector<Cost>& rounds);

/// One run of one side.
using Run = std::function<Cost()>;

/// Of a comparison: as many rounds as it says, or a single one where TSMS_BENCH_QUICK is in the environment.
int RoundsOf(const Comparison& comparison);

/// Runs all sides in turn, round by round; the one that begins changes from round to round. `afterRound`
/// follows each round. The medians of each side.
std::vector<Cost> RunInTurn(const Comparison& comparison, const std::vector<Run>& sides,
                            const std::function<void()>& afterRound = {});

/// The same with two sides; prints their row.
Costs Compare(const Comparison& comparison, const Run& ours, const Run& baseline,
              const std::function<void()>& afterRound = {});

/// How the time of one kind of work grows with its size.
class Growth
{
public:
    Growth(std::string what, std::string unit) : what_(std::move(what)), unit_(std::move(unit)) {}

    void Add(int size, const Costs& costs) { costs_[size] = costs; }

    /// Prints a row of the table of growth: by how much the sizes differ, and by how much the times of each
    /// side. The limit is that of ours.
    void PrintRow(int from, int to, double limit = NoLimit) const;

    /// By how much the times of the baseline differ.
    double OfBaseline(int from, int to) const
    {
        return costs_.at(to).baseline.nanoseconds / costs_.at(from).baseline.nanoseconds;
    }

    void PrintRows() const; ///< from the first one of Sizes to each other one

private:
    std::string what_;
    std::string unit_;
    std::map<int, Costs> costs_;
};

/// Prints a row of the table: both times, their ratio, both peaks, the rounds, how far these lie apart and
/// whether the ratio keeps `limit`.
void PrintRow(const std::string& what, const std::string& size, const Costs& costs, double limit);

/// Prints a row about times of which ours must stay below `limit` nanoseconds, whatever the baseline.
void PrintTimeRow(const std::string& what, const std::string& size, const Costs& costs, double limit);

/// What both sides held, in bytes.
struct Held
{
    double ours = 0;
    double baseline = 0;
    int rounds = 0;
};

/// Prints a row about memory. The limit is that of the ratio.
void PrintMemoryRow(const std::string& what, const std::string& size, const Held& held, double limit);

/// Prints a row about counts, of which ours must be exactly `demanded`.
void PrintCountRow(const std::string& what, const std::string& size, int ours, int baseline, int demanded);

/// Prints a line that stands below the tables.
void PrintNote(const std::string& words);

} // namespace tsms::bench

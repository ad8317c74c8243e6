#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tsms::bench {

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

/// What one side of a comparison cost.
struct Cost
{
    double nanoseconds = 0;
    long peakMemory = 0; ///< KiB; 0: not measured
};

/// The median of each figure over the rounds of one side.
Cost MedianCost(const std::vector<Cost>& rounds);

inline constexpr double NoLimit = 0;

/// Prints a row of the table: both times, their ratio, both peaks and whether the ratio keeps `limit`.
void PrintRow(const std::string& what, const std::string& size, const Cost& ours, const Cost& baseline,
              double limit);

/// Prints a row about times of which ours must stay below `limit` nanoseconds, whatever the baseline.
void PrintTimeRow(const std::string& what, const std::string& size, double ours, double baseline,
                  double limit);

/// Prints a row about memory in bytes. The limit is that of the ratio.
void PrintMemoryRow(const std::string& what, const std::string& size, double ours, double baseline,
                    double limit);

/// Prints a row about counts, of which ours must be exactly `demanded`.
void PrintCountRow(const std::string& what, const std::string& size, int ours, int baseline, int demanded);

/// Prints a line that stands below the table.
void PrintNote(const std::string& words);

} // namespace tsms::bench

#pragma once

#include <QString>

#include <vector>

namespace tsms::bench {

/// Nanoseconds from the move of the scroll bars until the window has been painted, place by place.
struct Scrolling
{
    std::vector<double> ours;
    std::vector<double> baseline;
};

inline constexpr int FarJumps = 200;    ///< to rows all over the list, and to the left, the middle, the right
inline constexpr int StepsEachWay = 50; ///< by pages down and up, then by rows down and up
inline constexpr int ScrolledPlaces = FarJumps + 4 * StepsEachWay;

/// Scrolls the filled list of the page to always the same ScrolledPlaces, and in turn with it a bare table
/// view of the same size, rows and columns with short texts.
Scrolling ScrollEverywhere(const QString& database);

} // namespace tsms::bench

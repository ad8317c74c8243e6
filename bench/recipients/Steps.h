#pragma once

#include "bench/Measure.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace tsms::bench {

// A day with a list of LargestSize recipients, step by step: they are pasted, some are removed from the
// middle one by one, Enter walks on from there, and the list is emptied.

inline constexpr int Removals = 150;
inline constexpr int Walks = 200;

inline constexpr int PasteStep = 0;
inline constexpr int FirstRemoval = 1;
inline constexpr int FirstWalk = FirstRemoval + Removals;
inline constexpr int EmptyStep = FirstWalk + Walks;
inline constexpr int StepsOfDay = EmptyStep + 1;

/// The text that is pasted: a name and a number a line.
QString PastedText();

/// Nanoseconds of each step until its change is painted, on the compose page in the main window.
std::vector<double> DayOnPage(const QString& database);

/// The same in a table view with a model of texts and nothing else.
std::vector<double> DayInBareList();

inline void Paint()
{
    QCoreApplication::processEvents();
}

/// What a step takes until its change is painted.
template <class Step> double TimeOf(const Step& step)
{
    const std::int64_t from = Nanoseconds();
    step();
    Paint();
    return static_cast<double>(Nanoseconds() - from);
}

} // namespace tsms::bench

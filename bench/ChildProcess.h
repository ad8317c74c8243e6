#pragma once

#include "bench/Measure.h"

#include <QByteArrayList>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace tsms::bench {

/// What a process of a benchmark had to say.
struct ChildReport
{
    std::int64_t started = 0; ///< Nanoseconds() just before it was started
    QByteArrayList words;     ///< of its standard output
};

/// Runs a program to its end. Ends this process with words on stderr when it fails or does not say exactly
/// `words` words.
ChildReport RunChild(const QString& program, const QStringList& arguments, int words);

/// What a process that is one side of a comparison had to say.
struct SideReport
{
    Cost cost;
    QByteArrayList words; ///< behind its cost
};

/// Runs this program as the side that `arguments` name, and ends as RunChild does.
SideReport RunSide(const QStringList& arguments, int words = 0);

/// What such a process says: its cost, and whatever else; blanks between the words of `more`.
void TellCost(const Cost& cost, const QByteArray& more = {});

/// The main routine of a benchmark whose sides have processes of their own. Without arguments `compare` runs,
/// in a core application; with some `beSide`, which has to make an application itself. Both on the platform
/// of the environment, else offscreen.
int RunBenchmark(int argc, char** argv, void (*beSide)(const QStringList& arguments), void (*compare)());

} // namespace tsms::bench

#pragma once

#include "faults/Scene.h"

#include <string_view>

namespace tsms::test {

/// An operation of the program, as a person does it on the forms. Each can be done twice in one scene, in
/// turns 1 and 2, which work on rows of their own.
struct Operation
{
    /// How it goes on when one of its statements has failed.
    enum class Manner {
        Stops, ///< what would follow on the same connection is left out
        Runs,  ///< the next changing statement is lost, those behind it go by a new connection
    };

    const char* name;
    int statements; ///< that it sends when all goes well
    int logIns;     ///< that it then needs
    Manner manner;

    /// Goes to the place and does it: the action of the turn.
    void (*perform)(Scene& scene, int turn);

    /// What each of its changing statements does to the database, in their order.
    QList<QStringList> (*effects)(int turn);

    /// Its own boxes when all goes well. The last one tells that it is done, where it changes anything.
    QList<Box> (*boxes)(int turn);

    /// Its own boxes when something fails, beside those above.
    QList<Box> failures = {};

    /// Statements, from 1, without whose rows the person leaves it.
    QList<int> reads = {};

    /// It does not try a second time to connect.
    bool connectsOnce = false;
};

void PrintTo(const Operation& operation, std::ostream* out);

const QList<Operation>& Operations();

/// The operation of that name, which there is.
const Operation& Named(std::string_view name);

} // namespace tsms::test

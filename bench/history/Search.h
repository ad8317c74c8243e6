#pragma once

#include "bench/Measure.h"

#include <QByteArray>
#include <QString>

namespace tsms::bench {

/// What a search took and what it found.
struct Search
{
    Cost cost;
    double memory = 0; ///< the most bytes that the process held beyond those before the first search
    qint64 texts = 0;  ///< bytes of all that was found, in UTF-8
    QByteArray digest; ///< the same for the same texts in the same order
    double stall = 0;  ///< the most nanoseconds for which the window did not live
};

/// A click on the search button of the page in the main window, until it has returned and the window has been
/// painted. It finds `rows`. `searchesBefore` searches for the same have filled the list before it.
Search SearchOnPage(const QString& database, int rows, int searchesBefore);

/// The page's statement run by the engine's own interface on an open database, with the program's functions
/// and collation, its texts laid one behind the other into memory.
Search FetchBare(const QString& database);

/// The same rows as a person asks the engine's own shell for them, which knows neither the program's
/// functions nor its collation: with functions of the engine, and sorted by it. The whole process of the
/// shell; neither its memory nor the digest is told.
Search SearchInShell(const QString& database);

} // namespace tsms::bench

#include "bench/history/Search.h"

#include "bench/Heart.h"
#include "bench/history/HistoryWindow.h"
#include "bench/history/TextSum.h"
#include "bench/Measure.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr int MarkColumn = 2;
constexpr int MostMarks = 32'767; // a longer list ends in a box

/// Each row that is marked has its mark, and there are marks of both kinds.
void DemandMarks(const fpSpread& list)
{
    const int rows = std::min(list.Cells().MaxRows(), MostMarks);
    int open = 0;
    int locked = 0;
    for (int row = 1; row <= rows; ++row) {
        open += list.Cells().CellPicture(MarkColumn, row) == CheckEmpty ? 1 : 0;
        locked += list.Cells().CellPicture(MarkColumn, row) == CheckLocked ? 1 : 0;
    }
    if (open > 0 && locked > 0 && open + locked == rows)
        return;
    std::fprintf(stderr, "bench_history: %d open and %d locked marks in %d rows\n", open, locked, rows);
    std::exit(1);
}

} // namespace

Search SearchOnPage(const QString& database, int rows, int searchesBefore)
{
    HistoryWindow window(database);
    ForgetPeakMemory();
    const long held = HeldMemory();
    for (int search = 0; search < searchesBefore; ++search)
        window.ClickSearch();
    Heart heart;
    const std::int64_t from = Nanoseconds();
    window.ClickSearch(rows > MostMarks ? 1 : 0);
    const std::int64_t to = Nanoseconds();
    heart.Beat();
    const long most = PeakMemory();

    const fpSpread& list = window.List();
    DemandMarks(list);
    TextSum sum;
    for (int row = 1; row <= list.Cells().MaxRows(); ++row)
        for (int col = 1; col <= list.Cells().MaxCols(); ++col)
            sum.Add(GridHelper().GetCellText(list, col, row).toUtf8());
    return {{static_cast<double>(to - from), most},
            static_cast<double>(most - held) * 1024,
            sum.Bytes(),
            sum.Digest(),
            heart.Longest()};
}

} // namespace tsms::bench

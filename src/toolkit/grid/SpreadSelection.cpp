#include "toolkit/grid/SpreadSelection.h"

#include "toolkit/grid/fpSpread.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <limits>

namespace tsms {

namespace {

constexpr int ToTheEnd = std::numeric_limits<int>::max();

/// So many sections on view from one of an axis, or as far as there are any.
int Stepped(const QHeaderView& axis, int from, int steps)
{
    const int step = steps < 0 ? -1 : 1;
    int reached = from;
    for (int at = from + step; steps != 0 && at >= 0 && at < axis.count(); at += step) {
        if (axis.isSectionHidden(at))
            continue;
        reached = at;
        steps -= step;
    }
    return reached;
}

/// The corner opposite the active cell.
QModelIndex FarCorner(const fpSpread& grid)
{
    const QModelIndex active = grid.currentIndex();
    const QItemSelection selection = grid.selectionModel()->selection();
    if (selection.size() != 1)
        return active;
    const QItemSelectionRange& block = selection.first();
    return grid.model()->index(block.top() == active.row() ? block.bottom() : block.top(),
                               block.left() == active.column() ? block.right() : block.left());
}

int RowsOfPage(const fpSpread& grid)
{
    return std::max(1, grid.viewport()->height() / grid.verticalHeader()->defaultSectionSize());
}

/// The sections on view that hold some of the selection.
template <class Begin, class End>
QList<int> SectionsOnView(const QHeaderView& axis, const QItemSelection& selection, Begin begin, End end)
{
    QList<int> sections;
    for (int section = 0; section < axis.count(); ++section) {
        const auto holds = [&](const QItemSelectionRange& range) {
            return (range.*begin)() <= section && section <= (range.*end)();
        };
        if (!axis.isSectionHidden(section) && std::any_of(selection.begin(), selection.end(), holds))
            sections += section;
    }
    return sections;
}

QList<int> SelectedRows(const fpSpread& grid)
{
    return SectionsOnView(*grid.verticalHeader(), grid.selectionModel()->selection(),
                          &QItemSelectionRange::top, &QItemSelectionRange::bottom);
}

QList<int> SelectedColumns(const fpSpread& grid)
{
    return SectionsOnView(*grid.horizontalHeader(), grid.selectionModel()->selection(),
                          &QItemSelectionRange::left, &QItemSelectionRange::right);
}

} // namespace

void SelectTo(fpSpread& grid, const QModelIndex& corner)
{
    if (grid.currentIndex().isValid() && corner.isValid())
        grid.selectionModel()->select(QItemSelection(grid.currentIndex(), corner),
                                      QItemSelectionModel::ClearAndSelect);
}

bool HasBlock(const fpSpread& grid)
{
    const QItemSelection selection = grid.selectionModel()->selection();
    return selection.size() > 1 || (!selection.isEmpty() && selection.first().height() > 1) ||
           (!selection.isEmpty() && selection.first().width() > 1);
}

QModelIndex CornerBehind(const fpSpread& grid, const QKeyEvent& key)
{
    const bool far = key.modifiers().testFlag(Qt::ControlModifier);
    int across = 0;
    int down = 0;
    switch (key.key()) {
    case Qt::Key_Left:
        across = far ? -ToTheEnd : -1;
        break;
    case Qt::Key_Right:
        across = far ? ToTheEnd : 1;
        break;
    case Qt::Key_Up:
        down = far ? -ToTheEnd : -1;
        break;
    case Qt::Key_Down:
        down = far ? ToTheEnd : 1;
        break;
    case Qt::Key_PageUp:
        down = -RowsOfPage(grid);
        break;
    case Qt::Key_PageDown:
        down = RowsOfPage(grid);
        break;
    case Qt::Key_Home:
        across = -ToTheEnd;
        down = far ? -ToTheEnd : 0;
        break;
    case Qt::Key_End:
        across = ToTheEnd;
        down = far ? ToTheEnd : 0;
        break;
    default:
        return {};
    }
    const QModelIndex corner = FarCorner(grid);
    return grid.model()->index(Stepped(*grid.verticalHeader(), corner.row(), down),
                               Stepped(*grid.horizontalHeader(), corner.column(), across));
}

QModelIndex CellTowards(const fpSpread& grid, QPoint place)
{
    const QRect room = grid.viewport()->rect();
    int row = grid.rowAt(std::clamp(place.y(), room.top(), room.bottom()));
    int column = grid.columnAt(std::clamp(place.x(), room.left(), room.right()));
    if (row < 0) // beside all cells
        row = Stepped(*grid.verticalHeader(), 0, ToTheEnd);
    if (column < 0)
        column = Stepped(*grid.horizontalHeader(), 0, ToTheEnd);
    return grid.model()->index(row, column);
}

QList<QStringList> SelectedTexts(const fpSpread& grid)
{
    QList<int> columns = SelectedColumns(grid);
    columns.removeIf(
        [&](int column) { return grid.Cells().Type(column + 1) == SpreadModel::CellType::Button; });
    QList<QStringList> texts;
    if (columns.isEmpty())
        return texts;
    for (const int row : SelectedRows(grid)) {
        QStringList values;
        for (const int column : columns) {
            const bool isMark = grid.Cells().CellPicture(column + 1, row + 1) >= 0;
            values += isMark ? QString() : grid.Cells().Text(column + 1, row + 1);
        }
        texts += values;
    }
    return texts;
}

QModelIndexList SelectedEditCells(const fpSpread& grid)
{
    QModelIndexList cells;
    for (const int row : SelectedRows(grid))
        for (const int column : SelectedColumns(grid))
            if (grid.Cells().Type(column + 1) == SpreadModel::CellType::Edit)
                cells += grid.model()->index(row, column);
    return cells;
}

} // namespace tsms

#include "bench/history/Scrolling.h"

#include "bench/history/HistoryWindow.h"
#include "bench/Measure.h"

#include "shell/frmSMSMain.h"
#include "toolkit/grid/fpSpread.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace tsms::bench {

namespace {

class ShortTexts final : public QAbstractTableModel
{
public:
    ShortTexts(int rows, int columns) : rows_(rows), columns_(columns) {}
    int rowCount(const QModelIndex&) const override { return rows_; }
    int columnCount(const QModelIndex&) const override { return columns_; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(QString::number(index.row())) : QVariant();
    }

private:
    int rows_;
    int columns_;
};

/// A window like the main one, with nothing in it but a table view in the place of the list.
class BareTable
{
public:
    BareTable(const QWidget& window, const fpSpread& list)
        : texts_(list.Cells().MaxRows(), list.Cells().MaxCols())
    {
        table.setModel(&texts_);
        table.setFont(list.font());
        table.setGeometry(QRect(list.mapTo(&window, QPoint()), list.size()));
        table.verticalHeader()->hide();
        table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        table.verticalHeader()->setDefaultSectionSize(list.rowHeight(0));
        table.horizontalHeader()->setFixedHeight(list.horizontalHeader()->height());
        table.setHorizontalScrollMode(list.horizontalScrollMode());
        for (int column = 0; column < list.Cells().MaxCols(); ++column) {
            table.setColumnWidth(column, list.columnWidth(column));
            table.setColumnHidden(column, list.isColumnHidden(column));
        }
        window_.resize(window.size());
        window_.show();
    }

private:
    ShortTexts texts_;
    QWidget window_;

public:
    QTableView table{&window_};
};

/// A row to stand at the top, and how far to the right: 0 to 2, the left end to the right one.
struct Place
{
    int row;
    int across;
};

std::vector<Place> Places(int last, int page)
{
    std::vector<Place> places{{last, 0}, {0, 2}, {last / 2, 1}};
    std::mt19937 chance(1);
    while (places.size() < FarJumps)
        places.push_back({static_cast<int>(chance() % static_cast<unsigned>(last + 1)),
                          static_cast<int>(places.size() % 3)});
    for (const int step : {page, -page, 1, -1})
        for (int moves = 0; moves < StepsEachWay; ++moves)
            places.push_back({std::clamp(places.back().row + step, 0, last), 0});
    return places;
}

/// Moves the bars of a view and takes the time until it has been painted.
class Scroller final : public QObject
{
public:
    explicit Scroller(QTableView& view) : view_(view) { view.viewport()->installEventFilter(this); }

    double RepaintAt(const Place& place)
    {
        QScrollBar& down = *view_.verticalScrollBar();
        QScrollBar& across = *view_.horizontalScrollBar();
        const int x = across.maximum() * place.across / 2;
        const bool moves = down.value() != place.row || across.value() != x;
        paints_ = 0;
        const std::int64_t from = Nanoseconds();
        down.setValue(place.row);
        across.setValue(x);
        Application::processEvents();
        const std::int64_t to = Nanoseconds();
        Demand(!moves || (down.value() == place.row && paints_ > 0));
        return static_cast<double>(to - from);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        paints_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    static void Demand(bool painted)
    {
        if (painted)
            return;
        std::fprintf(stderr, "bench_history: a view was scrolled and not painted\n");
        std::exit(1);
    }

    QTableView& view_;
    int paints_ = 0;
};

} // namespace

Scrolling ScrollEverywhere(const QString& database)
{
    HistoryWindow window(database);
    window.ClickSearch();
    BareTable bare(window.Window(), window.List());
    Application::processEvents();
    Scroller ours(window.List());
    Scroller baseline(bare.table);

    Scrolling times;
    const QScrollBar& bar = *window.List().verticalScrollBar();
    for (const Place& place : Places(bar.maximum(), bar.pageStep())) {
        times.ours.push_back(ours.RepaintAt(place));
        times.baseline.push_back(baseline.RepaintAt(place));
    }
    return times;
}

} // namespace tsms::bench

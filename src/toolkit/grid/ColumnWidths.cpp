#include "toolkit/grid/ColumnWidths.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace tsms {

namespace {

constexpr double DefaultColWidth = 8.0;

int DigitWidth(const QWidget& grid)
{
    return grid.fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

} // namespace

void ColumnWidths::Set(int col, double width)
{
    if (col < 0 || col > Columns())
        return;
    widths_[col] = std::max(width, 0.0);
    Apply();
}

double ColumnWidths::Width(int col) const
{
    const auto width = widths_.find(col);
    return width == widths_.end() ? DefaultColWidth : width->second;
}

double ColumnWidths::WidthInDigits(int col) const
{
    return Width(col) * unit_ / DigitWidth(grid_);
}

void ColumnWidths::SetHidden(int col, bool hidden)
{
    applying_ = true; // it has no width before it is known to be hidden
    grid_.setColumnHidden(col - 1, hidden);
    Apply();
}

void ColumnWidths::SetFill(bool on)
{
    fill_ = on;
    Apply();
}

void ColumnWidths::Clear()
{
    widths_.clear();
}

void ColumnWidths::KeepFirst(int columns)
{
    widths_.erase(widths_.upper_bound(columns), widths_.end());
    Apply();
}

void ColumnWidths::Apply()
{
    applying_ = true;
    unit_ = std::max(8, qRound(DigitWidth(grid_) * 1.25));
    grid_.horizontalHeader()->setDefaultSectionSize(qRound(DefaultColWidth * unit_));
    grid_.verticalHeader()->setFixedWidth(Pixels(0));
    const int content = ContentWidth();
    const int room = grid_.viewport()->width();
    const double factor = fill_ && content > 0 && content < room ? double(room) / content : 1.0;
    double end = 0;
    int begin = 0;
    for (const auto& [col, width] : widths_) {
        if (col == 0 || grid_.isColumnHidden(col - 1))
            continue;
        end += Pixels(col) * factor;
        // From rounded end to rounded end: no pixel is lost.
        grid_.setColumnWidth(col - 1, std::max(qRound(end) - begin, 4));
        begin = qRound(end);
    }
    applying_ = false;
    WidenLast();
}

void ColumnWidths::WidenLast()
{
    const bool asWideAsItsColumns = grid_.sizeAdjustPolicy() == QTableView::AdjustToContents;
    int last = Columns() - 1;
    while (last >= 0 && grid_.isColumnHidden(last))
        --last;
    if (applying_ || asWideAsItsColumns || last < 0)
        return;
    const int others = grid_.horizontalHeader()->length() - grid_.columnWidth(last);
    grid_.setColumnWidth(last, std::max(Pixels(last + 1), grid_.viewport()->width() - others));
}

int ColumnWidths::Columns() const
{
    return grid_.model()->columnCount();
}

int ColumnWidths::Pixels(int col) const
{
    return qRound(Width(col) * unit_);
}

/// The width of the columns on view as they were set; 0 while some of them were not.
int ColumnWidths::ContentWidth() const
{
    int width = 0;
    for (int col = 1; col <= Columns(); ++col) {
        if (grid_.isColumnHidden(col - 1))
            continue;
        if (!widths_.contains(col))
            return 0;
        width += Pixels(col);
    }
    return width;
}

} // namespace tsms

#pragma once

#include <map>

class QTableView;

namespace tsms {

/// How wide the columns of a grid are, from 1, with 0 for the row titles. A width is told in units of a
/// little more than a digit of the grid's font, and stays so when the font changes. Room that the columns
/// leave is the last one's.
class ColumnWidths
{
public:
    explicit ColumnWidths(QTableView& grid) : grid_(grid) {}

    void Set(int col, double width); ///< at least 0; a column outside the grid is ignored
    double Width(int col) const;
    double WidthInDigits(int col) const;
    void SetHidden(int col, bool hidden);
    void SetFill(bool on); ///< all columns are widened in proportion, in place of the last one

    void Clear();
    void KeepFirst(int columns); ///< those behind them are gone
    void Apply();
    void WidenLast();

private:
    int Columns() const;
    int Pixels(int col) const;
    int ContentWidth() const;

    QTableView& grid_;
    std::map<int, double> widths_; // as they were set
    int unit_ = 0; // pixels: a digit and the air about it; a phone number with its hyphens stands in 10.5
    bool fill_ = false;
    bool applying_ = false; // a column's change is one of several
};

} // namespace tsms

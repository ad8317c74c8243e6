#pragma once

#include <QString>
#include <QStringList>

namespace tsms::bench {

/// The cells that both sides write: a list of sent messages as a person would export it.
class Cells
{
public:
    static constexpr int Columns = 10;

    explicit Cells(int rows); ///< the first one holds the titles

    int Rows() const { return static_cast<int>(texts_.size()) / Columns; }
    const QString& Text(int col, int row) const { return texts_[(row - 1) * Columns + col - 1]; } ///< from 1
    static bool IsNumberColumn(int col) { return col == 1 || col == 10; }

private:
    QStringList texts_;
};

} // namespace tsms::bench

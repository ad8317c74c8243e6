#pragma once

#include <QString>

namespace tsms {

/// Rows and columns of text that a grid reads through instead of copying them, such as the rows of a query.
/// What it answers must not change while a grid holds it.
class CellSource
{
public:
    virtual ~CellSource() = default;
    virtual int Rows() const = 0;
    virtual int Cols() const = 0;

    /// The text of a cell; both numbers from 1 and inside. A NULL reads as an empty text.
    virtual QString Text(int col, int row) const = 0;
};

} // namespace tsms

#pragma once

#include <QtGlobal>

#include <vector>

namespace tsms {

/// A cell as it goes out.
struct SheetCell
{
    enum Content { Empty, Text, Number } content = Empty;
    quint32 text = 0; ///< its number among the shared strings
    double number = 0;
};

/// The cells of a sheet, row by row, in four bytes a cell and eight more for a number.
class SheetCells
{
public:
    SheetCells(int rows, int columns);

    void AddEmpty() { tokens_.push_back(EmptyToken); }
    void AddText(quint32 text) { tokens_.push_back(text + FirstText); }
    void AddNumber(double number);

    int Rows() const { return rows_; }
    int Columns() const { return columns_; }

    bool IsEmpty(int col, int row) const { return tokens_[Place(col, row)] == EmptyToken; } ///< both from 1

    /// Hands out the cells in the order in which they were added, from a row before which there are none.
    class Reader
    {
    public:
        Reader(const SheetCells& cells, int row);
        SheetCell Next();

    private:
        const SheetCells& cells_;
        std::size_t token_;
        std::size_t number_ = 0;
    };

private:
    static constexpr quint32 EmptyToken = 0;
    static constexpr quint32 NumberToken = 1; ///< the next of numbers_
    static constexpr quint32 FirstText = 2;

    std::size_t Place(int col, int row) const
    {
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(col - 1);
    }

    int rows_;
    int columns_;
    std::vector<quint32> tokens_;
    std::vector<double> numbers_;
};

} // namespace tsms

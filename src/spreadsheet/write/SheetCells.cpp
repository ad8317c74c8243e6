#include "spreadsheet/write/SheetCells.h"

namespace tsms {

SheetCells::SheetCells(int rows, int columns) : rows_(rows), columns_(columns)
{
    tokens_.reserve(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
}

void SheetCells::AddNumber(double number)
{
    tokens_.push_back(NumberToken);
    numbers_.push_back(number);
}

SheetCells::Reader::Reader(const SheetCells& cells, int row) : cells_(cells), token_(cells.Place(1, row)) {}

SheetCell SheetCells::Reader::Next()
{
    const quint32 token = cells_.tokens_[token_++];
    if (token == EmptyToken)
        return {};
    if (token == NumberToken)
        return {SheetCell::Number, 0, cells_.numbers_[number_++]};
    return {SheetCell::Text, token - FirstText, 0};
}

} // namespace tsms

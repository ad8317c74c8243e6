#pragma once

#include <QString>

namespace tsms {

/// The grid of special characters has this many columns and rows.
inline constexpr int SymbolColumns = 8;
inline constexpr int SymbolRows = 6;

/// Entry `index`, counted from 0, of the table of 49 one-character symbols. Raises 9 outside it.
QString SymbolTable(int index);

/// The symbol of a cell, column and row counted from 1. The product of the two, and not a running number,
/// is the place in the table: some symbols stand in several cells and some in none.
QString SymbolAt(int column, int row);

} // namespace tsms

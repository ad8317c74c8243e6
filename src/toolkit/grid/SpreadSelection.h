#pragma once

#include <QList>
#include <QModelIndex>
#include <QStringList>

class QKeyEvent;

namespace tsms {

class fpSpread;

// What is selected in a grid is its active cell, or a block with the active cell in one corner. Hidden
// columns and rows may lie within; they take no part in what is done with the block.

/// The block from the active cell to `corner`.
void SelectTo(fpSpread& grid, const QModelIndex& corner);

/// More than one cell is selected.
bool HasBlock(const fpSpread& grid);

/// Where the block ends when Shift and this key are pressed, or Shift, Ctrl and the key; invalid for a key
/// that does not walk.
QModelIndex CornerBehind(const fpSpread& grid, const QKeyEvent& key);

/// The cell at a place of the viewport, or the last one on view towards it.
QModelIndex CellTowards(const fpSpread& grid, QPoint place);

/// The texts of the selected cells, row by row. A mark has none, and a column of buttons is left out.
QList<QStringList> SelectedTexts(const fpSpread& grid);

/// The selected cells that a person can write into.
QModelIndexList SelectedEditCells(const fpSpread& grid);

} // namespace tsms

#pragma once

#include <QPoint>

class QKeyEvent;

namespace tsms {

class fpSpread;

// What a person does with the selected cells, by keys or from the menu: copies them, cuts or deletes the
// texts of those that can be edited, pastes at the active cell.

/// True for the key of a command, which has then been done.
bool DoCommand(fpSpread& grid, const QKeyEvent& key);

/// All but cutting. A grid without edit cells has only what it can do.
void OpenMenu(fpSpread& grid, QPoint place);
void OpenMenuAtCell(fpSpread& grid); ///< at the active one

} // namespace tsms

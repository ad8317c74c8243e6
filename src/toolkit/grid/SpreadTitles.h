#pragma once

#include <Qt>

class QHeaderView;
class QTableView;

namespace tsms {

/// The titles of a grid's columns or rows: flat, without any part in the selection, in the model's colours.
QHeaderView* MakeTitles(Qt::Orientation orientation, QTableView& grid);

/// Draws the corner between both titles like them.
void DrawCornerLikeTitles(QTableView& grid);

} // namespace tsms

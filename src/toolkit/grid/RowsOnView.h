#pragma once

namespace tsms {

class fpSpread;

/// How high a grid is that shows its titles and `rows` rows, none of them cut.
int HeightOfRows(const fpSpread& grid, int rows);

/// Gives a grid that height, less the rows that take `pixels` or more; at least `least` rows stay.
void ShowRows(fpSpread& grid, int rows, int pixels = 0, int least = 0);

} // namespace tsms

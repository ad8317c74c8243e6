#pragma once

namespace tsms {

class fpSpread;

/// The columns of the grid of sent messages, which are those of the query by position.
enum SendListColumn : int {
    SendListKey = 1,    ///< hidden
    SendListStatus = 2, ///< the mark
    SendListNo = 3,
    SendListWord = 4,
    SendListName = 5,
    SendListPhone = 6,
    SendListTime = 7,
    SendListMessage = 8,
    SendListErrorCode = 9,
    SendListErrorText = 10,
};

/// Lays the grid of sent messages out anew, without rows. What it held before is gone, ticks included.
void InitSendListGrid(fpSpread& grid);

} // namespace tsms

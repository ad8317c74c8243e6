#pragma once

namespace tsms {

class fpSpread;

/// The columns of the chosen list.
enum ChosenColumn : int {
    ChosenCode = 1, ///< hidden
    ChosenTick = 2,
    ChosenName = 3,
    ChosenPhone = 4,
    ChosenDelete = 5,
};

/// The columns of the browse list that shows members.
enum MemberColumn : int {
    MemberCode = 1, ///< hidden
    MemberTick = 2,
    MemberGroup = 3,
    MemberName = 4,
    MemberPhone = 5,
    MemberEdit = 6,
    MemberDelete = 7,
};

/// The columns of the browse list that shows groups.
enum GroupColumn : int {
    GroupCode = 1, ///< hidden; empty in the row that stands for no group
    GroupTick = 2,
    GroupName = 3,
    GroupEdit = 4,
    GroupDelete = 5,
};

// Each lays its grid out anew, without rows; what it held before is gone, ticks included. A row that comes
// later is ticked in the chosen list and not ticked in the browse list.
void InitChosenGrid(fpSpread& grid);
void InitMemberGrid(fpSpread& grid);
void InitGroupGrid(fpSpread& grid);

/// A tick on a row, or none where there was one.
void TurnTick(fpSpread& grid, int tickColumn, int row);

} // namespace tsms

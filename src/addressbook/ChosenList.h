#pragma once

#include "addressbook/BookPerson.h"

namespace tsms {

class fpSpread;

/// The chosen list of the address book: its grid, which holds all that is chosen, and the numbers of the rows
/// on view, which say at once whether one is chosen. All changes of its rows go through here. A row that was
/// removed stays, hidden, and its number may be chosen again.
class ChosenList
{
public:
    /// Lays the grid out, without rows.
    explicit ChosenList(fpSpread& grid);

    /// Adds, ticked, those of the members whose number is not chosen.
    void AddMembers(const QList<BookPerson>& members);

    /// Adds, ticked, the members of a group up to the first whose number is chosen.
    void AddGroup(const QList<BookPerson>& group);

    /// Hides the grid's active row.
    void HideActiveRow();

    void Clear();

private:
    void Append(const QList<BookPerson>& people);

    fpSpread& grid_;
    PhoneSet numbers_; // of the rows on view
};

} // namespace tsms

#pragma once

namespace tsms {

class fpSpread;
class RecipientList;

/// The ticked rows of the chosen list. Hidden ones count.
int CountChosen(const fpSpread& chosen);

/// Writes the names and numbers of the chosen list's rows on view into the recipient list, from its first row
/// without a number on, hidden or not. Meant, all of it:
/// - the recipient list grows by the number of ticked rows, whatever is written;
/// - a row on view is written whether it is ticked or not;
/// - a hidden row leaves the row that would be its own as it was, mostly blank;
/// - without a free row the writing begins in row 0, above the list;
/// - what would go beyond the grown list is lost.
void HandOver(const fpSpread& chosen, RecipientList& recipients);

} // namespace tsms

#pragma once

#include <QList>

namespace tsms {

/// The cards of a page.
inline constexpr int CardsOfPage = 8;

/// The rows of the template cache, from 1, that a page shows on its cards, in the order of the cards: `page`
/// counts from 0, `lastRow` is the last row that there is. Page 0 begins with row 1 and every other page p
/// with row 9p, so the rows 17, 26, 35 and so on are on no page.
QList<int> CardRows(int page, int lastRow);

} // namespace tsms

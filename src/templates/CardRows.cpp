#include "templates/CardRows.h"

namespace tsms {

QList<int> CardRows(int page, int lastRow)
{
    QList<int> rows;
    for (int i = page; i < page + CardsOfPage; ++i) {
        // The page counts twice, in i and in the product: the rows that this leaves out are meant.
        const int row = i + page * CardsOfPage + (page == 0 ? 1 : 0);
        if (row > lastRow)
            break;
        rows += row;
    }
    return rows;
}

} // namespace tsms

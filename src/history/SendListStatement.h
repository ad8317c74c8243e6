#pragma once

#include "store/engine/Statement.h"

#include <QDate>
#include <QString>

namespace tsms {

/// What a person looks for among the sent messages.
struct SendListSearch
{
    QString period;       ///< the year, which is that of the first day
    int field = 0;        ///< what the words are looked for in: 0 name, 1 number, 2 message
    QString words;        ///< as typed
    int status = 0;       ///< 0 all, 1 still reserved, 2 done, 3 failed
    QString first;        ///< first day, "YYYY-MM-DD"
    QString dayAfterLast; ///< the day after the last one, "YYYY-MM-DD"
};

/// The query of the list. Its columns are those of SendListColumn, in their order.
Statement SendListStatement(const SendListSearch& search);

} // namespace tsms

#pragma once

#include "addressbook/RecipientRecord.h"
#include "recipients/MobileNumber.h"
#include "recipients/PhoneSet.h"
#include "support/ListOfRows.h"

#include <QByteArray>

#include <cmath>

namespace tsms::test {

/// What the reading of a recipient file comes to when the whole list is gone through for each record.
inline void ReadByScans(const QByteArray& bytes, ListOfRows& list)
{
    const double records = static_cast<double>(bytes.size()) / RecipientRecord::Size;
    list.Resize(static_cast<int>(std::nearbyint(records + 20)));
    int target = 1;
    for (int i = 1; i <= records; ++i) {
        const RecipientRecord record =
            RecipientRecord::Of(bytes.mid((i - 1) * RecipientRecord::Size, RecipientRecord::Size));
        if (!HasMobilePrefix(record.phone))
            continue;
        bool listed = false;
        for (const ListOfRows::Row& row : list.rows)
            listed = listed || (!row.removed && ComparedNumber(row.phone) == ComparedNumber(record.phone));
        if (listed)
            continue;
        list.WriteRunningNumber(target, QString::number(target));
        list.Write(target, record.name, record.phone);
        ++target;
    }
}

} // namespace tsms::test

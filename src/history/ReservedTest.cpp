#include "history/ReservedTest.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace tsms {

bool IsReserved(QStringView sendTime, QDate today)
{
    const QDate sendDay = QDate::fromString(Trimmed(sendTime).left(10), Qt::ISODate);
    if (!sendDay.isValid())
        throw RuntimeError(TypeMismatch);
    return sendDay.addDays(-1) >= today;
}

} // namespace tsms

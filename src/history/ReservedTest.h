#pragma once

#include <QDate>
#include <QStringView>

namespace tsms {

/// True while a message may still be withdrawn: its send day is tomorrow or later. `sendTime` begins with the
/// day, YYYY-MM-DD. Raises 13 when it does not.
bool IsReserved(QStringView sendTime, QDate today);

} // namespace tsms

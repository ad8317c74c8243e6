#pragma once

#include "store/engine/Statement.h"

#include <QDateTime>
#include <QString>

namespace tsms::bench {

inline constexpr int LogYear = 2012;

/// The moment at which the benchmark takes place, so that its rows are always the same.
QDateTime Moment();

/// Makes an embedded database with an account and `rows` sent messages in the log of LogYear: those
/// of the demonstration, over and over, in the order of their time. Most were delivered, some refused, and
/// the last ones are still reserved.
void MakeSendLog(const QString& path, int rows);

/// The statement of the history page that lists all of them.
Statement WholeYear();

} // namespace tsms::bench

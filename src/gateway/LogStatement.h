#pragma once

#include "gateway/ReplyGrammar.h"
#include "store/engine/Statement.h"

#include <QDateTime>
#include <QString>

namespace tsms {

struct Session;

/// A send as its log row tells it.
struct LogEntry
{
    QString RecvNm;
    QString RecvTelNo;
    QString SenderTelNo;
    QString Content;
    QString SendTime; ///< as LogTime gives it
};

/// The time that the log row of a send bears: `sendTime` itself, or `now` as "YYYY-MM-DD HH:MM" when it is
/// blank.
QString LogTime(const QString& sendTime, const QDateTime& now);

/// Writes the row of a send into the log table of the year of its time.
Statement LogInsert(const Session& session, const LogEntry& entry, const Reply& reply);

/// Removes the row of a withdrawn message from the log table of `logYear`.
Statement LogDelete(const QString& smsKey, const QString& logYear);

} // namespace tsms

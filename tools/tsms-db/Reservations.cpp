#include "tsms-db/Reservations.h"

#include "runtime/Text.h"
#include "store/engine/Connection.h"
#include "store/engine/Statement.h"

#include <QRegularExpression>

#include <algorithm>

namespace tsms {

namespace {

QStringList LogNames(Connection& connection)
{
    const std::unique_ptr<Recordset> tables =
        connection.Query(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE "
                                        "'SMSLog[_][0-9][0-9][0-9][0-9]' ORDER BY name"));
    QStringList names;
    for (; !tables->Eof(); tables->MoveNext())
        names += tables->Field(0);
    return names;
}

Statement NumberedRows(const QString& log)
{
    return Statement(u"SELECT SMSStatus, SMSNo, SendTelNo, ReceiveTelNo, SMSContent, SendTime FROM ")
        .Own(log)
        .Own(u" WHERE SMSNo IS NOT NULL ORDER BY SMSKey");
}

/// The names of the two numbers are the wrong way round in the log, and are meant to be.
GatewayMessage MessageOf(const Recordset& row)
{
    GatewayMessage message;
    message.Number = MessageNumber(row.Field(u"SMSNo"));
    message.SenderTelNo = row.Field(u"ReceiveTelNo");
    message.RecvTelNo = row.Field(u"SendTelNo");
    message.Content = row.Field(u"SMSContent");
    message.SendTime = ReservationOfLog(row.Field(u"SendTime"));
    return message;
}

bool IsAhead(const GatewayMessage& message, const QDateTime& now)
{
    const QDateTime moment = ReservationMoment(message.SendTime);
    return moment.isValid() && moment > now;
}

} // namespace

int MessageNumber(const QString& smsNo)
{
    static const QRegularExpression shape(QStringLiteral("\\A[1-9][0-9]{0,8}\\z"));
    return shape.match(smsNo).hasMatch() ? smsNo.toInt() : 0;
}

QString ReservationOfLog(const QString& sendTime)
{
    return Trim(sendTime).replace(u'-', u':').replace(u' ', u':');
}

HeldMessages ReadReservations(Connection& connection, const QDateTime& now)
{
    HeldMessages held;
    for (const QString& log : LogNames(connection)) {
        const std::unique_ptr<Recordset> rows = connection.Query(NumberedRows(log).Text());
        for (; !rows->Eof(); rows->MoveNext()) {
            const GatewayMessage message = MessageOf(*rows);
            held.LastNumber = std::max(held.LastNumber, message.Number);
            if (message.Number > 0 && rows->Field(u"SMSStatus") != u"2" && IsAhead(message, now))
                held.Messages += message;
        }
    }
    return held;
}

} // namespace tsms

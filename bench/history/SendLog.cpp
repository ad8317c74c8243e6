#include "bench/history/SendLog.h"

#include "history/SendListStatement.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedTables.h"
#include "support/FixedClock.h"
#include "tsms-db/Demo.h"

namespace tsms::bench {

namespace {

/// The demonstration's rows, the latest first, until there are `rows`, put down in the order of their time.
QString Multiplied(int rows)
{
    const QString columns =
        QStringLiteral("SMSStatus,SMSNo,SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,UserData1,"
                       "UserData2,UserData3,ErrCd,ErrMsg,RegDt");
    return QStringLiteral("BEGIN;"
                          "CREATE TEMP TABLE Demo AS SELECT * FROM %1;"
                          "DELETE FROM %1;"
                          "INSERT INTO %1 (%2) WITH RECURSIVE Copy(n) AS"
                          " (SELECT 1 UNION ALL SELECT n + 1 FROM Copy"
                          " WHERE n * (SELECT COUNT(*) FROM Demo) < %3)"
                          " SELECT %2 FROM (SELECT * FROM Demo CROSS JOIN Copy"
                          " ORDER BY n, SMSKey DESC LIMIT %3) ORDER BY SendTime, n, SMSKey;"
                          "UPDATE %1 SET SMSNo = 700000 + SMSKey WHERE SMSNo IS NOT NULL;"
                          "DROP TABLE Demo;"
                          "COMMIT")
        .arg(QStringLiteral("SMSLog_%1").arg(LogYear), columns, QString::number(rows));
}

} // namespace

QDateTime Moment()
{
    return QDateTime(QDate(LogYear, 12, 14), QTime(14, 7, 9));
}

void MakeSendLog(const QString& path, int rows)
{
    const test::FixedClock clock(Moment());
    constexpr YearRange years{LogYear, LogYear};
    CreateEmbeddedDatabase(path, years, clock,
                           [&](Connection& connection) { FillDemo(connection, clock.Now(), years); });
    EmbeddedConnection connection(clock);
    connection.OpenFile(path);
    connection.ExecuteNative(Multiplied(rows));
}

Statement WholeYear()
{
    SendListSearch search;
    search.period = QString::number(LogYear);
    search.first = QDate(LogYear, 1, 1).toString(Qt::ISODate);
    search.dayAfterLast = QDate(LogYear + 1, 1, 1).toString(Qt::ISODate);
    return SendListStatement(search);
}

} // namespace tsms::bench

#include "bench/statistics/Year.h"

#include "runtime/Clock.h"
#include "store/embedded/EmbeddedTables.h"
#include "store/engine/Connection.h"

#include <QDateTime>

namespace tsms::bench {

namespace {

constexpr int ReservedEvery = 7;
constexpr int FailedEvery = 23;
constexpr int DaysAhead = 3;

/// The row of a send at a moment of the year; every so often it is a reservation for some days later.
QString InsertOf(int row, const QDateTime& sent)
{
    const bool reserved = row % ReservedEvery == 0 && sent.date().addDays(DaysAhead).year() == LogYear;
    const QString time = reserved ? sent.addDays(DaysAhead).toString(QStringLiteral("yyyy-MM-dd-HH-mm"))
                                  : sent.toString(QStringLiteral("yyyy-MM-dd HH-mm"));
    const QString status = row % FailedEvery == 0 ? QStringLiteral("2") : QStringLiteral("1");
    const QString phone = QString::number(row % 10000).rightJustified(4, u'0');
    return QStringLiteral("INSERT INTO SMSLog_") + QString::number(LogYear) +
           QStringLiteral(" (SMSStatus,SMSNo,SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,"
                          "UserData1,UserData2,RegDt) VALUES ('") +
           status + QStringLiteral("','") + QString::number(730000 + row) +
           QStringLiteral("','demo','김민준','010-0000-") + phone +
           QStringLiteral(
               "','02-1234-5678','이번 주일 오후 2시와 저녁 7시에 모임이 있습니다. 꼭 와 주세요.','") +
           time + QStringLiteral("','7','본부','") + sent.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) +
           QStringLiteral("')");
}

} // namespace

void MakeYear(const QString& database)
{
    const SystemClock clock;
    CreateEmbeddedDatabase(database, {LogYear, LogYear}, clock, [](Connection& connection) {
        const QDateTime begin(QDate(LogYear, 1, 1), QTime(0, 0));
        const qint64 seconds = begin.secsTo(begin.addYears(1));
        for (int row = 0; row < LogRows; ++row)
            connection.Execute(InsertOf(row, begin.addSecs(seconds * row / LogRows)));
    });
}

} // namespace tsms::bench

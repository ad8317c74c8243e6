#include "bench/statistics/Year.h"

#include "account/MonthFigures.h"
#include "runtime/Clock.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedDialect.h"

#include <QMap>
#include <QStringList>

#include <sqlite3.h>

namespace tsms::bench {

namespace {

QString ColumnText(sqlite3_stmt* statement, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
}

} // namespace

Outcome RunBareQuery(const QString& database)
{
    const SystemClock clock;
    const QByteArray path = database.toUtf8();
    const QByteArray sql = ToEmbeddedDialect(MonthQuery(QString::number(LogYear)).Text());
    QMap<QString, QString> months;

    Outcome outcome;
    const std::int64_t from = Nanoseconds();
    sqlite3* handle = nullptr;
    Demand(sqlite3_open_v2(path.constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) ==
               SQLITE_OK,
           sqlite3_errmsg(handle));
    PrepareEmbeddedHandle(handle, clock); // the statement needs the functions and the collation
    sqlite3_stmt* statement = nullptr;
    Demand(sqlite3_prepare_v2(handle, sql.constData(), -1, &statement, nullptr) == SQLITE_OK,
           sqlite3_errmsg(handle));
    int answer = sqlite3_step(statement);
    for (; answer == SQLITE_ROW; answer = sqlite3_step(statement))
        months[ColumnText(statement, 0)] =
            QStringList{ColumnText(statement, 1), ColumnText(statement, 2), ColumnText(statement, 3)}.join(
                u'/');
    Demand(answer == SQLITE_DONE, sqlite3_errmsg(handle));
    sqlite3_finalize(statement);
    sqlite3_close(handle);
    outcome.cost = {static_cast<double>(Nanoseconds() - from), PeakMemory()};
    outcome.figures = months.values().join(u',');
    return outcome;
}

} // namespace tsms::bench

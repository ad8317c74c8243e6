#include "bench/odbc/Search.h"

#include "bench/history/SendLog.h"
#include "bench/history/TextSum.h"
#include "bench/Measure.h"

#include "session/Session.h"
#include "store/engine/ConnectionText.h"
#include "store/odbc/OdbcDrivers.h"

#include <sql.h>
#include <sqlext.h>

#include <memory>
#include <string>
#include <vector>

namespace tsms::bench {

namespace {

constexpr std::size_t BlockRows = 64;
constexpr std::size_t EndlessUnits = 1000; // for a text without a width: no row of the benchmark has so many

void DemandSuccess(SQLRETURN result)
{
    Demand(SQL_SUCCEEDED(result), "the bare fetch failed");
}

SQLWCHAR* Characters(const QString& text)
{
    return reinterpret_cast<SQLWCHAR*>(const_cast<QChar*>(text.constData()));
}

SQLPOINTER Number(SQLULEN number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr): as the interface has it
}

/// A column as the driver fills it.
struct BoundColumn
{
    std::size_t units = 0; ///< of one value, with the zero behind it
    std::unique_ptr<char16_t[]> texts;
    std::vector<SQLLEN> sizes;
};

/// Texts one behind the other.
struct Arena
{
    std::u16string texts;
    std::vector<std::uint32_t> ends;
};

std::vector<BoundColumn> BindAll(SQLHANDLE statement)
{
    SQLSMALLINT count = 0;
    DemandSuccess(SQLNumResultCols(statement, &count));
    std::vector<BoundColumn> columns(static_cast<std::size_t>(count));
    for (SQLUSMALLINT at = 0; at < count; ++at) {
        BoundColumn& column = columns[at];
        SQLULEN size = 0;
        DemandSuccess(
            SQLDescribeColW(statement, at + 1, nullptr, 0, nullptr, nullptr, &size, nullptr, nullptr));
        const bool isEndless = size == 0 || size > 8000;
        column.units = (isEndless ? EndlessUnits : size) + 2; // a number has a sign besides its digits
        column.texts = std::make_unique_for_overwrite<char16_t[]>(BlockRows * column.units);
        column.sizes.resize(BlockRows);
        DemandSuccess(SQLBindCol(statement, at + 1, SQL_C_WCHAR, column.texts.get(),
                                 static_cast<SQLLEN>(column.units * sizeof(char16_t)), column.sizes.data()));
    }
    return columns;
}

Arena Fetch(SQLHANDLE statement)
{
    SQLULEN fetched = 0;
    DemandSuccess(SQLSetStmtAttrW(statement, SQL_ATTR_ROW_ARRAY_SIZE, Number(BlockRows), 0));
    DemandSuccess(SQLSetStmtAttrW(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0));
    const std::vector<BoundColumn> columns = BindAll(statement);
    Arena arena;
    SQLRETURN result = SQLFetch(statement);
    for (; result != SQL_NO_DATA; result = SQLFetch(statement)) {
        DemandSuccess(result);
        for (std::size_t row = 0; row < fetched; ++row) {
            for (const BoundColumn& column : columns) {
                if (column.sizes[row] > 0)
                    arena.texts.append(column.texts.get() + row * column.units,
                                       static_cast<std::size_t>(column.sizes[row]) / sizeof(char16_t));
                arena.ends.push_back(static_cast<std::uint32_t>(arena.texts.size()));
            }
        }
    }
    return arena;
}

/// Logs in, fetches, logs out.
Arena FetchFrom(const QString& server, const QString& sql)
{
    SQLHANDLE environment = nullptr;
    SQLHANDLE connection = nullptr;
    SQLHANDLE statement = nullptr;
    DemandSuccess(SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment));
    DemandSuccess(SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0));
    DemandSuccess(SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection));
    DemandSuccess(SQLDriverConnectW(connection, nullptr, Characters(server), SQL_NTS, nullptr, 0, nullptr,
                                    SQL_DRIVER_NOPROMPT));
    DemandSuccess(SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement));
    DemandSuccess(SQLExecDirectW(statement, Characters(sql), SQL_NTS));
    Arena arena = Fetch(statement);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    SQLDisconnect(connection);
    SQLFreeHandle(SQL_HANDLE_DBC, connection);
    SQLFreeHandle(SQL_HANDLE_ENV, environment);
    return arena;
}

} // namespace

QString DriverText(const Session& session)
{
    return OdbcConnectionText(InstalledOdbcDrivers().first(),
                              ParseConnectionText(AssembleConnectionText(session)));
}

Search FetchBare(const Session& session)
{
    const QString server = DriverText(session);
    const QString sql = WholeYear().Text();
    const std::int64_t from = Nanoseconds();
    const Arena arena = FetchFrom(server, sql);
    const std::int64_t to = Nanoseconds();

    TextSum sum;
    std::size_t begin = 0;
    for (const std::uint32_t end : arena.ends) {
        sum.Add(QStringView(arena.texts.data() + begin, static_cast<qsizetype>(end - begin)).toUtf8());
        begin = end;
    }
    return {static_cast<double>(to - from), sum.Bytes(), sum.Digest()};
}

} // namespace tsms::bench

#include "server/OdbcClient.h"

#include "support/server/TestServer.h"

#include <sql.h>
#include <sqlext.h>

#include <array>

namespace tsms::test {

namespace {

constexpr int TextRoom = 4000;
using TextBuffer = std::array<SQLWCHAR, TextRoom>;

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

SQLWCHAR* Wide(const QString& text)
{
    return reinterpret_cast<SQLWCHAR*>(const_cast<ushort*>(text.utf16()));
}

QString FromWide(const TextBuffer& buffer)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(buffer.data()));
}

SQLPOINTER Number(SQLULEN number)
{
    return reinterpret_cast<SQLPOINTER>(number);
}

} // namespace

OdbcClient::OdbcClient()
{
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
}

OdbcClient::~OdbcClient()
{
    Disconnect();
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

bool OdbcClient::Connect(const TestServer& server, const QString& differences, int timeoutSeconds)
{
    const ServerAccount& account = server.Account();
    const QString text = QStringLiteral("DRIVER=%1;SERVER=127.0.0.1;PORT=%2;UID=%3;PWD={%4};DATABASE=%5;"
                                        "TDS_Version=7.4;ClientCharset=UTF-8;%6")
                             .arg(QStringLiteral(TSMS_TDS_DRIVER), QString::number(server.Port()),
                                  account.User, account.Password, account.Database, differences);
    SQLSetConnectAttr(connection_, SQL_ATTR_LOGIN_TIMEOUT, Number(static_cast<SQLULEN>(timeoutSeconds)), 0);
    return Note(SQLDriverConnectW(connection_, nullptr, Wide(text), SQL_NTS, nullptr, 0, nullptr,
                                  SQL_DRIVER_NOPROMPT),
                SQL_HANDLE_DBC, connection_);
}

void OdbcClient::Disconnect()
{
    DropStatement();
    SQLDisconnect(connection_);
}

void OdbcClient::DropStatement()
{
    if (statement_)
        SQLFreeHandle(SQL_HANDLE_STMT, statement_);
    statement_ = nullptr;
}

bool OdbcClient::Execute(const QString& sql, int timeoutSeconds)
{
    DropStatement();
    if (!Note(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement_), SQL_HANDLE_DBC, connection_))
        return false;
    SQLSetStmtAttr(statement_, SQL_ATTR_QUERY_TIMEOUT, Number(static_cast<SQLULEN>(timeoutSeconds)), 0);
    const SQLRETURN result = SQLExecDirectW(statement_, Wide(sql), SQL_NTS);
    // The driver has no data for a statement that neither gives rows nor counts any: that is no failure.
    return Note(result, SQL_HANDLE_STMT, statement_) || result == SQL_NO_DATA;
}

QList<OdbcClient::Column> OdbcClient::Columns() const
{
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement_, &count);
    QList<Column> columns;
    for (SQLUSMALLINT at = 1; at <= count; ++at) {
        TextBuffer name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLULEN size = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        SQLDescribeColW(statement_, at, name.data(), TextRoom, &length, &type, &size, &digits, &nullable);
        SQLLEN identity = 0;
        SQLColAttributeW(statement_, at, SQL_DESC_AUTO_UNIQUE_VALUE, nullptr, 0, nullptr, &identity);
        columns += {FromWide(name),      type, static_cast<int>(size), digits, nullable == SQL_NULLABLE,
                    identity == SQL_TRUE};
    }
    return columns;
}

QList<QStringList> OdbcClient::Rows()
{
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement_, &count);
    QList<QStringList> rows;
    while (count > 0 && Note(SQLFetch(statement_), SQL_HANDLE_STMT, statement_)) {
        QStringList row;
        for (SQLUSMALLINT at = 1; at <= count; ++at) {
            TextBuffer text{};
            SQLLEN size = 0;
            SQLGetData(statement_, at, SQL_C_WCHAR, text.data(), sizeof text, &size);
            row += size == SQL_NULL_DATA ? QStringLiteral("(null)") : FromWide(text);
        }
        rows += row;
    }
    return rows;
}

int OdbcClient::RowCount() const
{
    SQLLEN count = 0;
    SQLRowCount(statement_, &count);
    return static_cast<int>(count);
}

bool OdbcClient::NextResult()
{
    return Note(SQLMoreResults(statement_), SQL_HANDLE_STMT, statement_);
}

QString OdbcClient::Database() const
{
    TextBuffer name{};
    SQLINTEGER size = 0;
    SQLGetConnectAttrW(connection_, SQL_ATTR_CURRENT_CATALOG, name.data(), sizeof name, &size);
    return FromWide(name);
}

OdbcClient::Diagnostic OdbcClient::First() const
{
    return diagnostics_.isEmpty() ? Diagnostic{{}, 0, {}} : diagnostics_.first();
}

void OdbcClient::TakeDiagnostics(int handleType, void* handle)
{
    diagnostics_.clear();
    for (SQLSMALLINT record = 1;; ++record) {
        TextBuffer state{};
        TextBuffer words{};
        SQLINTEGER number = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(static_cast<SQLSMALLINT>(handleType), handle, record, state.data(),
                                          &number, words.data(), TextRoom, &length)))
            return;
        diagnostics_ += {FromWide(state), number, FromWide(words)};
    }
}

/// A statement without a result ends in SQL_NO_DATA, which is no failure; neither is the end of the rows.
bool OdbcClient::Note(int result, int handleType, void* handle)
{
    TakeDiagnostics(handleType, handle);
    return SQL_SUCCEEDED(static_cast<SQLRETURN>(result));
}

} // namespace tsms::test

#include "store/odbc/OdbcConnection.h"

#include "runtime/RuntimeError.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"
#include "store/odbc/LinkWatch.h"
#include "store/odbc/OdbcRows.h"

#include <array>
#include <utility>

namespace tsms {

namespace {

/// What is left of a statement's time for the driver to cancel it and to hear that this was done.
constexpr int CancelSeconds = 1;

QList<NetworkLink> LinksSince(const QList<NetworkLink>& before)
{
    QList<NetworkLink> links = NetworkLinks();
    links.removeIf([&before](const NetworkLink& link) { return before.contains(link); });
    return links;
}

} // namespace

/// One statement that the server runs, standing on its first result.
class OdbcConnection::Running
{
public:
    Running(OdbcConnection& connection, const QString& sql)
    {
        if (!connection.IsOpen())
            throw RuntimeError(ObjectNotSet);
        statement_ = OdbcHandle(SQL_HANDLE_STMT, connection.handle_);
        Set(SQL_ATTR_QUERY_TIMEOUT, static_cast<SQLULEN>(connection.DriverSeconds()));
        Set(SQL_ATTR_NOSCAN, SQL_NOSCAN_ON); // a brace in a text is a brace
        statement_.Pass(OdbcLibrary::Get().ExecDirect(statement_.Get(), OdbcCharacters(sql),
                                                      static_cast<SQLINTEGER>(sql.size())));
    }

    /// The rows of the first result that has columns, or null where `take` has none.
    std::unique_ptr<Recordset> FirstRows(decltype(&TakeOdbcRows) take,
                                         const std::function<void()>& whileReading)
    {
        std::vector<OdbcColumn> columns = Columns();
        while (columns.empty() && NextResult())
            columns = Columns();
        if (columns.empty())
            return std::make_unique<Recordset>();
        std::unique_ptr<Recordset> records = take(statement_, columns, whileReading);
        if (records)
            DropTheRest();
        return records;
    }

    /// To the end of the statement: an error may come behind any result.
    void DropTheRest()
    {
        while (NextResult()) {
        }
    }

private:
    /// Goes on to the next result, and drops what is left of this one. False at the end of the statement.
    bool NextResult() { return statement_.Pass(OdbcLibrary::Get().MoreResults(statement_.Get())); }

    /// The columns of the result; none for a statement that only does something.
    std::vector<OdbcColumn> Columns() const
    {
        SQLSMALLINT count = 0;
        statement_.Pass(OdbcLibrary::Get().NumResultCols(statement_.Get(), &count));
        std::vector<OdbcColumn> columns;
        for (SQLSMALLINT column = 1; column <= count; ++column)
            columns.push_back(Column(static_cast<SQLUSMALLINT>(column)));
        return columns;
    }

    void Set(SQLINTEGER attribute, SQLULEN value)
    {
        statement_.Pass(
            OdbcLibrary::Get().SetStatementAttribute(statement_.Get(), attribute, OdbcNumber(value), 0));
    }

    OdbcColumn Column(SQLUSMALLINT column) const
    {
        std::array<SQLWCHAR, 256> name{};
        SQLSMALLINT nameSize = 0;
        SQLSMALLINT type = 0;
        SQLULEN size = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        statement_.Pass(OdbcLibrary::Get().DescribeCol(statement_.Get(), column, name.data(),
                                                       static_cast<SQLSMALLINT>(name.size()), &nameSize,
                                                       &type, &size, &digits, &nullable));
        return DescribedColumn(OdbcText(name, nameSize), type, size);
    }

    OdbcHandle statement_;
};

OdbcConnection::OdbcConnection(QList<OdbcDriver> drivers) : drivers_(std::move(drivers)) {}

OdbcConnection::~OdbcConnection()
{
    OdbcConnection::Close();
}

void OdbcConnection::Open()
{
    Close();
    for (const OdbcDriver& driver : std::as_const(drivers_))
        if (OpenBy(driver))
            return;
    throw RuntimeError(NoDriver, WantedOdbcDrivers());
}

/// False when the driver is not there, although it is in the list.
bool OdbcConnection::OpenBy(const OdbcDriver& driver)
{
    const OdbcLibrary& odbc = OdbcLibrary::Get();
    const QString text = OdbcConnectionText(driver, ParseConnectionText(ConnectionString));
    OdbcHandle handle(SQL_HANDLE_DBC, OdbcEnvironment());
    const QList<NetworkLink> before = NetworkLinks();
    odbc.SetConnectionAttribute(handle.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                                OdbcNumber(static_cast<SQLULEN>(ConnectionTimeout)), 0);
    const SQLRETURN result = odbc.DriverConnect(handle.Get(), nullptr, OdbcCharacters(text), SQL_NTS, nullptr,
                                                0, nullptr, SQL_DRIVER_NOPROMPT);
    if (SQL_SUCCEEDED(result)) {
        handle_ = std::move(handle);
        links_ = LinksSince(before);
        return true;
    }
    const QList<OdbcDiagnostic> records = handle.Diagnostics();
    if (!IsMissingDriver(records))
        throw OdbcError(records, OdbcPhase::Opening);
    return false;
}

void OdbcConnection::Close()
{
    if (!handle_)
        return;
    OdbcLibrary::Get().Disconnect(handle_.Get());
    handle_ = {};
    links_.clear();
}

int OdbcConnection::DriverSeconds() const
{
    return CommandTimeout > CancelSeconds ? CommandTimeout - CancelSeconds : CommandTimeout;
}

/// FreeTDS counts its time anew at everything that it waits for, and once more for the cancellation. A server
/// that stands still would hold the program for twice as long, and one that trickles for ever.
template <class Act> auto OdbcConnection::InTime(const Act& act)
{
    const LinkWatch watch(links_, CommandTimeout);
    try {
        return act();
    } catch (const RuntimeError&) {
        if (watch.HasCut())
            throw RuntimeError(CommandTimedOut, QStringLiteral("Timeout expired"));
        throw;
    }
}

std::unique_ptr<Recordset> OdbcConnection::Query(const Statement& statement)
{
    return InTime([this, sql = statement.Text()] {
        std::unique_ptr<Recordset> records = Running(*this, sql).FirstRows(TakeOdbcRows, WhileReading);
        return records ? std::move(records) : Running(*this, sql).FirstRows(TakeLongOdbcRows, WhileReading);
    });
}

void OdbcConnection::Execute(const Statement& statement)
{
    InTime([this, sql = statement.Text()] { Running(*this, sql).DropTheRest(); });
}

} // namespace tsms

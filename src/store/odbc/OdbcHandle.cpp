#include "store/odbc/OdbcHandle.h"

#include <array>
#include <utility>

namespace tsms {

namespace {

/// A record; the longest texts of the server have 2,048 characters and the driver's names before them.
SQLRETURN ReadRecord(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, OdbcDiagnostic& into)
{
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 4096> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT size = 0;
    const SQLRETURN result =
        OdbcLibrary::Get().GetDiagRec(type, handle, number, state.data(), &native, text.data(),
                                      static_cast<SQLSMALLINT>(text.size()), &size);
    into.state = OdbcText(state, 5);
    into.native = native;
    into.text = OdbcText(text, size);
    return result;
}

OdbcHandle MakeEnvironment()
{
    OdbcHandle environment(SQL_HANDLE_ENV, {});
    OdbcLibrary::Get().SetEnvironmentAttribute(environment.Get(), SQL_ATTR_ODBC_VERSION,
                                               OdbcNumber(SQL_OV_ODBC3), 0);
    return environment;
}

} // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT type, const OdbcHandle& parent) : type_(type), parent_(parent.Get())
{
    if (SQL_SUCCEEDED(OdbcLibrary::Get().AllocHandle(type, parent_, &handle_)))
        return;
    handle_ = nullptr;
    throw OdbcError(parent.Diagnostics(), Phase());
}

OdbcHandle::OdbcHandle(OdbcHandle&& other) noexcept
    : type_(other.type_), parent_(other.parent_), handle_(std::exchange(other.handle_, nullptr))
{
}

OdbcHandle& OdbcHandle::operator=(OdbcHandle&& other) noexcept
{
    std::swap(type_, other.type_);
    std::swap(parent_, other.parent_);
    std::swap(handle_, other.handle_);
    return *this;
}

OdbcHandle::~OdbcHandle()
{
    if (*this)
        OdbcLibrary::Get().FreeHandle(type_, handle_);
}

QList<OdbcDiagnostic> OdbcHandle::Diagnostics() const
{
    QList<OdbcDiagnostic> records;
    OdbcDiagnostic record;
    while (*this &&
           SQL_SUCCEEDED(ReadRecord(type_, handle_, static_cast<SQLSMALLINT>(records.size() + 1), record)))
        records += record;
    return records;
}

bool OdbcHandle::Pass(SQLRETURN result) const
{
    if (result == SQL_NO_DATA)
        return false;
    if (!SQL_SUCCEEDED(result) || (result == SQL_SUCCESS_WITH_INFO && IsFailure(Diagnostics())))
        Fail();
    return true;
}

void OdbcHandle::Fail() const
{
    throw OdbcError(Diagnostics(), Phase());
}

OdbcPhase OdbcHandle::Phase() const
{
    if (type_ != SQL_HANDLE_STMT)
        return OdbcPhase::Opening;
    SQLUINTEGER dead = SQL_CD_FALSE;
    OdbcLibrary::Get().GetConnectionAttribute(parent_, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
    return dead == SQL_CD_TRUE ? OdbcPhase::Cut : OdbcPhase::Running;
}

const OdbcHandle& OdbcEnvironment()
{
    static const OdbcHandle environment = MakeEnvironment();
    return environment;
}

} // namespace tsms

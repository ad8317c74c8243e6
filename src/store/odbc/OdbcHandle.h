#pragma once

#include "store/odbc/OdbcErrors.h"
#include "store/odbc/OdbcLibrary.h"

#include <QString>

#include <algorithm>
#include <array>

namespace tsms {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t)); // the texts of the driver manager are UTF-16

/// A handle of the driver manager, freed with this object. Raises OdbcError.
class OdbcHandle
{
public:
    OdbcHandle() = default;
    OdbcHandle(SQLSMALLINT type, const OdbcHandle& parent);
    OdbcHandle(OdbcHandle&& other) noexcept;
    OdbcHandle& operator=(OdbcHandle&& other) noexcept;
    ~OdbcHandle();

    explicit operator bool() const { return handle_ != nullptr; }
    SQLHANDLE Get() const { return handle_; }

    /// All records of the last call on this handle.
    QList<OdbcDiagnostic> Diagnostics() const;

    /// Takes what a call on this handle has answered: false for "no data", which is no failure, and raises a
    /// failure, also one that is told beside a success.
    bool Pass(SQLRETURN result) const;

    /// Raises what the last call on this handle failed with.
    [[noreturn]] void Fail() const;

private:
    OdbcPhase Phase() const;

    SQLSMALLINT type_ = 0;
    SQLHANDLE parent_ = nullptr;
    SQLHANDLE handle_ = nullptr;
};

/// The one environment that all connections of the program stand in.
const OdbcHandle& OdbcEnvironment();

/// An attribute that is a number, as the driver manager wants it handed over.
inline SQLPOINTER OdbcNumber(SQLULEN number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr): as the interface has it
}

/// The driver manager's characters, and ours of them.
inline SQLWCHAR* OdbcCharacters(const QString& text)
{
    return reinterpret_cast<SQLWCHAR*>(const_cast<QChar*>(text.constData())); // only read, against its type
}
/// What stands in a buffer into which a driver has put a text of `size` units and a closing 0. Of one that
/// had no room the driver tells the whole size, and has put in its beginning.
template <std::size_t Room> QString OdbcText(const std::array<SQLWCHAR, Room>& buffer, qsizetype size)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(buffer.data()),
                              std::clamp<qsizetype>(size, 0, Room - 1));
}

} // namespace tsms

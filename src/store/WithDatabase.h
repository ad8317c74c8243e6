#pragma once

#include "runtime/RuntimeError.h"
#include "store/DBConnect.h"

#include <type_traits>

namespace tsms {

/// The frame of an operation on the database: connects, with the second try, runs `body`, closes, and gives
/// what `body` gives. An error that leaves `body` passes by, and nothing is closed: ReportingErrors is for
/// that.
template <class Body> auto WithDatabase(DBConnect& db, Body&& body) -> decltype(body())
{
    db.ConnectWithRetry();
    if constexpr (std::is_void_v<decltype(body())>) {
        body();
        db.CloseDB();
    } else {
        const auto result = body();
        db.CloseDB();
        return result;
    }
}

/// As WithDatabase, without the second try: where it does not connect, nothing is done.
template <class Body> void IfConnected(DBConnect& db, Body&& body)
{
    if (!db.ConnectDB())
        return;
    body();
    db.CloseDB();
}

/// An operation with an error handler: what `body` raises is told by ReportDBError, and it has then given
/// nothing, or false.
template <class Body> auto ReportingErrors(DBConnect& db, Body&& body) -> decltype(body())
{
    return WithHandler(body, [&db] {
        db.ReportDBError();
        return decltype(body())();
    });
}

} // namespace tsms

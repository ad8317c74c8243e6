#pragma once

#include "services/Services.h"
#include "session/ScreenBusy.h"

#include <type_traits>

namespace tsms {

inline void SetScreenBusy(Services& services, bool busy)
{
    SetScreenBusy(services.session, services.desktop, busy);
}

/// Runs `body` under a busy screen and gives what it gives. An error that leaves `body` passes by, and Busy
/// stays for the handler to clear.
template <class Body> auto WhileScreenBusy(Services& services, Body&& body) -> decltype(body())
{
    SetScreenBusy(services, true);
    if constexpr (std::is_void_v<decltype(body())>) {
        body();
        SetScreenBusy(services, false);
    } else {
        const auto result = body();
        SetScreenBusy(services, false);
        return result;
    }
}

} // namespace tsms

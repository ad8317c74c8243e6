#pragma once

#include "runtime/Desktop.h"
#include "services/Services.h"
#include "session/Session.h"

namespace tsms {

/// Busy, with the hourglass on the whole screen while it is set.
inline void SetScreenBusy(Services& services, Boolean flag)
{
    services.session.Busy = flag;
    services.desktop.SetMousePointer(flag == Boolean::True ? MousePointer::Hourglass : MousePointer::Default);
}

} // namespace tsms

#pragma once

#include "runtime/Desktop.h"
#include "session/Session.h"

namespace tsms {

/// Busy, with the hourglass on the whole screen while it is set.
inline void SetScreenBusy(Session& session, Desktop& desktop, bool busy)
{
    session.Busy = busy;
    desktop.SetMousePointer(busy ? MousePointer::Hourglass : MousePointer::Default);
}

} // namespace tsms

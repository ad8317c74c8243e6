#pragma once

#include "session/Session.h"

#include <exception>

namespace tsms {

class Desktop;

/// The box for an error that no handler took: its number and its words. The program goes on behind it. One
/// that is no RuntimeError is shown as an AutomationError that names it.
void ReportUnhandled(Desktop& desktop, const std::exception& error);

/// Ends Busy, with all pointers.
void EndBusy(Session& session, Desktop& desktop);

/// Runs an event handler. An error that it lets out ends in ReportUnhandled, so that none crosses Qt, and
/// leaves no Busy behind that was set since: it would leave the buttons and keys of all forms dead. Busy that
/// was set before belongs to an operation that still runs, and stays.
template <class Handler> void RunGuarded(Session& session, Desktop& desktop, Handler&& handler)
{
    const bool wasBusy = session.IsBusy();
    try {
        handler();
    } catch (const std::exception& error) {
        if (!wasBusy && session.IsBusy())
            EndBusy(session, desktop);
        ReportUnhandled(desktop, error);
    }
}

} // namespace tsms

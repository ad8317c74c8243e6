#pragma once

#include "runtime/RuntimeError.h"

#include <concepts>
#include <functional>
#include <utility>

class QWidget;

namespace tsms {

class Desktop;

/// The box for an error that no handler took: its number and its words. The program goes on behind it.
void ReportUnhandled(Desktop& desktop, const RuntimeError& error);

/// A callable for connect(), with the parameters of `body`, that ends an unhandled RuntimeError in ReportUnhandled, so that none crosses Qt.
template <class F> auto Guarded(Desktop& desktop, F body)
{
    return [&desktop, body = std::move(body)](auto&&... values) mutable
               requires std::invocable<F&, decltype(values)...>
    {
        try {
            body(std::forward<decltype(values)>(values)...);
        } catch (const RuntimeError& error) {
            ReportUnhandled(desktop, error);
        }
    };
}

/// Runs an event handler of a control. On a Form, an error that it lets out ends in that form's box; elsewhere
/// it goes to the caller.
void RaiseEvent(const QWidget& control, const std::function<void()>& handler);

} // namespace tsms

#pragma once

#include <concepts>
#include <exception>
#include <functional>
#include <utility>

class QWidget;

namespace tsms {

class Desktop;

/// The box for an error that no handler took: its number and its words. The program goes on behind it. One
/// that is no RuntimeError is shown as an AutomationError that names it.
void ReportUnhandled(Desktop& desktop, const std::exception& error);

/// A callable for connect(), with the parameters of the one that it holds. An unhandled exception ends in
/// ReportUnhandled, so that none crosses Qt.
template <class F> class GuardedCall
{
public:
    GuardedCall(Desktop& desktop, F body) : desktop_(&desktop), body_(std::move(body)) {}

    template <class... Values>
    requires std::invocable<F&, Values...>
    void operator()(Values&&... values)
    {
        try {
            body_(std::forward<Values>(values)...);
        } catch (const std::exception& error) {
            ReportUnhandled(*desktop_, error);
        }
    }

private:
    Desktop* desktop_;
    F body_;
};

template <class F> GuardedCall<F> Guarded(Desktop& desktop, F body)
{
    return {desktop, std::move(body)};
}

/// Runs an event handler of a control. On a Form, an error that it lets out ends in that form's box;
/// elsewhere it goes to the caller.
void RaiseEvent(const QWidget& control, const std::function<void()>& handler);

} // namespace tsms

#pragma once

#include <concepts>
#include <exception>
#include <utility>

namespace tsms {

class Desktop;

/// The box for an error that no handler took: its number and its words. The program goes on behind it. One
/// that is no RuntimeError is shown as an AutomationError that names it.
void ReportUnhandled(Desktop& desktop, const std::exception& error);

/// Looks whether Busy is set when an event handler begins. One that set it and ended in an error would leave
/// the buttons and keys of all forms dead.
class BusyWatch
{
public:
    BusyWatch();

    /// For the end in an error: clears what was set since, with the pointers. Busy that was set before
    /// belongs to an operation that still runs, and stays.
    void Restore(Desktop& desktop) const;

private:
    bool wasBusy_;
};

/// A callable for connect(), with the parameters of the one that it holds. An unhandled exception ends in
/// ReportUnhandled, so that none crosses Qt, and leaves no Busy behind.
template <class F> class GuardedCall
{
public:
    GuardedCall(Desktop& desktop, F body) : desktop_(&desktop), body_(std::move(body)) {}

    template <class... Values>
        requires std::invocable<F&, Values...>
    void operator()(Values&&... values)
    {
        const BusyWatch watch;
        try {
            body_(std::forward<Values>(values)...);
        } catch (const std::exception& error) {
            watch.Restore(*desktop_);
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

} // namespace tsms

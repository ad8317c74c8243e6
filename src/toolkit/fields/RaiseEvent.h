#pragma once

#include <functional>

class QWidget;

namespace tsms {

/// A window that catches what the event handlers of its controls let out. Forms are.
class HandlerFrame
{
public:
    virtual void RunHandler(const std::function<void()>& handler) = 0;

protected:
    ~HandlerFrame() = default;
};

/// Runs an event handler of a control, in the frame of its window. Where that has none, an error goes to the
/// caller.
void RaiseEvent(const QWidget& control, const std::function<void()>& handler);

} // namespace tsms

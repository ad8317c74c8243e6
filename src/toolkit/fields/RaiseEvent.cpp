#include "toolkit/fields/RaiseEvent.h"

#include <QWidget>

namespace tsms {

void RaiseEvent(const QWidget& control, const std::function<void()>& handler)
{
    if (!handler)
        return;
    const std::function<void()> copy = handler; // a handler may put another in its own place
    if (auto* frame = dynamic_cast<HandlerFrame*>(control.window()))
        frame->RunHandler(copy);
    else
        copy();
}

} // namespace tsms

#pragma once

#include "session/Session.h"

#include <functional>
#include <utility>

namespace tsms {

/// An event handler that does nothing while `holder`, the session or a form, is busy.
template <class Holder> std::function<void()> WhenIdle(const Holder& holder, std::function<void()> handler)
{
    return [&holder, handler = std::move(handler)] {
        if (!holder.IsBusy())
            handler();
    };
}

} // namespace tsms

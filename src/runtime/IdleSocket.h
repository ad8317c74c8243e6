#pragma once

#include <QtGlobal>

namespace tsms {

/// What goes on at a connected socket from which nothing is expected.
enum class IdleSocket {
    Quiet,
    Speaks, ///< bytes lie there that nobody has asked for
    Closed, ///< by the other side, or broken
};

/// Looks at a socket that does not block, and takes nothing from it. Waits at most so long for something to
/// happen there; 0 does not wait.
IdleSocket WatchIdleSocket(qintptr socket, int milliseconds);

} // namespace tsms

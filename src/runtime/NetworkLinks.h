#pragma once

#include <QList>

namespace tsms {

/// A network connection of this process: its file, and the system's own number of the socket, which tells it
/// from whatever takes the same place among the files later.
struct NetworkLink
{
    int file;
    quint64 socket;

    bool operator==(const NetworkLink&) const = default;
};

/// The connections that stand at this moment. None where the system has no POSIX sockets.
QList<NetworkLink> NetworkLinks();

/// Ends a connection in both directions, from any thread: whoever waits at it finds it at its end. One that
/// is no longer there is passed over.
void CutLink(const NetworkLink& link);

} // namespace tsms

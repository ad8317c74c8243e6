#include "runtime/IdleSocket.h"

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#endif

namespace tsms {

namespace {

// AwaitInput: false when the time has passed and nothing has happened.
#ifdef Q_OS_WIN
bool AwaitInput(qintptr socket, int milliseconds)
{
    WSAPOLLFD watched = {static_cast<SOCKET>(socket), POLLIN, 0};
    return ::WSAPoll(&watched, 1, milliseconds) != 0;
}

bool WouldBlock()
{
    return ::WSAGetLastError() == WSAEWOULDBLOCK;
}
#else
bool AwaitInput(qintptr socket, int milliseconds)
{
    pollfd watched = {static_cast<int>(socket), POLLIN, 0};
    int happened = ::poll(&watched, 1, milliseconds);
    while (happened < 0 && errno == EINTR)
        happened = ::poll(&watched, 1, milliseconds);
    return happened != 0;
}

bool WouldBlock()
{
    return errno == EAGAIN || errno == EWOULDBLOCK;
}
#endif

} // namespace

IdleSocket WatchIdleSocket(qintptr socket, int milliseconds)
{
    if (!AwaitInput(socket, milliseconds))
        return IdleSocket::Quiet;
    char first = 0;
    const auto received = ::recv(socket, &first, 1, MSG_PEEK);
    if (received < 0 && WouldBlock())
        return IdleSocket::Quiet;
    return received > 0 ? IdleSocket::Speaks : IdleSocket::Closed;
}

} // namespace tsms

#include "runtime/NetworkLinks.h"

#ifdef Q_OS_UNIX
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace tsms {

#ifdef Q_OS_UNIX

namespace {

/// The number of the connected network socket that a file is.
std::optional<quint64> ConnectedSocket(int file)
{
    struct stat status = {};
    sockaddr_storage peer{};
    socklen_t size = sizeof peer;
    if (fstat(file, &status) != 0 || !S_ISSOCK(status.st_mode) ||
        getpeername(file, reinterpret_cast<sockaddr*>(&peer), &size) != 0 ||
        (peer.ss_family != AF_INET && peer.ss_family != AF_INET6))
        return std::nullopt;
    return status.st_ino;
}

} // namespace

QList<NetworkLink> NetworkLinks()
{
    QList<NetworkLink> links;
    DIR* const files = opendir("/dev/fd");
    while (const dirent* const entry = files ? readdir(files) : nullptr) {
        const int file = std::atoi(entry->d_name); // of "." and ".." that is the standard input
        if (const std::optional<quint64> socket = ConnectedSocket(file))
            links += NetworkLink{file, *socket};
    }
    if (files)
        closedir(files);
    return links;
}

void CutLink(const NetworkLink& link)
{
    // A second name of it stays what it is, whatever takes the first one's place in the meantime.
    const int file = fcntl(link.file, F_DUPFD_CLOEXEC, 0);
    if (ConnectedSocket(file) == link.socket)
        shutdown(file, SHUT_RDWR);
    close(file);
}

#else

QList<NetworkLink> NetworkLinks()
{
    return {};
}

void CutLink(const NetworkLink&) {}

#endif

} // namespace tsms

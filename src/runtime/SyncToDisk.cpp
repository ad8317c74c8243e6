#include "runtime/SyncToDisk.h"

#include "runtime/DiskFull.h"

#include <QFileDevice>

#include <cerrno>

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <io.h>
#else
#include <unistd.h>
#endif

namespace tsms {

namespace {

#ifdef Q_OS_WIN
// The C library's own routine would make EBADF of every error.
bool Sync(int file)
{
    if (::FlushFileBuffers(reinterpret_cast<HANDLE>(::_get_osfhandle(file))))
        return true;
    const DWORD error = ::GetLastError();
    if (error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED)
        return true;
    errno = IsForWantOfRoom(error) ? ENOSPC : EIO;
    return false;
}
#else
bool Sync(int file)
{
    return ::fsync(file) == 0 || errno == EINVAL || errno == ENOSYS;
}
#endif

} // namespace

bool SyncToDisk(QFileDevice& file)
{
    return file.flush() && Sync(file.handle());
}

} // namespace tsms

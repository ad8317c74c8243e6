#include "runtime/DiskFull.h"

#include <QFileDevice>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <cerrno>
#endif

namespace tsms {

#ifdef Q_OS_WIN

bool IsForWantOfRoom(const QFileDevice& file)
{
    constexpr DWORD diskQuotaExceeded = 1295; // as in winerror.h, which mingw-w64 has without it
    // There errno tells nothing, and the number of the error is gone: the file keeps its words alone.
    const QString words = file.errorString();
    return words == qt_error_string(ERROR_DISK_FULL) || words == qt_error_string(ERROR_HANDLE_DISK_FULL) ||
           words == qt_error_string(diskQuotaExceeded);
}

#else

bool IsForWantOfRoom(const QFileDevice&)
{
    return errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
}

#endif

} // namespace tsms

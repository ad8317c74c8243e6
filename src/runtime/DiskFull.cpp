#include "runtime/DiskFull.h"

#include <QFileDevice>

#include <cerrno>

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <algorithm>
#include <iterator>
#endif

namespace tsms {

#ifdef Q_OS_WIN

namespace {

constexpr DWORD DiskQuotaExceeded = 1295; // as in winerror.h, which mingw-w64 has without it
constexpr DWORD ErrorsOfRoom[] = {ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL, DiskQuotaExceeded};

} // namespace

bool IsForWantOfRoom(unsigned long error)
{
    return std::find(std::begin(ErrorsOfRoom), std::end(ErrorsOfRoom), error) != std::end(ErrorsOfRoom);
}

bool IsForWantOfRoom(const QFileDevice& file)
{
    // There the toolkit's operations leave errno alone, and the number of their error is gone: the file keeps
    // its words.
    return errno == ENOSPC || std::any_of(std::begin(ErrorsOfRoom), std::end(ErrorsOfRoom), [&](DWORD error) {
               return file.errorString() == qt_error_string(static_cast<int>(error));
           });
}

#else

bool IsForWantOfRoom(const QFileDevice&)
{
    return errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
}

#endif

} // namespace tsms

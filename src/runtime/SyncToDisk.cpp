#include "runtime/SyncToDisk.h"

#include <QFileDevice>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace tsms {

bool SyncToDisk(QFileDevice& file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOSYS;
#else
    return true; // QSaveFile asks the system itself before it renames
#endif
}

} // namespace tsms

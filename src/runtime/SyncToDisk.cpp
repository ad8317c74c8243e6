#include "runtime/SyncToDisk.h"

#include <QFileDevice>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <cerrno>
#include <unistd.h>
#endif

namespace tsms {

bool SyncToDisk(QFileDevice& file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_WIN
    return ::_commit(file.handle()) == 0;
#else
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOSYS;
#endif
}

} // namespace tsms

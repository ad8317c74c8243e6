#pragma once

#include <QtGlobal>

class QFileDevice;

namespace tsms {

/// Whether the last operation on a file, which has failed, failed for want of room: on the disk, or of what
/// this user may put there or into one file. To be asked at once: errno tells, which the caller clears before
/// the operation.
bool IsForWantOfRoom(const QFileDevice& file);

#ifdef Q_OS_WIN
/// Whether an error of Windows is of that kind.
bool IsForWantOfRoom(unsigned long error);
#endif

} // namespace tsms

#pragma once

class QFileDevice;

namespace tsms {

/// Whether the last operation on a file, which has failed, failed for want of room: on the disk, or of what
/// this user may put there or into one file. To be asked at once: elsewhere than on Windows errno tells,
/// which the caller clears before the operation.
bool IsForWantOfRoom(const QFileDevice& file);

} // namespace tsms

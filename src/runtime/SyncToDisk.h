#pragma once

class QFileDevice;

namespace tsms {

/// Waits until all that was written to an open file is on the disk. False when the system says that it could
/// not be put there; errno tells why. A file system that cannot say counts as done.
bool SyncToDisk(QFileDevice& file);

} // namespace tsms

#pragma once

struct sqlite3;

namespace tsms {

/// Gives the log that an open database is written ahead in the length that so many further changes of a row
/// will take. Does nothing where there are none, where there is no such log, where it may not be written,
/// where a transaction is open here or another connection is writing, or where the disk has no room; what is
/// in the log stays as it is.
void MakeWriteAheadRoom(sqlite3* handle, int changes);

} // namespace tsms

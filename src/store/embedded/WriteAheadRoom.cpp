#include "store/embedded/WriteAheadRoom.h"

#include "runtime/SyncToDisk.h"

#include <QFile>

#include <sqlite3.h>

#include <algorithm>

namespace tsms {

namespace {

constexpr qint64 FrameBytes = 24 + 4096; ///< a page and its head
constexpr qint64 ChangeFrames = 4;       ///< the row, its indexes, the last key
constexpr qint64 MostFrames = 1000 + 16; ///< about there the engine begins at the front again

bool Run(sqlite3* handle, const char* sql)
{
    return sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

/// In zeros, which the engine takes for the end of the log.
void Lengthen(QFile& log, int changes)
{
    const qint64 before = log.size();
    const qint64 wanted = std::min(before + changes * ChangeFrames * FrameBytes, MostFrames * FrameBytes);
    if (wanted <= before || !log.seek(before))
        return;
    const QByteArray zeros(wanted - before, '\0');
    if (log.write(zeros) != zeros.size() || !SyncToDisk(log))
        log.resize(before);
}

} // namespace

void MakeWriteAheadRoom(sqlite3* handle, int changes)
{
    if (!Run(handle, "BEGIN IMMEDIATE")) // nobody else may append meanwhile
        return;
    QFile log(QString::fromUtf8(sqlite3_filename_wal(sqlite3_db_filename(handle, "main"))));
    if (log.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        Lengthen(log, changes);
    Run(handle, "ROLLBACK");
}

} // namespace tsms

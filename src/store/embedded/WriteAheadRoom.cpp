#include "store/embedded/WriteAheadRoom.h"

#include <QByteArray>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace tsms {

namespace {

constexpr int FrameBytes = 24 + 4096;     ///< a page of SQLite's default size, and its head
constexpr sqlite3_int64 ChangeFrames = 4; ///< the row, its indexes, the last key
constexpr sqlite3_int64 MostFrames =
    1000 + 16; ///< by SQLite's default it begins at the front again about there

bool Run(sqlite3* handle, const char* sql)
{
    return sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

/// As it begins, by https://sqlite.org/fileformat2.html#walformat; a journal of another kind does not.
bool IsWrittenAhead(sqlite3_file& log)
{
    std::array<unsigned char, 4> magic{};
    return log.pMethods->xRead(&log, magic.data(), sizeof magic, 0) == SQLITE_OK &&
           qFromBigEndian<quint32>(magic.data()) >> 1 == 0x377f0682U >> 1; // the last bit tells of the sums
}

/// In zeros, which the engine takes for the end of the log.
void Lengthen(sqlite3_file& log, int changes)
{
    const sqlite3_io_methods& file = *log.pMethods;
    sqlite3_int64 before = 0;
    if (file.xFileSize(&log, &before) != SQLITE_OK)
        return;
    const sqlite3_int64 frames = std::min(changes * ChangeFrames, MostFrames - before / FrameBytes);
    // Frame by frame: the engine's files take no more than 128 KiB at once.
    const QByteArray zeros(FrameBytes, '\0');
    bool done = true;
    for (sqlite3_int64 frame = 0; frame < frames && done; ++frame)
        done = file.xWrite(&log, zeros.constData(), FrameBytes, before + frame * FrameBytes) == SQLITE_OK;
    if (!done || (frames > 0 && file.xSync(&log, SQLITE_SYNC_NORMAL) != SQLITE_OK))
        file.xTruncate(&log, before);
}

} // namespace

void MakeWriteAheadRoom(sqlite3* handle, int changes)
{
    if (changes <= 0 || !Run(handle, "BEGIN IMMEDIATE"))
        return;
    // A database that may only be read is not locked by it: another process could append meanwhile.
    const bool isLocked = sqlite3_txn_state(handle, "main") == SQLITE_TXN_WRITE;
    sqlite3_file* log = nullptr;
    sqlite3_file_control(handle, "main", SQLITE_FCNTL_JOURNAL_POINTER, static_cast<void*>(&log));
    if (isLocked && log && log->pMethods && IsWrittenAhead(*log))
        Lengthen(*log, changes);
    Run(handle, "ROLLBACK");
}

} // namespace tsms

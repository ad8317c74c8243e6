#pragma once

#include "runtime/RuntimeError.h"

#include <QByteArray>
#include <QSaveFile>
#include <QString>

namespace tsms {

/// A compound file ([MS-CFB], of 512 bytes a sector) with one stream, on its way to take the place of the
/// file that stands under its name. Nothing of the stream is kept in memory.
class CompoundFile
{
public:
    static constexpr quint32 MaxStream = 0x80000000; ///< bytes that a stream can have

    /// Begins a file beside the one of that name. `classId` are the 16 bytes that tell which program opens
    /// it. Raises 61 or 75 when no file can be made, 76 when there is no such folder.
    CompoundFile(const QString& path, const char* stream, const unsigned char* classId);

    /// Adds to the end of the stream. Raises 6 beyond MaxStream, 57 and 61.
    void Write(const char* bytes, qsizetype size);

    /// Writes over a part of what was written. Raises 57 and 61.
    void WriteOver(quint32 position, const char* bytes, qsizetype size);

    /// Ends the file, waits until it is on the disk and gives it its name. Raises 57, 61 and 75. Without it
    /// the file is given up: nothing is left of it.
    void Commit();

private:
    void WriteAt(qint64 place, const char* bytes, qsizetype size);

    QSaveFile file_;
    QString stream_;
    QByteArray classId_;
    qint64 written_ = 0; ///< of the stream
};

/// The error of a stream beyond MaxStream.
RuntimeError FileTooLarge();

} // namespace tsms

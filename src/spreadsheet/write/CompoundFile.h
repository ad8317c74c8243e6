#pragma once

#include "runtime/RuntimeError.h"

#include <QSaveFile>
#include <QString>

#include <memory>

namespace tsms {

struct GsfLibrary;

/// A compound file ([MS-CFB]) with one stream, on its way to take the place of the file that stands under its
/// name. Nothing of it is kept in memory.
class CompoundFile
{
public:
    static constexpr quint32 MaxStream = 0x80000000; ///< bytes that a stream can have

    /// Begins a file beside the one of that name. `classId` are the 16 bytes that tell which program opens
    /// it. Raises 48 when libgsf is not there, 61 or 75 when no file can be made, 76 when there is no such
    /// folder.
    CompoundFile(const QString& path, const char* stream, const unsigned char* classId);

    /// Without Commit before, the file is given up: nothing is left of it.
    ~CompoundFile();
    CompoundFile(const CompoundFile&) = delete;
    CompoundFile& operator=(const CompoundFile&) = delete;

    /// Adds to the end of the stream. Raises 6 beyond MaxStream, 57 and 61.
    void Write(const char* bytes, qsizetype size);

    /// Writes over a part of what was written. Raises 57 and 61.
    void WriteOver(quint32 position, const char* bytes, qsizetype size);

    /// Ends the file, waits until it is on the disk and gives it its name. Raises 57, 61 and 75.
    void Commit();

private:
    struct Sink;
    struct Parts;

    void PassOn(const char* bytes, qint64 size);
    void Move(qint64 position);
    void RaiseFailure() const;
    void Close();

    const GsfLibrary& gsf_;
    QSaveFile file_;
    std::unique_ptr<Parts> parts_; ///< none once the file is closed
    qint64 written_ = 0;
    long failure_ = NoError; ///< of the device. What comes after it goes nowhere
};

/// The error of a stream beyond MaxStream.
RuntimeError FileTooLarge();

} // namespace tsms

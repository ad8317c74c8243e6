#pragma once

#include "spreadsheet/BiffRecord.h"

#include <QStringView>
#include <QtGlobal>

#include <initializer_list>
#include <memory>

namespace tsms {

class CompoundFile;

/// The records of a workbook on their way into its file. Numbers are little-endian; positions count from the
/// beginning of the stream.
class BiffStream
{
public:
    static constexpr int MaxRecord = 8224; ///< the most that a record holds behind its head of four bytes

    explicit BiffStream(CompoundFile& file);

    /// A record is begun, filled with at most MaxRecord bytes, and ended.
    void Begin(BiffRecord record);
    void U8(quint8 value);
    void U16(quint16 value);
    void U32(quint32 value);
    void F64(double value);
    void Bytes(const char* bytes, qsizetype size);
    /// A length of 8 bits and the characters of 16 bits: [MS-XLS] 2.5.240.
    void ShortText(QStringView text);
    void End();

    /// A whole record of 16-bit numbers.
    void Put(BiffRecord record, std::initializer_list<quint16> values);

    /// The records that begin and end a part.
    void BeginSubstream(Substream substream);
    void EndSubstream();

    int Room() const;         ///< what the record can still take
    int RecordOffset() const; ///< from the head of the record to the next byte
    quint32 Position() const; ///< of the next byte

    /// Writes over four bytes of a record that has ended.
    void Patch(quint32 position, quint32 value);

    /// Hands over all that is still in the buffer. Not inside a record.
    void Flush();

private:
    static constexpr int BufferSize = 1 << 16;

    CompoundFile& file_;
    std::unique_ptr<char[]> buffer_;
    quint32 flushed_ = 0; ///< bytes that the file has
    int used_ = 0;        ///< bytes in the buffer
    int record_ = 0;      ///< where the head of the record stands in the buffer
};

} // namespace tsms

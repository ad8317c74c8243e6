#include "spreadsheet/write/BiffStream.h"

#include "spreadsheet/write/CompoundFile.h"

#include <QtEndian>

#include <cstring>

namespace tsms {

namespace {

constexpr int HeadSize = 4;

} // namespace

BiffStream::BiffStream(CompoundFile& file) : file_(file), buffer_(std::make_unique<char[]>(BufferSize)) {}

void BiffStream::Begin(BiffRecord record)
{
    if (used_ > BufferSize - HeadSize - MaxRecord)
        Flush();
    record_ = used_;
    U16(static_cast<quint16>(record));
    U16(0); // its size, when it ends
}

void BiffStream::U8(quint8 value)
{
    buffer_[used_++] = static_cast<char>(value);
}

void BiffStream::U16(quint16 value)
{
    qToLittleEndian(value, &buffer_[used_]);
    used_ += 2;
}

void BiffStream::U32(quint32 value)
{
    qToLittleEndian(value, &buffer_[used_]);
    used_ += 4;
}

void BiffStream::F64(double value)
{
    qToLittleEndian(value, &buffer_[used_]);
    used_ += 8;
}

void BiffStream::Bytes(const char* bytes, qsizetype size)
{
    std::memcpy(&buffer_[used_], bytes, static_cast<std::size_t>(size));
    used_ += static_cast<int>(size);
}

void BiffStream::ShortText(QStringView text)
{
    U8(static_cast<quint8>(text.size()));
    U8(1); // 16 bits a character
    for (const QChar c : text)
        U16(c.unicode());
}

void BiffStream::End()
{
    Q_ASSERT(Room() >= 0);
    qToLittleEndian(static_cast<quint16>(RecordOffset() - HeadSize), &buffer_[record_ + 2]);
}

void BiffStream::Put(BiffRecord record, std::initializer_list<quint16> values)
{
    Begin(record);
    for (const quint16 value : values)
        U16(value);
    End();
}

void BiffStream::BeginSubstream(Substream substream)
{
    constexpr quint16 version = 0x0600; // BIFF8
    constexpr quint16 build = 0x0DBB;
    constexpr quint16 year = 1996;
    constexpr quint16 lowestVersion = 6;
    Put(BiffRecord::BOF, {version, static_cast<quint16>(substream), build, year, 0, 0, lowestVersion, 0});
}

void BiffStream::EndSubstream()
{
    Put(BiffRecord::Eof, {});
}

int BiffStream::Room() const
{
    return HeadSize + MaxRecord - RecordOffset();
}

int BiffStream::RecordOffset() const
{
    return used_ - record_;
}

quint32 BiffStream::Position() const
{
    return flushed_ + static_cast<quint32>(used_);
}

void BiffStream::Patch(quint32 position, quint32 value)
{
    char bytes[4];
    qToLittleEndian(value, bytes);
    if (position >= flushed_)
        std::memcpy(&buffer_[position - flushed_], bytes, sizeof bytes);
    else
        file_.WriteOver(position, bytes, sizeof bytes);
}

void BiffStream::Flush()
{
    file_.Write(buffer_.get(), used_);
    flushed_ += static_cast<quint32>(used_);
    used_ = 0;
}

} // namespace tsms

#include "spreadsheet/read/ReadBiff.h"

#include "spreadsheet/read/Demand.h"

#include <QtEndian>

#include <algorithm>
#include <bit>

namespace tsms {

namespace {

enum TextFlag : quint8 { Wide = 0x01, HasExtension = 0x04, HasRuns = 0x08 };

/// As many characters as the present record holds of `most`.
void AppendCharacters(BiffReader& reader, qsizetype most, bool wide, QString& to)
{
    const qsizetype size = wide ? 2 : 1;
    const qsizetype count = std::min(most, reader.Left() / size);
    const QByteArrayView bytes = reader.Bytes(count * size);
    if (!wide) {
        to += QLatin1String(bytes.data(), bytes.size());
        return;
    }
    const qsizetype begin = to.size();
    to.resize(begin + count);
    qFromLittleEndian<char16_t>(bytes.data(), count, to.data() + begin);
}

/// Where the present record ends in the middle of something, on to the part in the next one.
void SkipOver(BiffReader& reader, qint64 size)
{
    while (size > reader.Left()) {
        size -= reader.Left();
        if (!reader.NextPart())
            return;
    }
    reader.Skip(static_cast<qsizetype>(size));
}

/// Whether it is whole.
bool AppendParts(BiffReader& reader, int length, quint8 flags, QString& to)
{
    const qsizetype end = to.size() + length;
    AppendCharacters(reader, length, flags & Wide, to);
    // Half a character never stands at an edge.
    while (to.size() < end && reader.Left() == 0 && reader.NextPart()) {
        const bool wide = reader.U8() & Wide; // each part has flags of its own
        AppendCharacters(reader, end - to.size(), wide, to);
    }
    return to.size() == end;
}

} // namespace

bool BiffReader::HasRecordAt(quint32 position) const
{
    const qsizetype content = stream_.size() - position - HeadBytes;
    return content >= 0 && qFromLittleEndian<quint16>(stream_.data() + position + 2) <= content;
}

void BiffReader::MoveTo(quint32 position)
{
    end_ = position;
    content_ = {};
    at_ = 0;
}

void BiffReader::Next()
{
    Demand(HasRecordAt(End()));
    const char* head = stream_.data() + end_;
    const qsizetype size = qFromLittleEndian<quint16>(head + 2);
    record_ = static_cast<BiffRecord>(qFromLittleEndian<quint16>(head));
    content_ = stream_.sliced(end_ + HeadBytes, size);
    if (cipher_)
        content_ = Plain(content_);
    end_ += HeadBytes + size;
    at_ = 0;
}

/// A BOF is never hidden, nor the place of a sheet. There are others, of which nothing is read.
QByteArrayView BiffReader::Plain(QByteArrayView content)
{
    constexpr qsizetype placeBytes = 4;
    if (record_ == BiffRecord::BOF)
        return content;
    plain_ = content.toByteArray();
    cipher_->Decrypt(plain_, End() + HeadBytes, record_ == BiffRecord::BoundSheet8 ? placeBytes : 0);
    return plain_;
}

bool BiffReader::NextPart()
{
    while (HasHead() && qFromLittleEndian<quint16>(stream_.data() + end_) == quint16(BiffRecord::Continue)) {
        Next();
        if (Left() > 0)
            return true;
    }
    return false;
}

template <class Value> Value BiffReader::Take()
{
    constexpr qsizetype size = sizeof(Value);
    if (Left() < size) {
        at_ = content_.size();
        return 0;
    }
    const auto value = qFromLittleEndian<Value>(content_.data() + at_);
    at_ += size;
    return value;
}

quint8 BiffReader::U8()
{
    return Take<quint8>();
}

quint16 BiffReader::U16()
{
    return Take<quint16>();
}

quint32 BiffReader::U32()
{
    return Take<quint32>();
}

double BiffReader::F64()
{
    return std::bit_cast<double>(Take<quint64>());
}

QByteArrayView BiffReader::Bytes(qsizetype size)
{
    const QByteArrayView bytes = content_.sliced(at_, std::min(size, Left()));
    at_ += bytes.size();
    return bytes;
}

RecordText ReadUnicodeText(BiffReader& reader, int length)
{
    RecordText text;
    text.whole = AppendParts(reader, length, reader.U8(), text.text);
    return text;
}

bool AppendRichText(BiffReader& reader, QString& to)
{
    const int length = reader.U16();
    const quint8 flags = reader.U8();
    const qint64 runs = flags & HasRuns ? reader.U16() : 0;
    const qint64 extension = flags & HasExtension ? reader.U32() : 0;
    const bool whole = AppendParts(reader, length, flags, to);
    if (runs > 0 || extension > 0)
        SkipOver(reader, 4 * runs + extension);
    return whole;
}

} // namespace tsms

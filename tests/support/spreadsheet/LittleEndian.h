#pragma once

#include <QByteArray>
#include <QtEndian>

#include <bit>

namespace tsms::test {

/// Bytes that are put together number by number, little-endian.
class LittleEndian
{
public:
    LittleEndian& U8(int value) { return Put(static_cast<quint8>(value)); }
    LittleEndian& U16(int value) { return Put(static_cast<quint16>(value)); }
    LittleEndian& U32(qint64 value) { return Put(static_cast<quint32>(value)); }
    LittleEndian& F64(double value) { return Put(std::bit_cast<quint64>(value)); }
    LittleEndian& Raw(const QByteArray& value)
    {
        bytes += value;
        return *this;
    }
    LittleEndian& Fill(qsizetype count, char value = 0) { return Raw(QByteArray(count, value)); }

    QByteArray bytes;

private:
    template <class Number> LittleEndian& Put(Number value)
    {
        char buffer[sizeof(Number)];
        qToLittleEndian(value, buffer);
        bytes.append(buffer, sizeof(Number));
        return *this;
    }
};

} // namespace tsms::test

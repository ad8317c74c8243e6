#pragma once

#include <QByteArray>
#include <QString>
#include <QtEndian>

namespace tsms::test {

/// Writes numbers and texts as TDS has them: numbers little-endian, texts in UTF-16.
class ByteWriter
{
public:
    ByteWriter& Byte(int value) { return Number(static_cast<quint8>(value)); }
    ByteWriter& Word(int value) { return Number(static_cast<quint16>(value)); }
    ByteWriter& DWord(quint32 value) { return Number(value); }
    ByteWriter& QWord(quint64 value) { return Number(value); }

    ByteWriter& Bytes(QByteArrayView bytes)
    {
        data_.append(bytes);
        return *this;
    }

    /// A text without its length.
    ByteWriter& Text(QStringView text)
    {
        for (const QChar unit : text)
            Word(unit.unicode());
        return *this;
    }

    /// B_VARCHAR: the length in characters in one byte, and the text.
    ByteWriter& ShortText(QStringView text) { return Byte(static_cast<int>(text.size())).Text(text); }

    /// US_VARCHAR: the same with the length in two bytes.
    ByteWriter& LongText(QStringView text) { return Word(static_cast<int>(text.size())).Text(text); }

    const QByteArray& Data() const { return data_; }

private:
    template <class T> ByteWriter& Number(T value)
    {
        const T little = qToLittleEndian(value);
        data_.append(reinterpret_cast<const char*>(&little), sizeof little);
        return *this;
    }

    QByteArray data_;
};

/// Reads them by position. What lies behind the end reads as 0 or as an empty text.
class ByteReader
{
public:
    explicit ByteReader(const QByteArray& data) : data_(data) {}

    int Word(qsizetype at) const { return Number<quint16>(at); }
    quint32 DWord(qsizetype at) const { return Number<quint32>(at); }

    /// A text of so many characters.
    QString Text(qsizetype at, int characters) const
    {
        QString text;
        for (int index = 0; index < characters && at + 2 * index + 2 <= data_.size(); ++index)
            text += QChar(static_cast<char16_t>(Word(at + qsizetype{2} * index)));
        return text;
    }

private:
    template <class T> T Number(qsizetype at) const
    {
        const bool isThere = at >= 0 && at + static_cast<qsizetype>(sizeof(T)) <= data_.size();
        return isThere ? qFromLittleEndian<T>(data_.constData() + at) : T{0};
    }

    const QByteArray& data_;
};

} // namespace tsms::test

#include "support/server/TdsLogin.h"

#include "support/server/TdsBytes.h"

namespace tsms::test {

namespace {

/// A text of LOGIN7 by the place of its offset and length, each of two bytes.
QString TextAt(const ByteReader& login, qsizetype place)
{
    return login.Text(login.Word(place), login.Word(place + 2));
}

/// Each byte has its halves swapped and is then mixed with 0xA5.
QString WithoutDisguise(const QString& password)
{
    QString plain;
    for (const QChar unit : password) {
        const int mixed = unit.unicode() ^ 0xA5A5;
        plain += QChar(static_cast<char16_t>(((mixed & 0x0F0F) << 4) | ((mixed & 0xF0F0) >> 4)));
    }
    return plain;
}

} // namespace

QByteArray PreLogInAnswer()
{
    // Each option: its code, where its value lies and how long it is, both big-endian; 0xFF ends the list.
    static constexpr unsigned char answer[] = {
        0x00, 0x00, 0x15, 0x00, 0x06,       // the server's version
        0x01, 0x00, 0x1B, 0x00, 0x01,       // encryption
        0x02, 0x00, 0x1C, 0x00, 0x01,       // the instance is the one that was asked for
        0x04, 0x00, 0x1D, 0x00, 0x01,       // several results at a time
        0xFF,                               //
        0x0A, 0x32, 0x06, 0x40, 0x00, 0x00, // 10.50.1600
        0x02,                               // encryption is not supported
        0x00,                               //
        0x00,                               // no
    };
    return QByteArray(reinterpret_cast<const char*>(answer), sizeof answer);
}

ServerLogin ReadLogIn(const QByteArray& data)
{
    const ByteReader login(data);
    ServerLogin read;
    read.Version = login.DWord(4);
    read.PacketSize = static_cast<int>(login.DWord(8));
    read.User = TextAt(login, 40);
    read.Password = WithoutDisguise(TextAt(login, 44));
    read.Application = TextAt(login, 48);
    read.Database = TextAt(login, 68);
    return read;
}

} // namespace tsms::test

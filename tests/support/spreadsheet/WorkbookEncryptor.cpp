#include "support/spreadsheet/WorkbookEncryptor.h"

#include "support/spreadsheet/LittleEndian.h"

#include <QCryptographicHash>
#include <QSet>

#include <utility>

namespace tsms::test {

namespace {

// Any bytes will do.
constexpr char Salt[] = "salt of 16 bytes";
constexpr char Verifier[] = "any other 16....";
constexpr qsizetype SaltBytes = 16;
constexpr qsizetype VerifierBytes = 16;

QByteArray Md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
}

QByteArray Sha1(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QByteArray Utf16(const QByteArray& latin)
{
    LittleEndian out;
    for (const char c : latin)
        out.U16(c);
    return out.bytes;
}

/// The first bytes with which RC4 hides others.
QByteArray Rc4(const QByteArray& key, qsizetype size)
{
    int s[256];
    for (int i = 0; i < 256; ++i)
        s[i] = i;
    for (int i = 0, j = 0; i < 256; ++i) {
        j = (j + s[i] + static_cast<uchar>(key[i % key.size()])) & 255;
        std::swap(s[i], s[j]);
    }
    QByteArray out;
    for (int i = 0, j = 0; out.size() < size;) {
        i = (i + 1) & 255;
        j = (j + s[i]) & 255;
        std::swap(s[i], s[j]);
        out += static_cast<char>(s[(s[i] + s[j]) & 255]);
    }
    return out;
}

QByteArray Xored(QByteArray bytes, const QByteArray& others)
{
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(bytes[i] ^ others[i]);
    return bytes;
}

/// [MS-OFFCRYPTO] 2.3.7.1
quint16 XorVerifier(const QByteArray& password)
{
    quint16 verifier = 0;
    const QByteArray withLength = static_cast<char>(password.size()) + password;
    for (qsizetype i = withLength.size() - 1; i >= 0; --i) {
        const int rotated = (verifier & 0x4000 ? 1 : 0) | (verifier << 1 & 0x7FFF);
        verifier = static_cast<quint16>(rotated ^ withLength[i]);
    }
    return verifier ^ 0xCE4B;
}

/// [MS-OFFCRYPTO] 2.3.7.2
quint16 XorKey(const QByteArray& password)
{
    constexpr quint16 initial[] = {0xE1F0, 0x1D0F, 0xCC9C, 0x84C0, 0x110C, 0x0E10, 0xF1CE, 0x313E,
                                   0x1872, 0xE139, 0xD40F, 0x84F9, 0x280C, 0xA96A, 0x4EC3};
    constexpr quint16 matrix[] = {
        0xAEFC, 0x4DD9, 0x9BB2, 0x2745, 0x4E8A, 0x9D14, 0x2A09, 0x7B61, 0xF6C2, 0xFDA5, 0xEB6B, 0xC6F7,
        0x9DCF, 0x2BBF, 0x4563, 0x8AC6, 0x05AD, 0x0B5A, 0x16B4, 0x2D68, 0x5AD0, 0x0375, 0x06EA, 0x0DD4,
        0x1BA8, 0x3750, 0x6EA0, 0xDD40, 0xD849, 0xA0B3, 0x5147, 0xA28E, 0x553D, 0xAA7A, 0x44D5, 0x6F45,
        0xDE8A, 0xAD35, 0x4A4B, 0x9496, 0x390D, 0x721A, 0xEB23, 0xC667, 0x9CEF, 0x29FF, 0x53FE, 0xA7FC,
        0x5FD9, 0x47D3, 0x8FA6, 0x0F6D, 0x1EDA, 0x3DB4, 0x7B68, 0xF6D0, 0xB861, 0x60E3, 0xC1C6, 0x93AD,
        0x377B, 0x6EF6, 0xDDEC, 0x45A0, 0x8B40, 0x06A1, 0x0D42, 0x1A84, 0x3508, 0x6A10, 0xAA51, 0x4483,
        0x8906, 0x022D, 0x045A, 0x08B4, 0x1168, 0x76B4, 0xED68, 0xCAF1, 0x85C3, 0x1BA7, 0x374E, 0x6E9C,
        0x3730, 0x6E60, 0xDCC0, 0xA9A1, 0x4363, 0x86C6, 0x1DAD, 0x3331, 0x6662, 0xCCC4, 0x89A9, 0x0373,
        0x06E6, 0x0DCC, 0x1021, 0x2042, 0x4084, 0x8108, 0x1231, 0x2462, 0x48C4};
    quint16 key = initial[password.size() - 1];
    std::size_t element = std::size(matrix);
    for (qsizetype at = password.size() - 1; at >= 0; --at)
        for (int bit = 6; bit >= 0; --bit) {
            --element;
            if (password[at] >> bit & 1)
                key ^= matrix[element];
        }
    return key;
}

int RotatedLeft(int byte, int bits)
{
    return (byte << bits | byte >> (8 - bits)) & 0xFF;
}

QByteArray XorArray(const QByteArray& password)
{
    const QByteArray padding = QByteArray::fromHex("bbffffbaffffb98000be0f00bf0f00");
    const quint16 key = XorKey(password);
    QByteArray array = (password + padding).first(16);
    for (int i = 0; i < 16; ++i) {
        const int mixed = static_cast<uchar>(array[i]) ^ (i % 2 == 0 ? key & 0xFF : key >> 8);
        array[i] = static_cast<char>(RotatedLeft(mixed, 7));
    }
    return array;
}

/// Records whose content stays as it is: BOF, FilePass, UsrExcl, FileLock, InterfaceHdr, RRDInfo, RRDHead.
bool IsPlain(int record)
{
    return QSet<int>{0x0809, 0x002F, 0x0194, 0x0195, 0x00E1, 0x0196, 0x0138}.contains(record);
}

} // namespace

WorkbookEncryptor::WorkbookEncryptor(Method method, QByteArray password, int keyBits)
    : method_(method), password_(std::move(password)), keyBits_(keyBits)
{
}

QByteArray WorkbookEncryptor::FilePass(bool biff8) const
{
    LittleEndian out;
    if (method_ == Method::Xor) {
        if (biff8)
            out.U16(0);
        return out.U16(XorKey(password_)).U16(XorVerifier(password_)).bytes;
    }
    out.U16(1);
    const QByteArray hash = method_ == Method::Rc4 ? Md5(Verifier) : Sha1(Verifier);
    const QByteArray hidden = Xored(Verifier + hash, Rc4(KeyOfBlock(0), VerifierBytes + hash.size()));
    if (method_ == Method::Rc4)
        return out.U16(1).U16(1).Raw(Salt).Raw(hidden).bytes;
    const QByteArray provider = Utf16("Microsoft Enhanced Cryptographic Provider v1.0") + QByteArray(2, '\0');
    constexpr int flags = 4; // CryptoAPI
    out.U16(4).U16(2).U32(flags).U32(32 + provider.size());
    out.U32(flags).U32(0).U32(0x6801).U32(0x8004).U32(keyBits_).U32(1).U32(0).U32(0).Raw(provider);
    return out.U32(SaltBytes)
        .Raw(Salt)
        .Raw(hidden.first(VerifierBytes))
        .U32(hash.size())
        .Raw(hidden.mid(VerifierBytes))
        .bytes;
}

/// [MS-OFFCRYPTO] 2.3.6.2 and 2.3.5.2
QByteArray WorkbookEncryptor::KeyOfBlock(quint32 block) const
{
    const QByteArray number = LittleEndian().U32(block).bytes;
    if (method_ == Method::Rc4) {
        QByteArray salted;
        for (int i = 0; i < 16; ++i)
            salted += Md5(Utf16(password_)).first(5) + Salt;
        return Md5(Md5(salted).first(5) + number);
    }
    const QByteArray key = Sha1(Sha1(Salt + Utf16(password_)) + number).first(keyBits_ / 8);
    return keyBits_ == 40 ? key + QByteArray(11, '\0') : key;
}

/// A block has 1024 bytes.
QByteArray WorkbookEncryptor::Keystream(qsizetype size) const
{
    QByteArray out;
    for (quint32 block = 0; out.size() < size; ++block)
        out += Rc4(KeyOfBlock(block), 1024);
    return out;
}

QByteArray WorkbookEncryptor::Encrypted(QByteArray stream) const
{
    constexpr int boundSheet = 0x0085;
    const QByteArray keystream = method_ == Method::Xor ? QByteArray() : Keystream(stream.size());
    const QByteArray array = XorArray(password_);
    bool isHidden = false; // from FilePass on
    for (qsizetype at = 0; at < stream.size();) {
        const int record = qFromLittleEndian<quint16>(stream.constData() + at);
        const qsizetype size = qFromLittleEndian<quint16>(stream.constData() + at + 2);
        const qsizetype content = at + 4;
        for (qsizetype i = record == boundSheet ? 4 : 0; isHidden && !IsPlain(record) && i < size; ++i) {
            const int plain = static_cast<uchar>(stream[content + i]);
            const int hidden = method_ == Method::Xor
                                   ? RotatedLeft(plain, 5) ^ array[(content + size + i) % 16]
                                   : plain ^ keystream[content + i];
            stream[content + i] = static_cast<char>(hidden);
        }
        isHidden = isHidden || record == 0x002F;
        at = content + size;
    }
    return stream;
}

} // namespace tsms::test

#include "spreadsheet/read/RecordCipher.h"

#include "spreadsheet/read/ReadBiff.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <array>
#include <functional>
#include <numeric>
#include <utility>

namespace tsms {

namespace {

constexpr char DefaultPassword[] = "VelvetSweatshop";

// What [MS-OFFCRYPTO] 2.3.7.1 and 2.3.7.2 make of the default password.
constexpr quint16 DefaultXorKey = 0xB359;
constexpr quint16 DefaultXorVerifier = 0x9A0A;

quint8 RotatedRight(int byte, int bits)
{
    return static_cast<quint8>(byte >> bits | byte << (8 - bits));
}

/// [MS-OFFCRYPTO] 2.3.7.3, with the array of 2.3.7.2.
class XorRecords final : public RecordCipher
{
public:
    XorRecords()
    {
        constexpr char padding = '\xBB'; // behind the 15 characters
        constexpr int keyBytes[] = {DefaultXorKey & 0xFF, DefaultXorKey >> 8};
        const QByteArray padded = QByteArray(DefaultPassword) + padding;
        for (std::size_t i = 0; i < array_.size(); ++i)
            array_[i] = RotatedRight(static_cast<quint8>(padded[qsizetype(i)]) ^ keyBytes[i % 2], 1);
    }

    void Decrypt(QByteArray& content, quint32 position, qsizetype from) override
    {
        const std::size_t first = position + static_cast<std::size_t>(content.size());
        for (qsizetype i = from; i < content.size(); ++i) {
            const quint8 mask = array_[(first + static_cast<std::size_t>(i)) % array_.size()];
            content[i] = static_cast<char>(RotatedRight(static_cast<quint8>(content[i]) ^ mask, 5));
        }
    }

private:
    std::array<quint8, 16> array_{};
};

/// The bytes with which RC4 hides others.
class Rc4
{
public:
    /// `key` has a byte at least.
    explicit Rc4(const QByteArray& key)
    {
        std::iota(state_.begin(), state_.end(), quint8(0));
        for (std::size_t i = 0, j = 0; i < state_.size(); ++i) {
            j = (j + state_[i] + static_cast<quint8>(key[qsizetype(i) % key.size()])) % state_.size();
            std::swap(state_[i], state_[j]);
        }
    }

    quint8 Next()
    {
        i_ = (i_ + 1) % state_.size();
        j_ = (j_ + state_[i_]) % state_.size();
        std::swap(state_[i_], state_[j_]);
        return state_[(state_[i_] + state_[j_]) % state_.size()];
    }

    QByteArray Decrypted(QByteArrayView hidden)
    {
        QByteArray plain = hidden.toByteArray();
        for (char& byte : plain)
            byte = static_cast<char>(byte ^ Next());
        return plain;
    }

private:
    std::array<quint8, 256> state_{};
    std::size_t i_ = 0;
    std::size_t j_ = 0;
};

using KeyOfBlock = std::function<QByteArray(quint32 block)>;

/// Each block of the stream has a key of its own, and the heads of the records count, too.
class Rc4Records final : public RecordCipher
{
public:
    explicit Rc4Records(KeyOfBlock keyOf) : keyOf_(std::move(keyOf)), bytes_(keyOf_(0)) {}

    void Decrypt(QByteArray& content, quint32 position, qsizetype from) override
    {
        for (qsizetype i = from; i < content.size(); ++i) {
            MoveTo(position + static_cast<quint32>(i));
            content[i] = static_cast<char>(content[i] ^ bytes_.Next());
            ++at_;
        }
    }

private:
    static constexpr quint32 BlockBytes = 1024;

    void MoveTo(quint32 position)
    {
        const quint32 block = position / BlockBytes;
        if (block != block_ || position < at_) {
            bytes_ = Rc4(keyOf_(block));
            block_ = block;
            at_ = block * BlockBytes;
        }
        for (; at_ < position; ++at_)
            bytes_.Next();
    }

    KeyOfBlock keyOf_;
    Rc4 bytes_;
    quint32 block_ = 0;
    quint32 at_ = 0;
};

QByteArray Md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
}

QByteArray Sha1(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

/// In UTF-16.
QByteArray PasswordBytes()
{
    QByteArray bytes;
    for (const char c : QByteArrayView(DefaultPassword))
        bytes.append(c).append('\0');
    return bytes;
}

QByteArray WithNumber(QByteArray bytes, quint32 number)
{
    const quint32 littleEndian = qToLittleEndian(number);
    return bytes.append(reinterpret_cast<const char*>(&littleEndian), sizeof littleEndian);
}

constexpr qsizetype SaltBytes = 16;
constexpr qsizetype VerifierBytes = 16;

/// [MS-OFFCRYPTO] 2.3.6
std::unique_ptr<RecordCipher> OpenRc4(BiffReader& filePass)
{
    constexpr qsizetype hashBytes = 16;
    constexpr qsizetype cutBytes = 5;
    const QByteArray salt = filePass.Bytes(SaltBytes).toByteArray();
    const QByteArray salted = (Md5(PasswordBytes()).first(cutBytes) + salt).repeated(16);
    const KeyOfBlock keyOf = [cut = Md5(salted).first(cutBytes)](quint32 block) {
        return Md5(WithNumber(cut, block));
    };
    Rc4 bytes(keyOf(0));
    const QByteArray verifier = bytes.Decrypted(filePass.Bytes(VerifierBytes));
    if (bytes.Decrypted(filePass.Bytes(hashBytes)) != Md5(verifier))
        return nullptr;
    return std::make_unique<Rc4Records>(keyOf);
}

/// [MS-OFFCRYPTO] 2.3.5, with the header of 2.3.2 and the verifier of 2.3.3.
std::unique_ptr<RecordCipher> OpenCryptoApi(BiffReader& filePass)
{
    constexpr qsizetype hashBytes = 20;
    constexpr qsizetype headerStart = 20; // up to the size of the key
    constexpr int shortKey = 40;          // bits; filled up with zeros
    constexpr qsizetype fullKey = 16;
    filePass.Skip(4); // flags
    const qsizetype headerBytes = filePass.U32();
    filePass.Skip(headerStart - 4);
    const quint32 toldBits = filePass.U32();
    const quint32 bits = toldBits == 0 ? shortKey : toldBits;
    if (bits < shortKey || bits > 8 * fullKey || headerBytes < headerStart)
        return nullptr;
    filePass.Skip(headerBytes - headerStart + 4); // and the size of the salt
    const QByteArray salt = filePass.Bytes(SaltBytes).toByteArray();
    const KeyOfBlock keyOf = [start = Sha1(salt + PasswordBytes()), bits](quint32 block) {
        QByteArray key = Sha1(WithNumber(start, block)).first(bits / 8);
        return bits == shortKey ? key.leftJustified(fullKey, '\0') : key;
    };
    Rc4 bytes(keyOf(0));
    const QByteArray verifier = bytes.Decrypted(filePass.Bytes(VerifierBytes));
    filePass.Skip(4); // the size of the hash
    if (bytes.Decrypted(filePass.Bytes(hashBytes)) != Sha1(verifier))
        return nullptr;
    return std::make_unique<Rc4Records>(keyOf);
}

std::unique_ptr<RecordCipher> OpenXor(BiffReader& filePass)
{
    const quint16 key = filePass.U16();
    if (key != DefaultXorKey || filePass.U16() != DefaultXorVerifier)
        return nullptr;
    return std::make_unique<XorRecords>();
}

} // namespace

std::unique_ptr<RecordCipher> OpenWithDefaultPassword(BiffReader& filePass)
{
    constexpr qsizetype xorBytesInBiff5 = 4; // it knows no other cipher, and does not name it
    enum Cipher : quint16 { Xor, Rc4OfSomeKind };
    enum Version : quint16 { PlainRc4 = 1 };
    if (filePass.Left() == xorBytesInBiff5 || filePass.U16() == Xor)
        return OpenXor(filePass);
    const quint16 version = filePass.U16();
    filePass.Skip(2); // its lower part
    return version == PlainRc4 ? OpenRc4(filePass) : OpenCryptoApi(filePass);
}

} // namespace tsms

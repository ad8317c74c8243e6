#pragma once

#include <QByteArray>
#include <QString>

namespace tsms::test {

/// Encrypts the stream of a workbook, as [MS-XLS] 2.2.10 and [MS-OFFCRYPTO] 2.3.5 to 2.3.7 tell.
class WorkbookEncryptor
{
public:
    enum class Method { Xor, Rc4, CryptoApi };

    /// `password` has at most 15 Latin characters. `keyBits` are those of CryptoApi, 40 to 128.
    WorkbookEncryptor(Method method, QByteArray password, int keyBits = 128);

    /// The content of the record that the workbook begins with, behind its BOF.
    QByteArray FilePass(bool biff8) const;

    /// The stream, which has that record and is plain so far.
    QByteArray Encrypted(QByteArray stream) const;

private:
    QByteArray KeyOfBlock(quint32 block) const;
    QByteArray Keystream(qsizetype size) const;

    Method method_;
    QByteArray password_;
    int keyBits_;
};

} // namespace tsms::test

#pragma once

#include <QByteArray>

#include <memory>

namespace tsms {

class BiffReader;

/// How the records of a workbook are hidden: [MS-XLS] 2.2.10.
class RecordCipher
{
public:
    RecordCipher() = default;
    virtual ~RecordCipher() = default;
    RecordCipher(const RecordCipher&) = delete;
    RecordCipher& operator=(const RecordCipher&) = delete;

    /// Makes the content of a record plain that begins at `position` of the stream, from its byte `from` on.
    virtual void Decrypt(QByteArray& content, quint32 position, qsizetype from) = 0;
};

/// Opens a workbook whose FilePass ([MS-XLS] 2.4.117) is the present record, with the password that
/// spreadsheet programs try before they ask for one; they hide workbooks with it whose structure is
/// protected. Null where the password is another one, or the cipher none of [MS-OFFCRYPTO] 2.3.5 to 2.3.7.
std::unique_ptr<RecordCipher> OpenWithDefaultPassword(BiffReader& filePass);

} // namespace tsms

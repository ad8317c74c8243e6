#pragma once

#include "spreadsheet/BiffRecord.h"
#include "spreadsheet/read/RecordCipher.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>
#include <utility>

namespace tsms {

/// The values of BOF that tell the two layouts apart. The lower byte does not count: some writers fill it.
enum class BiffVersion : quint16 { Biff5 = 0x0500, Biff8 = 0x0600 };

/// Walks over the records of a workbook's stream, which have to follow one another to its end. Nothing is
/// read beyond a record: a number that it lacks is 0, and of bytes those come that it has.
class BiffReader
{
public:
    /// `stream` has to outlive the reader.
    explicit BiffReader(QByteArrayView stream) : stream_(stream) {}

    /// The records behind the present one are hidden.
    void Decrypt(std::unique_ptr<RecordCipher> cipher) { cipher_ = std::move(cipher); }

    /// Whether that place has a record, by its head, with all that it should have.
    bool HasRecordAt(quint32 position) const;

    /// To where a record begins; Next comes after it.
    void MoveTo(quint32 position);

    /// Where the present record ends and the next one begins.
    quint32 End() const { return static_cast<quint32>(end_); }

    /// On to the next record. Raises 321 at the end of the stream: the last record is always an Eof that
    /// somebody waits for.
    void Next();

    /// On to the next record with content that continues the present one, past those that have none. False
    /// where there is no such record.
    bool NextPart();

    BiffRecord Record() const { return record_; }
    qsizetype Left() const { return content_.size() - at_; } ///< bytes of the present record

    /// Bytes of the present record and of all behind it.
    qsizetype LeftInStream() const { return stream_.size() - end_ + Left(); }

    // The values of the record, one after the other.
    quint8 U8();
    quint16 U16();
    quint32 U32();
    double F64();
    QByteArrayView Bytes(qsizetype size);
    void Skip(qsizetype size) { Bytes(size); }

private:
    template <class Value> Value Take();
    QByteArrayView Plain(QByteArrayView content);
    bool HasHead() const { return stream_.size() - end_ >= HeadBytes; }

    static constexpr qsizetype HeadBytes = 4;

    QByteArrayView stream_;
    std::unique_ptr<RecordCipher> cipher_;
    QByteArray plain_; // the content of the present record, where it is hidden in the stream
    QByteArrayView content_;
    qsizetype end_ = 0; // of the present record
    qsizetype at_ = 0;  // in its content
    BiffRecord record_ = BiffRecord::Eof;
};

/// Texts of BIFF8. They may run over into the records that continue theirs: [MS-XLS] 2.5.293 and 2.5.294.

/// A text as far as the records have it.
struct RecordText
{
    QString text;
    bool whole = false;
};

/// A text of `length` characters that begins with its flags.
RecordText ReadUnicodeText(BiffReader& reader, int length);

/// Appends a text with its length of 16 bits in front and, where it has them, formats of its parts behind.
/// False for one that is cut.
bool AppendRichText(BiffReader& reader, QString& to);

} // namespace tsms

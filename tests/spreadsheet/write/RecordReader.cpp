#include "spreadsheet/write/RecordReader.h"

#include "spreadsheet/read/ReadCompoundFile.h"
#include "spreadsheet/write/BiffStream.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

QByteArray ReadStream(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return ReadCompoundStream(file, {u"Workbook"});
}

quint16 NumberAt(const QByteArray& bytes, qsizetype at)
{
    return static_cast<quint16>(static_cast<quint8>(bytes[at]) | static_cast<quint8>(bytes[at + 1]) << 8);
}

/// The bytes of the table, record by record.
class TableReader
{
public:
    TableReader(const QList<Record>& records, qsizetype table) : records_(records), record_(table) {}

    bool Failed() const { return failed_; }

    SharedText Next()
    {
        if (at_ == Body().size())
            NextRecord();
        SharedText found;
        found.record = records_[record_].position;
        found.position = found.record + 4 + static_cast<quint32>(at_);
        const QByteArray head = Take(3);
        if (failed_)
            return found;
        qsizetype length = NumberAt(head, 0);
        bool wide = head[2] == 1;
        while (length > 0 && !failed_) {
            if (at_ == Body().size()) {
                NextRecord();
                wide = Take(1) == QByteArray(1, '\1');
            }
            const qsizetype unit = wide ? 2 : 1;
            const QByteArray part = Take(qMin(length * unit, Body().size() - at_));
            length -= part.size() / unit;
            found.text += Decoded(part, wide);
        }
        return found;
    }

private:
    const QByteArray& Body() const { return records_[record_].body; }

    void NextRecord()
    {
        ++record_;
        at_ = 0;
        failed_ = failed_ || record_ == records_.size() ||
                  records_[record_].type != static_cast<quint16>(BiffRecord::Continue);
        EXPECT_FALSE(failed_) << "the table ends too early";
    }

    QByteArray Take(qsizetype size)
    {
        failed_ = failed_ || size == 0 || at_ + size > Body().size();
        EXPECT_FALSE(failed_) << "a text is divided where it must not be";
        if (failed_)
            return {};
        at_ += size;
        return Body().sliced(at_ - size, size);
    }

    QString Decoded(const QByteArray& part, bool wide)
    {
        if (!wide)
            return QString::fromLatin1(part);
        QString text;
        for (qsizetype at = 0; at + 1 < part.size(); at += 2)
            text += QChar(NumberAt(part, at));
        failed_ = failed_ || part.size() % 2 != 0 || !text.isValidUtf16();
        EXPECT_FALSE(failed_) << "a part of a text is no UTF-16";
        return text;
    }

    const QList<Record>& records_;
    qsizetype record_;
    qsizetype at_ = 8; // behind the two counts
    bool failed_ = false;
};

} // namespace

quint16 Record::U16(qsizetype at) const
{
    if (at + 2 <= body.size())
        return NumberAt(body, at);
    ADD_FAILURE() << "a record is too short";
    return 0;
}

quint32 Record::U32(qsizetype at) const
{
    return U16(at) | static_cast<quint32>(U16(at + 2)) << 16;
}

QList<Record> ReadRecords(const QString& path)
{
    const QByteArray stream = ReadStream(path);
    QList<Record> records;
    for (qsizetype at = 0; at < stream.size();) {
        if (at + 4 > stream.size()) {
            ADD_FAILURE() << "half a head at the end";
            return records;
        }
        const quint16 type = NumberAt(stream, at);
        const quint16 size = NumberAt(stream, at + 2);
        EXPECT_LE(at + 4 + size, stream.size());
        records += {static_cast<quint32>(at), type, stream.mid(at + 4, size)};
        at += 4 + size;
    }
    return records;
}

QList<SharedText> ReadSharedTexts(const QList<Record>& records)
{
    QList<SharedText> texts;
    for (qsizetype i = 0; i < records.size(); ++i) {
        if (records[i].type != static_cast<quint16>(BiffRecord::SST))
            continue;
        TableReader reader(records, i);
        for (quint32 left = records[i].U32(4); left > 0 && !reader.Failed(); --left)
            texts += reader.Next();
    }
    return texts;
}

} // namespace tsms::test

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tsms::test {

/// A record as it stands in the stream of a workbook.
struct Record
{
    quint32 position = 0; ///< of its head
    quint16 type = 0;
    QByteArray body;

    quint16 U16(qsizetype at) const;
    quint32 U32(qsizetype at) const;
};

/// The records of a workbook. Fails the test when the stream is not made of whole records.
QList<Record> ReadRecords(const QString& path);

/// A text of the shared string table.
struct SharedText
{
    quint32 position = 0; ///< in the stream
    quint32 record = 0;   ///< the position of the record that it begins in
    QString text;
};

/// Reads the table as strictly as it can be: the head of a text is not divided, and each part of a text in a
/// record is valid UTF-16 by itself. Fails the test otherwise.
QList<SharedText> ReadSharedTexts(const QList<Record>& records);

} // namespace tsms::test

// Hands any bytes to the reader of recipient files, and compares the list with what scans of it come to. The
// first byte tells how many rows stand in the list before, with the numbers of the first records, and every
// third of them removed.
#include "addressbook/RecipientRecord.h"
#include "addressbook/UserSMSFileRead.h"
#include "fuzz/Target.h"
#include "support/ReadByScans.h"

#include <QBuffer>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr qsizetype MostBytes = 60 * RecipientRecord::Size; // scans take their time

ListOfRows ListBefore(int rows, const QByteArray& bytes)
{
    ListOfRows list;
    for (int row = 0; row < rows; ++row) {
        const QByteArray record = bytes.mid(row * RecipientRecord::Size, RecipientRecord::Size);
        const QString phone =
            record.size() == RecipientRecord::Size ? RecipientRecord::Of(record).phone : QString();
        list.rows.push_back({QStringLiteral("x"), QStringLiteral("y"), phone, row % 3 == 0});
    }
    return list;
}

void ReadRecipientFile(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    QByteArray records = bytes.sliced(1, qMin(bytes.size() - 1, MostBytes));
    ListOfRows list = ListBefore(static_cast<unsigned char>(bytes[0]) % 32, records);
    ListOfRows scanned(list.rows);
    QBuffer file(&records);
    file.open(QIODevice::ReadOnly);
    ReadRecipientRecords(file, list);
    ReadByScans(records, scanned);
    Require(list.rows == scanned.rows);
}

const Target recipientFile("recipient-file", ReadRecipientFile);

} // namespace

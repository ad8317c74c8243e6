// Hands any bytes to the reader of recipient files, and compares the list with what scans of it come to. The
// first byte tells how many rows stand in the list before, with the numbers of the first records, and every
// third of them removed.
#include "addressbook/RecipientRecord.h"
#include "addressbook/UserSMSFileRead.h"
#include "fuzz/Refusal.h"
#include "support/ListOfRows.h"

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size) - 1);
    bytes.truncate(MostBytes);
    ListOfRows list = ListBefore(data[0] % 32, bytes);
    ListOfRows scanned(list.rows);
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    ReadRecipientRecords(file, list);
    ReadByScans(bytes, scanned);
    Require(list.rows == scanned.rows);
    return 0;
}

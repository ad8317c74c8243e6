// Hands any bytes to the reader of workbooks, as a file.
#include "fuzz/Refusal.h"
#include "spreadsheet/ReadWorkbook.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    tsms::test::ExpectReadOrRefused([&] { return tsms::ReadWorkbook(file, 3); });
    return 0;
}

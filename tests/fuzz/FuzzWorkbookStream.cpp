// Hands any bytes to the reader of workbooks, as the stream that it finds in a file.
#include "fuzz/Refusal.h"
#include "spreadsheet/ReadWorkbook.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    tsms::test::ExpectReadOrRefused([&] { return tsms::ReadWorkbookStream(bytes, 3); });
    return 0;
}

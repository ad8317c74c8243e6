// Hands any bytes to the reader of workbooks, as the stream that it finds in a file.
#include "fuzz/Refusal.h"
#include "fuzz/Target.h"
#include "spreadsheet/read/ReadWorkbook.h"

using namespace tsms;
using namespace tsms::test;

namespace {

void ReadAsStream(const QByteArray& bytes)
{
    ExpectReadOrRefused([&] { return ReadWorkbookStream(bytes, 3); });
}

const Target workbookStream("workbook-stream", ReadAsStream);

} // namespace

// Hands any bytes to the reader of workbooks, as a file.
#include "fuzz/Refusal.h"
#include "fuzz/Target.h"
#include "spreadsheet/read/ReadWorkbook.h"

#include <QBuffer>

using namespace tsms;
using namespace tsms::test;

namespace {

void ReadAsWorkbook(const QByteArray& bytes)
{
    QByteArray content = bytes;
    QBuffer file(&content);
    file.open(QIODevice::ReadOnly);
    ExpectReadOrRefused([&] { return ReadWorkbook(file, 3); });
}

const Target workbook("workbook", ReadAsWorkbook);

} // namespace

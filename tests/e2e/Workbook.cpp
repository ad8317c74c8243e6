// What a driver of the real program needs of workbooks:
//   workbook make FILE     writes one with three sheets, whose first has rows to be imported
//   workbook print FILE    prints the first sheet, a line a row, with tabs between the cells
#include "runtime/ProcessRules.h"
#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/WorkbookMaker.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int MostColumns = 20;

/// Three rows, of which the second has no mobile number.
bool Make(QFile& file)
{
    const QByteArray book = WorkbookOf({{QStringLiteral("김하늘"), QStringLiteral("010-0000-0001")},
                                        {QStringLiteral("이바다"), QStringLiteral("02-000-0002")},
                                        {QStringLiteral("박나무"), QStringLiteral("011-000-0003")}});
    return file.open(QIODevice::WriteOnly) && file.write(book) == book.size();
}

bool Print(QFile& file)
{
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const WorkbookTexts book = ReadWorkbook(file, MostColumns);
    QTextStream out(stdout);
    for (int row = 1; row <= book.firstSheet->Rows(); ++row) {
        QStringList cells;
        for (int col = 1; col <= book.firstSheet->Cols(); ++col)
            cells += book.firstSheet->Text(col, row);
        out << cells.join(u'\t') << '\n';
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    TakeWordsAsUtf8();
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    QFile file(words.value(2));
    const bool done = words.value(1) == u"make" ? Make(file) : Print(file);
    return done ? 0 : 1;
}

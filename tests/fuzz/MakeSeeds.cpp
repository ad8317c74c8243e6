// Writes good files for the fuzzers to begin with:
//   fuzz-seeds <folder>
#include "runtime/CodePage949.h"
#include "support/RecipientFile.h"
#include "support/spreadsheet/CompoundMaker.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <QDir>
#include <QFile>

using namespace tsms;
using namespace tsms::test;

namespace {

void Write(const QDir& folder, const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(file.fileName()));
}

/// A workbook with all kinds of records that are read.
QByteArray Stream(WorkbookMaker::Version version, int recordLimit)
{
    WorkbookMaker book(version);
    book.recordLimit = recordLimit;
    book.codePage = version == WorkbookMaker::Version::Biff5 ? 949 : 1200;
    book.from1904 = recordLimit > 1000;
    const int hyphens = book.AddFormat(u"[<=9999999]###-####;(0##) ###-####"_q);
    const int date = book.AddFormat(u"yyyy\"년\" m\"월\""_q);
    const int plain = book.AddBuiltInFormat(4);
    book.Share(u"모양이 여럿인 글"_q, 3);
    book.AddSheet(u"회원"_q)
        .Text(1, 1, u"홍길동과 그의 긴 이름"_q)
        .Number(2, 1, 1012345678, hyphens)
        .TextFormula(3, 1, u"값입니다 값입니다"_q)
        .MulRK(1, 2, {6, 10, 14}, plain)
        .RK(1, 3, (12345u << 2) | 3, date)
        .Truth(2, 3, true)
        .Error(3, 3, 7)
        .NumberFormula(1, 4, 41059.5, date)
        .OtherFormula(2, 4, 1, 1)
        .OtherFormula(3, 4, 3, 0)
        .Text(1, 5, u"plain latin"_q);
    book.AddSheet(u"둘"_q, WorkbookMaker::Visibility::Hidden);
    book.AddSheet(u"그림"_q, WorkbookMaker::Visibility::Shown, WorkbookMaker::Kind::Chart);
    return book.Stream();
}

void WriteWorkbooks(const QDir& files, const QDir& streams)
{
    int number = 0;
    for (const auto version : {WorkbookMaker::Version::Biff5, WorkbookMaker::Version::Biff8})
        for (const int recordLimit : {20, 8224}) {
            const QByteArray stream = Stream(version, recordLimit);
            Write(streams, u"stream%1"_q.arg(++number), stream);
            for (const int sectorBytes : {512, 4096})
                for (const qsizetype size : {stream.size(), qsizetype(5000)}) { // in mini sectors or not
                    CompoundMaker file;
                    file.sectorBytes = sectorBytes;
                    file.backwards = sectorBytes == 512;
                    file.spareEntries = recordLimit == 20 ? 5 : 0;
                    file.streams = {{u"Other"_q, "other", true},
                                    {version == WorkbookMaker::Version::Biff5 ? u"Book"_q : u"Workbook"_q,
                                     stream + QByteArray(size - stream.size(), '\0')}};
                    Write(files, u"book%1-%2-%3.xls"_q.arg(number).arg(sectorBytes).arg(size), file.Make());
                }
        }
}

void WriteRecipientFiles(const QDir& folder)
{
    const auto record = [](const QString& name, const QByteArray& phone) {
        return RecipientRecordBytes(ToCodePage949(name), phone);
    };
    const QByteArray records = record(u"김하늘"_q, "010-1111-1111") + record(u"이바다"_q, "01011111111") +
                               record(u"가나다라마바사아자a차"_q, "02-1") + record(u""_q, "011/2.2") +
                               record(u"박나무"_q, "016 3");
    Write(folder, u"none"_q, QByteArray(1, '\0'));
    Write(folder, u"few"_q, '\0' + records);
    Write(folder, u"listed"_q, '\4' + records + records);
    Write(folder, u"cut"_q, '\1' + records.chopped(100));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const QString& name : {u"workbook"_q, u"workbook-stream"_q, u"recipient-file"_q})
        folder.mkpath(name);
    WriteWorkbooks(folder.filePath(u"workbook"_q), folder.filePath(u"workbook-stream"_q));
    WriteRecipientFiles(folder.filePath(u"recipient-file"_q));
    return 0;
}

#include "runtime/RuntimeError.h"
#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/LittleEndian.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <algorithm>
#include <random>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int Columns = 3;

using Version = WorkbookMaker::Version;

/// 321 for a refused workbook, 0 for one that is read. Anything else fails by itself.
long Error(const QByteArray& stream)
{
    try {
        ReadWorkbookStream(stream, Columns);
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

long Error(const WorkbookMaker& book)
{
    return Error(book.Stream());
}

/// A workbook with all that is read, and with shared texts in several records.
class SmallWorkbook : public WorkbookMaker
{
public:
    explicit SmallWorkbook(Version version) : WorkbookMaker(version)
    {
        codePage = version == Version::Biff5 ? 949 : 1200;
        recordLimit = 40;
        const int hyphens = AddFormat(u"000-0000-0000"_q);
        AddSheet(u"회원"_q)
            .Text(1, 1, u"홍길동과 그의 긴 이름이 여기 있습니다"_q)
            .Number(2, 1, 1012345678, hyphens)
            .TextFormula(3, 1, u"값입니다"_q)
            .MulRK(1, 2, {6, 10})
            .Truth(3, 2, true)
            .OtherFormula(1, 3, 2, 7);
        AddSheet(u"둘"_q);
        AddSheet(u"셋"_q);
    }
};

class DamagedWorkbooks : public ::testing::TestWithParam<Version>
{
};

INSTANTIATE_TEST_SUITE_P(Both, DamagedWorkbooks, ::testing::Values(Version::Biff5, Version::Biff8),
                         [](const auto& version) {
                             return version.param == Version::Biff5 ? "Biff5" : "Biff8";
                         });

TEST_P(DamagedWorkbooks, OneThatIsCutAnywhereUpToTheEndOfItsFirstSheetIsRefused)
{
    const QByteArray stream = SmallWorkbook(GetParam()).Stream();
    ASSERT_EQ(Error(stream), NoError);
    const qsizetype emptySheet = GetParam() == Version::Biff8 ? 20 + 18 + 4 : 12 + 14 + 4;
    const qsizetype firstSheetEnd = stream.size() - 2 * emptySheet;
    for (qsizetype size = 0; size < firstSheetEnd; ++size)
        ASSERT_EQ(Error(stream.first(size)), InvalidFileFormat) << size;
    EXPECT_EQ(Error(stream.first(firstSheetEnd)), NoError);
}

TEST_P(DamagedWorkbooks, AnyByteMayBeWrong)
{
    const QByteArray stream = SmallWorkbook(GetParam()).Stream();
    for (qsizetype at = 0; at < stream.size(); ++at)
        for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
            QByteArray damaged = stream;
            damaged[at] = static_cast<char>(value);
            const long error = Error(damaged);
            ASSERT_TRUE(error == NoError || error == InvalidFileFormat) << at << ", " << value;
        }
}

TEST_P(DamagedWorkbooks, ManyBytesMayBeWrong)
{
    const QByteArray file = SmallWorkbook(GetParam()).File();
    std::mt19937 random(20120530);
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = file;
        for (int i = 0; i < 1 + round % 40; ++i)
            damaged[static_cast<qsizetype>(random() % static_cast<unsigned>(file.size()))] =
                static_cast<char>(random());
        QBuffer device(&damaged);
        device.open(QIODevice::ReadOnly);
        try {
            const WorkbookTexts texts = ReadWorkbook(device, Columns);
            EXPECT_LE(texts.firstSheet ? texts.firstSheet->Rows() : 0, 65536);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, InvalidFileFormat);
        }
    }
}

TEST_P(DamagedWorkbooks, ASheetThatThereIsNotIsRefused)
{
    WorkbookMaker book(GetParam());
    book.AddSheet(u"그림"_q, WorkbookMaker::Visibility::Shown, WorkbookMaker::Kind::Chart);
    const QByteArray stream = book.Stream();
    const qsizetype kind = stream.indexOf(QByteArray("\x85\x00", 2)) + 9;
    QByteArray called = stream;
    called[kind] = 0; // a worksheet
    EXPECT_EQ(Error(called), InvalidFileFormat);
    const qsizetype sheet = stream.lastIndexOf(QByteArray("\x09\x08", 2));
    called.truncate(sheet);
    EXPECT_EQ(Error(called), InvalidFileFormat);
}

TEST_P(DamagedWorkbooks, AnotherVersionIsRefused)
{
    QByteArray stream = SmallWorkbook(GetParam()).Stream();
    for (const int version : {0x0000, 0x0200, 0x0400, 0x0700, 0xFFFF}) {
        qToLittleEndian(static_cast<quint16>(version), stream.data() + 4);
        EXPECT_EQ(Error(stream), InvalidFileFormat);
    }
}

TEST_P(DamagedWorkbooks, MoreFormatsThanAnyWorkbookHasAreRefused)
{
    WorkbookMaker book(GetParam());
    book.AddSheet(u"하나"_q);
    for (int i = 0; i < 8191; ++i)
        book.AddBuiltInFormat(1);
    EXPECT_EQ(Error(book), NoError);
    book.AddBuiltInFormat(1);
    EXPECT_EQ(Error(book), InvalidFileFormat);
}

TEST(DamagedBiff8, MoreSharedTextsThanAnyWorkbookHasAreRefused)
{
    constexpr int most = 1 << 20;
    constexpr int inRecord = 1 << 11;
    const auto withTexts = [inRecord](int texts) {
        QByteArray table = WorkbookMaker::OneRecord(0x00FC, QByteArray(8, '\0'));
        for (; texts > 0; texts -= inRecord) // each is empty, in three bytes
            table += WorkbookMaker::OneRecord(0x003C, QByteArray(3 * std::min<int>(texts, inRecord), '\0'));
        QByteArray stream = WorkbookMaker().Stream();
        return stream.insert(stream.size() - 4, table);
    };
    EXPECT_EQ(Error(withTexts(most)), NoError);
    EXPECT_EQ(Error(withTexts(most + 1)), InvalidFileFormat);
}

TEST(DamagedBiff8, OneTextInMoreCellsThanAllTextsMayHaveIsRefused)
{
    // 32,767 characters in each of 1,025 cells, which share one text: small in the file, large in a list.
    WorkbookMaker book;
    WorkbookMaker::Sheet& sheet = book.AddSheet(u"하나"_q);
    sheet.Text(1, 1, QString(32767, u'가'));
    const auto addCell = [&](int row) {
        sheet.Record(0x00FD, LittleEndian().U16(row - 1).U16(0).U16(0).U32(0).bytes);
    };
    for (int row = 2; row <= 1024; ++row)
        addCell(row);
    EXPECT_EQ(Error(book), NoError);
    addCell(1025);
    EXPECT_EQ(Error(book), InvalidFileFormat);
}

TEST(DamagedBiff8, MoreSheetsThanACountOfSixteenBitsAreRefused)
{
    WorkbookMaker book;
    for (int i = 0; i < 32767; ++i)
        book.AddSheet(u"s"_q);
    EXPECT_EQ(Error(book), NoError);
    book.AddSheet(u"s"_q);
    EXPECT_EQ(Error(book), InvalidFileFormat);
}

} // namespace

// Workbooks that make much of little: none may take more memory than its size allows.
#include "runtime/RuntimeError.h"
#include "spreadsheet/read/CountedHeap.h"
#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int Columns = 3;
constexpr int Rows = 65536;
constexpr int Styles = 8191; // beside the one that every workbook has

/// The most bytes held at once while the workbook is read or refused, its texts among them.
qint64 BytesToRead(QByteArray& bytes)
{
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    ForgetPeak();
    try {
        ReadWorkbook(file, Columns);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, InvalidFileFormat);
    }
    return PeakBytes();
}

void ExpectModest(const WorkbookMaker& workbook)
{
    QByteArray bytes = workbook.File();
    const qint64 most = (qint64{20} << 20) + 20 * bytes.size();
    const qint64 peak = BytesToRead(bytes);
    EXPECT_LE(peak, most) << "of a file of " << bytes.size() << " bytes";
    ::testing::Test::RecordProperty("peakBytes", std::to_string(peak));
    ::testing::Test::RecordProperty("fileBytes", std::to_string(bytes.size()));
}

class WorkbookMemory : public ::testing::TestWithParam<WorkbookMaker::Version>
{
protected:
    WorkbookMaker book{GetParam()};
    WorkbookMaker::Sheet& sheet = book.AddSheet(u"하나"_q);
};

INSTANTIATE_TEST_SUITE_P(Both, WorkbookMemory,
                         ::testing::Values(WorkbookMaker::Version::Biff5, WorkbookMaker::Version::Biff8),
                         [](const auto& version) {
                             return version.param == WorkbookMaker::Version::Biff5 ? "Biff5" : "Biff8";
                         });

TEST_P(WorkbookMemory, AFormatIsReadOnceHoweverManyStylesHaveIt)
{
    constexpr int firstOwnFormat = 164;
    book.AddFormat(QString(255, u'0'));
    for (int i = 1; i < Styles; ++i)
        book.AddBuiltInFormat(firstOwnFormat);
    ExpectModest(book);
    EXPECT_LE(PeakBytes(), 2 << 20);
}

TEST_P(WorkbookMemory, EveryStyleMayHaveALongFormatOfItsOwn)
{
    for (int i = 0; i < Styles; ++i)
        book.AddFormat(QString::number(i).rightJustified(255, u'0'));
    ExpectModest(book);
}

TEST_P(WorkbookMemory, EveryStyleMayHaveAFormatOfManySections)
{
    for (int i = 0; i < Styles; ++i)
        book.AddFormat(QString::number(i).rightJustified(255, u';'));
    ExpectModest(book);
}

TEST_P(WorkbookMemory, NumbersMayShowLongWords)
{
    const int words = book.AddFormat(u"\""_q + QString(253, u'a') + u"\""_q);
    for (int col = 1; col <= Columns; ++col)
        sheet.OwnText(col, Rows, u"끝"_q);
    for (int row = 1; row <= 9000; ++row) // more than one workbook may have, in a small file
        sheet.MulRK(1, row, {2, 6, 10}, words);
    ExpectModest(book);
}

TEST_P(WorkbookMemory, NumbersMayShowManyDigits)
{
    const int digits = book.AddFormat(u"0."_q + QString(240, u'0') + u"%%%%%%%%"_q);
    for (int row = 1; row <= Rows; ++row)
        sheet.Number(1, row, 1e308, digits);
    ExpectModest(book);
}

TEST_P(WorkbookMemory, EachCellMayHaveAShortTextOfItsOwn)
{
    for (int row = 1; row <= Rows; ++row)
        for (int col = 1; col <= Columns; ++col)
            sheet.OwnText(col, row, u"가"_q);
    ExpectModest(book);
}

TEST_P(WorkbookMemory, TextsMayStandInTheLastRowAlone)
{
    for (int col = 1; col <= Columns; ++col)
        sheet.OwnText(col, Rows, u"가"_q);
    ExpectModest(book);
}

TEST_P(WorkbookMemory, ThereMayBeManySheets)
{
    for (int i = 1; i < 32767; ++i)
        book.AddSheet(u"s"_q);
    ExpectModest(book);
}

TEST_P(WorkbookMemory, AFullSheetOfOrdinaryNumbersIsRead)
{
    const int phone = book.AddFormat(u"\"전화 \"000-0000-0000"_q);
    for (int row = 1; row <= Rows; ++row)
        for (int col = 1; col <= Columns; ++col)
            sheet.Number(col, row, 1012345678, phone);
    ExpectModest(book);
    EXPECT_EQ(ReadWorkbookStream(book.Stream(), Columns).firstSheet->Text(Columns, Rows),
              u"전화 010-1234-5678"_q);
}

TEST(SharedTextMemory, ThereMayBeManyShortTexts)
{
    WorkbookMaker book;
    book.AddSheet(u"하나"_q);
    for (int i = 0; i <= 1 << 19; ++i)
        book.Share(u"a"_q);
    ExpectModest(book);
}

TEST(SharedTextMemory, MoreTextsMayBeToldThanThereAre)
{
    WorkbookMaker book;
    book.AddSheet(u"하나"_q).Text(1, 1, u"a"_q);
    book.toldStrings = 1 << 20;
    ExpectModest(book);
}

} // namespace

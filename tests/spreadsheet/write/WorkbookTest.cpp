#include "spreadsheet/write/WriteWorkbook.h"

#include "spreadsheet/write/TableSheet.h"
#include "support/Words.h"
#include "support/workbooks/FreeXlReader.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using namespace tsms;
using namespace tsms::test;

namespace {

/// Writes sheets and reads them back with a reader that is not ours.
class Workbook : public ::testing::Test
{
protected:
    ReadBook WriteAndRead(const Sheet& sheet)
    {
        WriteWorkbook(path, sheet);
        return ReadWithFreeXl(path);
    }

    /// The texts of a sheet of one column.
    QStringList Column(const QStringList& texts)
    {
        QStringList read;
        for (const QVariantList& row : WriteAndRead(ColumnSheet(texts)).rows)
            read += row[0].toString();
        return read;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"월별발송현황20240229.xls"_q);
};

TEST_F(Workbook, HasOneSheetOfTheGivenName)
{
    Sheet sheet = TableSheet({{u"이름"_q}});
    EXPECT_EQ(WriteAndRead(sheet).sheets, QStringList{u"Sheet1"_q});
    sheet.name = u"발송 내역"_q;
    EXPECT_EQ(WriteAndRead(sheet).sheets, QStringList{u"발송 내역"_q});
}

TEST_F(Workbook, GivesEveryKindOfTextBackCellByCell)
{
    const QList<QStringList> rows{
        {u"이름"_q, u"번호"_q, u"내용"_q},
        {u"홍길동"_q, u"010-0000-0001"_q, u"안녕하세요"_q},
        {u"Latin-1: àéîõü ÿ"_q, u"0100000002"_q, u"\"따옴표\", 쉼표; 탭\t끝"_q},
        {u" 앞뒤 빈칸 "_q, u"=1+1"_q, u"여러 줄\n둘째 줄\n\n넷째 줄"_q},
        {u"😀 뷁 𠮷"_q, u"'"_q, u"\u0001\u001F\u007F\uFFFF"_q},
    };
    const ReadBook read = WriteAndRead(TableSheet(rows));
    ASSERT_EQ(read.rows.size(), rows.size());
    for (qsizetype row = 0; row < rows.size(); ++row)
        for (qsizetype column = 0; column < 3; ++column)
            EXPECT_EQ(read.rows[row][column].toString(), rows[row][column]);
}

TEST_F(Workbook, LineBreaksOfTheProgramBecomeThoseOfACell)
{
    EXPECT_EQ(Column({u"첫 줄\r\n둘째 줄"_q}), QStringList{u"첫 줄\n둘째 줄"_q});
}

TEST_F(Workbook, AnEmptyTextIsNoCell)
{
    const ReadBook read = WriteAndRead(TableSheet({{u"가"_q, u""_q}, {u""_q, u""_q}, {u""_q, u"나"_q}}));
    ASSERT_EQ(read.rows.size(), 3);
    EXPECT_EQ(read.rows[0], (QVariantList{u"가"_q, QVariant()}));
    EXPECT_EQ(read.rows[1], (QVariantList{QVariant(), QVariant()}));
    EXPECT_EQ(read.rows[2], (QVariantList{QVariant(), u"나"_q}));
}

struct NumberRow
{
    QString text;
    double number;
};

TEST_F(Workbook, ANumberColumnHoldsNumbersToTheLastBit)
{
    const QList<NumberRow> numbers{{u"0"_q, 0},
                                   {u"-0"_q, 0},
                                   {u" 12 "_q, 12},
                                   {u"+7"_q, 7},
                                   {u"-1"_q, -1},
                                   {u"007"_q, 7},
                                   {u"536870911"_q, 536870911},
                                   {u"536870912"_q, 536870912},
                                   {u"-536870912"_q, -536870912},
                                   {u"-536870913"_q, -536870913},
                                   {u"99.95"_q, 99.95},
                                   {u"0.1"_q, 0.1},
                                   {u"1e3"_q, 1000},
                                   {u"1e300"_q, 1e300},
                                   {u"-1.7976931348623157e308"_q, -1.7976931348623157e308},
                                   {u"123456789012345"_q, 123456789012345.0}};
    QList<QStringList> rows{{u"수"_q}};
    for (const NumberRow& number : numbers)
        rows += QStringList{number.text};
    Sheet sheet = TableSheet(rows);
    sheet.columns[0].number = true;
    const ReadBook read = WriteAndRead(sheet);
    ASSERT_EQ(read.rows.size(), rows.size());
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        EXPECT_EQ(read.rows[i + 1][0].typeId(), QMetaType::Double) << numbers[i].text.toStdString();
        EXPECT_EQ(read.rows[i + 1][0].toDouble(), numbers[i].number) << numbers[i].text.toStdString();
    }
}

TEST_F(Workbook, WhatIsNoNumberStaysATextInANumberColumn)
{
    const QStringList texts{u"가"_q, u"1-2"_q, u"1,000"_q, u"1 2"_q, u"12원"_q, u"1e400"_q, u"nan"_q};
    QList<QStringList> rows{{u"수"_q}};
    for (const QString& text : texts)
        rows += QStringList{text};
    Sheet sheet = TableSheet(rows);
    sheet.columns[0].number = true;
    const ReadBook read = WriteAndRead(sheet);
    for (qsizetype i = 0; i < texts.size(); ++i)
        EXPECT_EQ(read.rows[i + 1][0], QVariant(texts[i]));
}

TEST_F(Workbook, ANumberInATextColumnOrATitleRowIsAText)
{
    Sheet sheet = TableSheet({{u"1"_q, u"2"_q}, {u"0101234"_q, u"3"_q}});
    sheet.columns[1].number = true;
    const ReadBook read = WriteAndRead(sheet);
    EXPECT_EQ(read.rows[0], (QVariantList{u"1"_q, u"2"_q}));
    EXPECT_EQ(read.rows[1], (QVariantList{u"0101234"_q, 3.0}));
}

/// The table of texts goes on in a new record every 8,224 bytes. The first text pushes the others, byte by
/// byte, over that edge.
TEST_F(Workbook, TextsMayStandAnywhereOnTheEdgeOfARecord)
{
    for (int filler = 8150; filler < 8224; ++filler) {
        const QStringList texts{
            QString(filler, u'x'), u"latin"_q, u"한글이다"_q, u"😀😀😀"_q, u"a"_q, QString(2000, u'힣'),
        };
        ASSERT_EQ(Column(texts), texts) << filler;
    }
}

TEST_F(Workbook, ManyTextsOfAllLengthsComeBack)
{
    std::mt19937 random(7);
    const QList<char16_t> letters{u'a', u'é', u'가', u'힣', u'\n'};
    QStringList texts;
    for (int i = 0; i < 3000; ++i) {
        const QChar letter(letters[static_cast<qsizetype>(random() % 5)]);
        const auto length = static_cast<qsizetype>(i % 50 == 0 ? random() % 4000 : random() % 100);
        texts += QString::number(i) + QString(length, letter);
    }
    EXPECT_EQ(Column(texts), texts);
}

TEST_F(Workbook, EqualTextsComeBackInEveryPlace)
{
    QStringList texts;
    for (int i = 0; i < 5000; ++i)
        texts += i % 3 == 0 ? u"전송완료"_q : u"번호 %1"_q.arg(i % 700);
    EXPECT_EQ(Column(texts), texts);
}

TEST_F(Workbook, TextsThatDifferOnlyInWidthOrLengthAreNotTakenForEqual)
{
    const QStringList texts{u"ab"_q, u"a"_q, u"\u6261"_q, u"abc"_q, u"\u0100"_q, u"\u0001"_q};
    EXPECT_EQ(Column(texts), texts);
}

TEST_F(Workbook, HoldsAllRowsOfTheFormat)
{
    Sheet sheet;
    sheet.columns.resize(2);
    sheet.columns[1].number = true;
    sheet.rows = 65536;
    QString text;
    sheet.text = [&](int col, int row) -> QStringView {
        text = (col == 1 ? u"행 %1"_q : u"%1"_q).arg(row);
        return text;
    };
    const ReadBook read = WriteAndRead(sheet);
    ASSERT_EQ(read.rows.size(), 65536);
    EXPECT_EQ(read.rows[0], (QVariantList{u"행 1"_q, u"1"_q}));
    for (int row = 2; row <= 65536; ++row)
        ASSERT_EQ(read.rows[row - 1], (QVariantList{u"행 %1"_q.arg(row), double(row)}));
}

TEST_F(Workbook, HoldsAllColumnsOfTheFormat)
{
    QStringList titles;
    QStringList cells;
    for (int column = 1; column <= 256; ++column) {
        titles += u"열 %1"_q.arg(column);
        cells += QString::number(column);
    }
    const ReadBook read =
        WriteAndRead(TableSheet(QList<QStringList>{titles} + QList<QStringList>(70, cells)));
    ASSERT_EQ(read.rows.size(), 71);
    for (int column = 0; column < 256; ++column) {
        EXPECT_EQ(read.rows[0][column].toString(), titles[column]);
        EXPECT_EQ(read.rows[70][column].toString(), cells[column]);
    }
}

TEST_F(Workbook, MayBeWithoutRowsOrColumns)
{
    EXPECT_EQ(WriteAndRead(TableSheet({})).sheets, QStringList{u"Sheet1"_q});
    Sheet sheet = TableSheet({{}, {}});
    EXPECT_EQ(WriteAndRead(sheet).sheets, QStringList{u"Sheet1"_q});
}

TEST_F(Workbook, MayHaveMoreTitleRowsThanRows)
{
    Sheet sheet = TableSheet({{u"가"_q}});
    sheet.titleRows = 2;
    EXPECT_EQ(WriteAndRead(sheet).rows, QList<QVariantList>{{u"가"_q}});
}

TEST_F(Workbook, ItsCellsAreAskedOnceAndRowByRow)
{
    QList<QPair<int, int>> asked;
    Sheet sheet;
    sheet.columns.resize(2);
    sheet.rows = 2;
    sheet.text = [&](int col, int row) -> QStringView {
        asked += qMakePair(col, row);
        return u"x";
    };
    WriteWorkbook(path, sheet);
    EXPECT_EQ(asked, (QList<QPair<int, int>>{{1, 1}, {2, 1}, {1, 2}, {2, 2}}));
}

TEST_F(Workbook, TheSameSheetGivesTheSameBytes)
{
    const Sheet sheet = TableSheet({{u"가"_q, u"나"_q}, {u"다"_q, u"12"_q}});
    const auto bytes = [&] {
        WriteWorkbook(path, sheet);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    EXPECT_EQ(bytes(), bytes());
}

} // namespace

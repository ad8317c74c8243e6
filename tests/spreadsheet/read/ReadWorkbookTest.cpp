#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/LittleEndian.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int ReadColumns = 3;

using Version = WorkbookMaker::Version;

WorkbookTexts Read(const WorkbookMaker& book)
{
    QByteArray bytes = book.File();
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    return ReadWorkbook(file, ReadColumns);
}

QString Text(const WorkbookTexts& texts, int col, int row)
{
    return texts.firstSheet->Text(col, row);
}

class Workbooks : public ::testing::TestWithParam<Version>
{
protected:
    WorkbookMaker book{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Both, Workbooks, ::testing::Values(Version::Biff5, Version::Biff8),
                         [](const auto& version) {
                             return version.param == Version::Biff5 ? "Biff5" : "Biff8";
                         });

TEST_P(Workbooks, TextsOfTheFirstSheetAreRead)
{
    book.AddSheet(u"회원"_q).Text(1, 1, u"홍길동"_q).Text(2, 1, u"010-1234-5678"_q).Text(3, 2, u"Ä 값"_q);
    book.AddSheet(u"둘"_q).Text(1, 1, u"다른 시트"_q);
    if (GetParam() == Version::Biff5)
        book.AddSheet(u"셋"_q);
    const WorkbookTexts texts = Read(book);
    EXPECT_EQ(texts.firstSheet->Rows(), 2);
    EXPECT_EQ(texts.firstSheet->Cols(), 3);
    EXPECT_EQ(Text(texts, 1, 1), u"홍길동"_q);
    EXPECT_EQ(Text(texts, 2, 1), u"010-1234-5678"_q);
    EXPECT_EQ(Text(texts, 3, 1), QString());
    EXPECT_EQ(Text(texts, 1, 2), QString());
    EXPECT_EQ(Text(texts, 3, 2), GetParam() == Version::Biff5 ? u"? 값"_q : u"Ä 값"_q); // 949 has no Ä
}

TEST_P(Workbooks, WorksheetsAreListedInTheirOrderHiddenOnesTooButNoChartsAndMacros)
{
    book.AddSheet(u"그림"_q, WorkbookMaker::Visibility::Shown, WorkbookMaker::Kind::Chart);
    book.AddSheet(u"회원"_q, WorkbookMaker::Visibility::Hidden).Text(1, 1, u"숨은"_q);
    book.AddSheet(u"Sheet2"_q, WorkbookMaker::Visibility::VeryHidden);
    book.AddSheet(u"Module1"_q, WorkbookMaker::Visibility::Shown, WorkbookMaker::Kind::Macros);
    book.AddSheet(u"Sheet3"_q);
    const WorkbookTexts texts = Read(book);
    EXPECT_EQ(texts.sheets, (QStringList{u"회원"_q, u"Sheet2"_q, u"Sheet3"_q}));
    EXPECT_EQ(Text(texts, 1, 1), u"숨은"_q);
}

TEST_P(Workbooks, NumbersComeAsAPersonSeesThemInTheCell)
{
    const int hyphens = book.AddFormat(u"000-0000-0000"_q);
    const int zeros = book.AddFormat(u"00000000000"_q);
    const int words = book.AddFormat(u"\"전화 \"000"_q);
    const int day = book.AddBuiltInFormat(14);
    book.AddSheet(u"수"_q)
        .Number(1, 1, 1012345678, hyphens)
        .Number(1, 2, 1012345678, zeros)
        .Number(1, 3, 1012345678)
        .Number(1, 4, 7, words)
        .Number(1, 5, 41059.0, day)
        .Number(1, 6, 0.5)
        .Number(1, 7, 1012345678, 4711); // a format that there is not
    const WorkbookTexts texts = Read(book);
    const QStringList seen{u"010-1234-5678"_q, u"01012345678"_q, u"1012345678"_q, u"전화 007"_q,
                           u"2012-05-30"_q,    u"0.5"_q,         u"1012345678"_q};
    ASSERT_EQ(texts.firstSheet->Rows(), seen.size());
    for (int row = 1; row <= seen.size(); ++row)
        EXPECT_EQ(Text(texts, 1, row), seen[row - 1]);
}

TEST_P(Workbooks, PackedNumbersAreUnpacked)
{
    const int hyphens = book.AddFormat(u"000-000-0000"_q);
    book.AddSheet(u"수"_q)
        .RK(1, 1, (111234567u << 2) | 2, hyphens)
        .RK(2, 1, static_cast<quint32>(-5 * 4) | 2)
        .RK(3, 1, (12345u << 2) | 3) // in hundredths
        .RK(1, 2, 0x3FF80000)        // the upper half of 1.5
        .RK(2, 2, 0x40590000 | 1)    // a hundredth of 100
        .MulRK(1, 3, {(1u << 2) | 2, (2u << 2) | 2})
        .MulRK(3, 4, {(3u << 2) | 2, (4u << 2) | 2, (5u << 2) | 2}); // into columns that nobody wants
    const WorkbookTexts texts = Read(book);
    const QStringList seen[] = {{u"011-123-4567"_q, u"-5"_q, u"123.45"_q},
                                {u"1.5"_q, u"1"_q, {}},
                                {u"1"_q, u"2"_q, {}},
                                {{}, {}, u"3"_q}};
    for (int row = 1; row <= 4; ++row)
        for (int col = 1; col <= 3; ++col)
            EXPECT_EQ(Text(texts, col, row), seen[row - 1][col - 1]) << col << ", " << row;
}

TEST_P(Workbooks, FormulasShowWhatTheyCameTo)
{
    const int hyphens = book.AddFormat(u"000-0000-0000"_q);
    book.AddSheet(u"식"_q)
        .TextFormula(1, 1, u"홍길동"_q)
        .NumberFormula(2, 1, 1012345678, hyphens)
        .OtherFormula(1, 2, 1, 1)
        .OtherFormula(2, 2, 1, 0)
        .OtherFormula(3, 2, 2, 0x2A)
        .OtherFormula(1, 3, 3, 0)
        .Text(2, 3, u"뒤"_q);
    const WorkbookTexts texts = Read(book);
    const QStringList seen[] = {
        {u"홍길동"_q, u"010-1234-5678"_q, {}}, {u"TRUE"_q, u"FALSE"_q, u"#N/A"_q}, {{}, u"뒤"_q, {}}};
    for (int row = 1; row <= 3; ++row)
        for (int col = 1; col <= 3; ++col)
            EXPECT_EQ(Text(texts, col, row), seen[row - 1][col - 1]) << col << ", " << row;
}

TEST_P(Workbooks, TheTextOfAFormulaMayComeBehindOtherRecords)
{
    constexpr int sharedFormula = 0x04BC;
    WorkbookMaker::Sheet& sheet = book.AddSheet(u"식"_q);
    sheet.OtherFormula(1, 1, 0, 0).Record(sharedFormula, QByteArray(20, '\0'));
    const QByteArray text = GetParam() == Version::Biff5 ? LittleEndian().U16(2).Raw("ab").bytes
                                                         : LittleEndian().U16(2).U8(0).Raw("ab").bytes;
    sheet.Record(0x0207, text).Record(0x0207, text); // the second belongs to nobody
    EXPECT_EQ(Text(Read(book), 1, 1), u"ab"_q);
}

TEST_P(Workbooks, TruthAndErrorsShowTheirWords)
{
    WorkbookMaker::Sheet& sheet = book.AddSheet(u"값"_q);
    sheet.Truth(1, 1, true).Truth(2, 1, false);
    const std::pair<int, QString> errors[] = {{0x00, u"#NULL!"_q}, {0x07, u"#DIV/0!"_q}, {0x0F, u"#VALUE!"_q},
                                              {0x17, u"#REF!"_q},  {0x1D, u"#NAME?"_q},  {0x24, u"#NUM!"_q},
                                              {0x2A, u"#N/A"_q}};
    int row = 1;
    for (const auto& [code, words] : errors)
        sheet.Error(1, ++row, code);
    const WorkbookTexts texts = Read(book);
    EXPECT_EQ(Text(texts, 1, 1), u"TRUE"_q);
    EXPECT_EQ(Text(texts, 2, 1), u"FALSE"_q);
    row = 1;
    for (const auto& [code, words] : errors)
        EXPECT_EQ(Text(texts, 1, ++row), words);
}

TEST_P(Workbooks, RowsEndWithTheLastTextOfTheColumnsThatAreRead)
{
    book.AddSheet(u"끝"_q).Text(1, 1, u"가"_q).Text(2, 5, u"나"_q).Blank(1, 9).Text(4, 20, u"밖"_q);
    EXPECT_EQ(Read(book).firstSheet->Rows(), 5);
}

TEST_P(Workbooks, AnEmptySheetHasNoRows)
{
    book.AddSheet(u"빈"_q);
    EXPECT_EQ(Read(book).firstSheet->Rows(), 0);
}

TEST_P(Workbooks, ALaterRecordOfACellReplacesItsText)
{
    book.AddSheet(u"값"_q).Text(1, 1, u"먼저"_q).Number(1, 1, 5);
    EXPECT_EQ(Text(Read(book), 1, 1), u"5"_q);
}

TEST_P(Workbooks, TheLastRowOfASheetIsRead)
{
    book.AddSheet(u"끝"_q).Text(3, 65536, u"맨 끝"_q);
    const WorkbookTexts texts = Read(book);
    EXPECT_EQ(texts.firstSheet->Rows(), 65536);
    EXPECT_EQ(Text(texts, 3, 65536), u"맨 끝"_q);
}

TEST_P(Workbooks, DatesCountFromTheDayThatTheWorkbookSays)
{
    book.from1904 = true;
    const int day = book.AddBuiltInFormat(14);
    book.AddSheet(u"날"_q).Number(1, 1, 39597, day);
    EXPECT_EQ(Text(Read(book), 1, 1), u"2012-05-30"_q);
}

TEST_P(Workbooks, ChartsWithinASheetAreSkipped)
{
    const QByteArray chart = LittleEndian().U16(static_cast<int>(GetParam())).U16(0x0020).Fill(12).bytes;
    WorkbookMaker::Sheet& sheet = book.AddSheet(u"그림"_q);
    sheet.Text(1, 1, u"앞"_q).Record(0x0809, chart);
    sheet.OwnText(1, 1, u"그림의 글"_q).Record(0x000A, {}).Text(1, 2, u"뒤"_q);
    const WorkbookTexts texts = Read(book);
    EXPECT_EQ(Text(texts, 1, 1), u"앞"_q);
    EXPECT_EQ(Text(texts, 1, 2), u"뒤"_q);
}

TEST_P(Workbooks, AWorkbookWithoutWorksheetsListsNone)
{
    book.AddSheet(u"그림"_q, WorkbookMaker::Visibility::Shown, WorkbookMaker::Kind::Chart);
    const WorkbookTexts texts = Read(book);
    EXPECT_TRUE(texts.sheets.isEmpty());
    EXPECT_EQ(texts.firstSheet, nullptr);
}

TEST(Biff8, SharedTextsMayBeCutAnywhere)
{
    const QStringList shared{u"가나다라마바사아자차카타파하가나다라마바사"_q,
                             u"plain latin text that is long"_q, u""_q, u"섞인 mixed 글"_q, u"끝"_q};
    for (int limit = 14; limit < 120; ++limit) {
        WorkbookMaker book;
        book.recordLimit = limit;
        WorkbookMaker::Sheet& sheet = book.AddSheet(u"글"_q);
        for (int i = 0; i < shared.size(); ++i)
            sheet.Text(1, i + 1, shared[i]);
        const WorkbookTexts texts = Read(book);
        for (int i = 0; i < shared.size(); ++i)
            ASSERT_EQ(Text(texts, 1, i + 1), shared[i]) << "records of " << limit << " bytes";
    }
}

TEST(Biff8, FormatsOfPartsOfATextAreSkippedAlsoWhereTheyAreCut)
{
    for (int limit = 14; limit < 80; ++limit) {
        WorkbookMaker book;
        book.recordLimit = limit;
        book.Share(u"여러 모양의 글"_q, 9);
        book.AddSheet(u"글"_q)
            .Record(0x00FD, LittleEndian().U16(0).U16(0).U16(0).U32(0).bytes)
            .Text(2, 1, u"다음"_q);
        const WorkbookTexts texts = Read(book);
        ASSERT_EQ(Text(texts, 1, 1), u"여러 모양의 글"_q) << limit;
        ASSERT_EQ(Text(texts, 2, 1), u"다음"_q) << limit;
    }
}

TEST(Biff8, APartOfATextMayBeNarrowAndTheNextOneWide)
{
    // The shared texts by hand: "ab" in 8 bits, then "가" in 16.
    WorkbookMaker book;
    book.AddSheet(u"글"_q)
        .Record(0x0207, {})
        .OtherFormula(1, 1, 0, 0)
        .Record(0x0207, LittleEndian().U16(3).U8(0).Raw("ab").bytes)
        .Record(0x003C, LittleEndian().U8(1).U16(0xAC00).bytes);
    EXPECT_EQ(Text(Read(book), 1, 1), u"ab가"_q);
}

TEST(Biff8, ALongResultOfAFormulaRunsOverSeveralRecords)
{
    const QString result = u"긴 글 "_q.repeated(5000);
    WorkbookMaker book;
    book.AddSheet(u"글"_q).TextFormula(1, 1, result);
    EXPECT_EQ(Text(Read(book), 1, 1), result);
}

TEST(Biff8, ATextOfAllTheCharactersThatACellHoldsIsRead)
{
    const QString text(32767, u'가');
    WorkbookMaker book;
    book.AddSheet(u"글"_q).Text(1, 1, text);
    EXPECT_EQ(Text(Read(book), 1, 1), text);
}

TEST(Biff8, CharactersBeyondTheBasicPlaneStay)
{
    WorkbookMaker book;
    book.AddSheet(u"글"_q).Text(1, 1, u"𠀀😀"_q);
    EXPECT_EQ(Text(Read(book), 1, 1), u"𠀀😀"_q);
}

TEST(Biff5, TextsInBytesAreOfCodePage949UnlessTheWorkbookSaysAnother)
{
    for (const int codePage : {0, 949, 1200, 0x8000}) {
        WorkbookMaker book(Version::Biff5);
        book.codePage = codePage;
        book.AddSheet(u"회원"_q).OwnText(1, 1, u"홍길동"_q);
        const WorkbookTexts texts = Read(book);
        EXPECT_EQ(texts.sheets, QStringList{u"회원"_q});
        EXPECT_EQ(Text(texts, 1, 1), u"홍길동"_q);
    }
    WorkbookMaker book(Version::Biff5);
    book.codePage = 1252;
    book.AddSheet(u"Büro"_q).OwnText(1, 1, u"Jürgen"_q);
    const WorkbookTexts texts = Read(book);
    EXPECT_EQ(texts.sheets, QStringList{u"Büro"_q});
    EXPECT_EQ(Text(texts, 1, 1), u"Jürgen"_q);
}

/// A workbook of texts in bytes: a cell, the result of a formula, and a sheet's name.
class ByteBook : public WorkbookMaker
{
public:
    ByteBook(int page, const QByteArray& bytes, int format = 0) : WorkbookMaker(Version::Biff5)
    {
        codePage = page;
        const QByteArray text = LittleEndian().U16(static_cast<int>(bytes.size())).Raw(bytes).bytes;
        AddSheet(QString(bytes.size(), u'x'))
            .Record(0x0204, LittleEndian().U16(0).U16(0).U16(format).Raw(text).bytes)
            .OtherFormula(2, 1, 0, 0, format)
            .Record(0x0207, text);
        bytes_ = bytes;
    }

    WorkbookTexts Texts() const
    {
        QByteArray stream = Stream();
        return ReadWorkbookStream(stream.replace(QByteArray(bytes_.size(), 'x'), bytes_), ReadColumns);
    }

private:
    QByteArray bytes_;
};

TEST(Biff5, TextsAreOfTheCodePageThatTheWorkbookSays)
{
    const struct
    {
        int codePage;
        const char* bytes;
        QString text;
    } rows[] = {{874, "\xA1\xA2", u"กข"_q},           {932, "\x93\xFA\x96\x7B", u"日本"_q},
                {936, "\xD6\xD0\xB9\xFA", u"中国"_q}, {949, "\xC8\xAB\xB1\xE6", u"홍길"_q},
                {950, "\xA4\xA4\xB0\xEA", u"中國"_q}, {1250, "\x8A\x9E", u"Šž"_q},
                {1251, "\xCF\xF0\xE8", u"При"_q},     {1252, "\x80\x93\xE4", u"€“ä"_q},
                {0x8001, "\x80\x93\xE4", u"€“ä"_q},   {1253, "\xC1\xE2", u"Αβ"_q},
                {1254, "\xDD\xF0", u"İğ"_q},          {1255, "\xF9\xEC", u"של"_q},
                {1256, "\xC7\xE1", u"ال"_q},          {1257, "\xE0\xE8", u"ąč"_q},
                {1258, "\xF0\xFE", u"đ₫"_q},          {1361, "\x88\x61", u"가"_q}};
    for (const auto& row : rows) {
        const WorkbookTexts texts = ByteBook(row.codePage, row.bytes).Texts();
        EXPECT_EQ(texts.sheets, QStringList{row.text}) << row.codePage;
        EXPECT_EQ(Text(texts, 1, 1), row.text) << row.codePage;
        EXPECT_EQ(Text(texts, 2, 1), row.text) << row.codePage;
    }
}

TEST(Biff5, ACellWhoseFontIsKoreanIsOfCodePage949)
{
    constexpr int western = 0;
    constexpr int korean = 129;
    for (int fontNumber = 0; fontNumber < 7; ++fontNumber) {
        constexpr int format = 1;
        ByteBook book(1252, "\xC8\xAB\xB1\xE6", format);
        int font = 0;
        for (int i = 0; i < 7; ++i) {
            const int added = book.AddFont(i == fontNumber ? korean : western);
            font = i == fontNumber ? added : font;
        }
        ASSERT_EQ(book.AddBuiltInFormat(0, font), format);
        const WorkbookTexts texts = book.Texts();
        EXPECT_EQ(Text(texts, 1, 1), u"홍길"_q) << font;
        EXPECT_EQ(Text(texts, 2, 1), u"홍길"_q) << font;
        EXPECT_EQ(texts.sheets, QStringList{u"È«±æ"_q}) << font;
    }
}

TEST(Biff5, ACellWhoseFontThereIsNotIsOfTheCodePageOfTheWorkbook)
{
    for (const int font : {1, 4, 5, 0xFFFF}) {
        ByteBook book(1252, "\xC8\xAB", 1);
        book.AddFont(129);
        book.AddBuiltInFormat(0, font);
        EXPECT_EQ(Text(book.Texts(), 1, 1), u"È«"_q) << font;
    }
}

TEST(Biff8, AKoreanFontChangesNothing)
{
    WorkbookMaker book;
    const int format = book.AddBuiltInFormat(0, book.AddFont(129));
    book.AddSheet(u"글"_q).Record(
        0x0204, LittleEndian().U16(0).U16(0).U16(format).U16(2).U8(0).Raw("\xC8\xAB").bytes);
    EXPECT_EQ(Text(Read(book), 1, 1), u"È«"_q);
}

TEST(Biff5, ATextWithFormatsOfItsPartsIsRead)
{
    WorkbookMaker book(Version::Biff5);
    book.AddSheet(u"글"_q).Record(
        0x00D6, LittleEndian().U16(0).U16(0).U16(0).U16(4).Raw("\xB0\xA1\xB3\xAA").U8(1).U8(2).U8(5).bytes);
    EXPECT_EQ(Text(Read(book), 1, 1), u"가나"_q);
}

} // namespace

// Workbooks with small slips, which spreadsheet programs open: what can be read is read.
#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/LittleEndian.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

using Version = WorkbookMaker::Version;

WorkbookTexts ReadStream(const QByteArray& stream)
{
    constexpr int columns = 3;
    return ReadWorkbookStream(stream, columns);
}

/// The first column of the first sheet.
QStringList FirstColumn(const WorkbookTexts& texts)
{
    QStringList column;
    for (int row = 1; row <= texts.firstSheet->Rows(); ++row)
        column += texts.firstSheet->Text(1, row);
    return column;
}

QStringList FirstColumn(const WorkbookMaker& book)
{
    return FirstColumn(ReadStream(book.Stream()));
}

/// What a record about a cell in the first column begins with.
LittleEndian Cell(int row)
{
    return LittleEndian().U16(row - 1).U16(0).U16(0);
}

enum Record {
    Formula = 0x06,
    Date1904 = 0x22,
    Continue = 0x3C,
    CodePage = 0x42,
    BoundSheet = 0x85,
    MulRK = 0xBD,
    LabelSst = 0xFD,
    Number = 0x203,
    Label = 0x204,
    BoolErr = 0x205,
    String = 0x207,
    RK = 0x27E
};

class CarelessWorkbooks : public ::testing::TestWithParam<Version>
{
protected:
    bool IsBiff8() const { return GetParam() == Version::Biff8; }

    /// Flags and characters, or the characters alone.
    QByteArray Latin(const QByteArray& characters) const
    {
        return IsBiff8() ? '\0' + characters : characters;
    }

    WorkbookMaker book{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Both, CarelessWorkbooks, ::testing::Values(Version::Biff5, Version::Biff8),
                         [](const auto& version) {
                             return version.param == Version::Biff5 ? "Biff5" : "Biff8";
                         });

TEST_P(CarelessWorkbooks, OfATextThatIsCutThePartThatThereIsComes)
{
    book.AddSheet(u"하나"_q)
        .Record(Label, Cell(1).U16(20).Raw(Latin("cut short")).bytes)
        .OtherFormula(1, 2, 0, 0)
        .Record(String, LittleEndian().U16(9).Raw(Latin("result")).bytes)
        .Record(Label, Cell(3).U16(0xFFFF).bytes)
        .OwnText(1, 4, u"다음"_q);
    EXPECT_EQ(FirstColumn(book), (QStringList{u"cut short"_q, u"result"_q, u""_q, u"다음"_q}));
}

TEST_P(CarelessWorkbooks, ARecordTooShortForItsNumberOrItsPlaceSaysNothingAboutItsCell)
{
    const std::pair<int, int> wholeBytes[] = {{Label, 2}, {LabelSst, 4}, {Number, 8},
                                              {RK, 4},    {BoolErr, 2},  {Formula, 8}};
    for (const auto& [record, whole] : wholeBytes)
        for (int size = 0; size < 6 + whole; ++size) {
            WorkbookMaker careless(GetParam());
            careless.AddSheet(u"하나"_q)
                .OwnText(1, 1, u"앞"_q)
                .Record(record, LittleEndian().Fill(6 + whole).bytes.first(size))
                .OwnText(1, 2, u"뒤"_q);
            EXPECT_EQ(FirstColumn(careless), (QStringList{u"앞"_q, u"뒤"_q})) << record << ", " << size;
        }
}

TEST_P(CarelessWorkbooks, OfCutNumbersSideBySideTheWholeOnesCome)
{
    for (int size = 4 + 6; size < 4 + 6 + 6; ++size) {
        WorkbookMaker careless(GetParam());
        const QByteArray two = LittleEndian().U16(0).U16(0).U16(0).U32(6).U16(0).U32(10).bytes;
        careless.AddSheet(u"하나"_q).Record(MulRK, two.first(size)).OwnText(3, 1, u"옆"_q);
        const WorkbookTexts texts = ReadStream(careless.Stream());
        EXPECT_EQ(texts.firstSheet->Text(1, 1), u"1"_q) << size;
        EXPECT_EQ(texts.firstSheet->Text(2, 1), QString()) << size;
        EXPECT_EQ(texts.firstSheet->Text(3, 1), u"옆"_q) << size;
    }
}

TEST_P(CarelessWorkbooks, AFormatThatIsCutShowsItsNumbersAsGeneral)
{
    const int cut = book.AddFormat(u"00000\"번호\""_q);
    const int whole = book.AddFormat(u"000-0000-0000"_q);
    book.AddSheet(u"하나"_q).Number(1, 1, 12.5, cut).Number(1, 2, 1012345678, whole);
    QByteArray stream = book.Stream();
    const qsizetype length = stream.indexOf(QByteArray("\x1E\x04", 2)) + 6; // behind the head and the number
    stream[length] = static_cast<char>(stream[length] + 1);
    EXPECT_EQ(FirstColumn(ReadStream(stream)), (QStringList{u"12.5"_q, u"010-1234-5678"_q}));
}

/// With the first record of that kind cut, and the sheet where it was.
QByteArray WithCutRecord(QByteArray stream, const QByteArray& record, qsizetype size)
{
    constexpr int unknown = 0x5555;
    const qsizetype at = stream.indexOf(record);
    const qsizetype former = qFromLittleEndian<quint16>(stream.constData() + at + 2);
    const QByteArray rest = WorkbookMaker::OneRecord(unknown, QByteArray(former - size - 4, '\0'));
    qToLittleEndian(static_cast<quint16>(size), stream.data() + at + 2);
    return stream.replace(at + 4 + size, former - size, rest);
}

TEST_P(CarelessWorkbooks, ACellFormatThatIsCutIsGeneralAndTheOthersKeepTheirNumbers)
{
    book.AddBuiltInFormat(2);
    const int second = book.AddBuiltInFormat(2);
    book.AddSheet(u"하나"_q).Number(1, 1, 3, 0).Number(1, 2, 3, second);
    const QByteArray stream = book.Stream();
    for (const qsizetype size : {0, 1, 2, 3})
        EXPECT_EQ(FirstColumn(ReadStream(WithCutRecord(stream, QByteArray("\xE0\x00", 2), size))),
                  (QStringList{u"3"_q, u"3.00"_q}))
            << size;
}

TEST_P(CarelessWorkbooks, OfTheNameOfASheetThatIsCutThePartThatThereIsComes)
{
    book.AddSheet(u"abcdefghij"_q).OwnText(1, 1, u"글"_q);
    const qsizetype name = IsBiff8() ? 8 : 7;
    const WorkbookTexts texts = ReadStream(WithCutRecord(book.Stream(), QByteArray("\x85\x00", 2), name + 4));
    EXPECT_EQ(texts.sheets, QStringList{u"abcd"_q});
    EXPECT_EQ(FirstColumn(texts), QStringList{u"글"_q});
}

TEST_P(CarelessWorkbooks, OtherRecordsThatAreCutSayNothing)
{
    book.AddSheet(u"하나"_q).OwnText(1, 1, u"글"_q);
    const QByteArray cut = WorkbookMaker::OneRecord(CodePage, "x") + WorkbookMaker::OneRecord(Date1904, {}) +
                           WorkbookMaker::OneRecord(BoundSheet, "short");
    QByteArray stream = book.Stream();
    const qsizetype sheet = stream.indexOf(QByteArray("\x85\x00", 2));
    const qsizetype position = sheet + 4;
    qToLittleEndian(qFromLittleEndian<quint32>(stream.constData() + position) + quint32(cut.size()),
                    stream.data() + position);
    stream.insert(sheet, cut);
    const WorkbookTexts texts = ReadStream(stream);
    EXPECT_EQ(texts.sheets, QStringList{u"하나"_q});
    EXPECT_EQ(FirstColumn(texts), QStringList{u"글"_q});
}

TEST(CarelessBiff8, TheCountOfTheSharedTextsMayBeTooHighOrTooLow)
{
    QStringList texts;
    for (int i = 0; i < 50; ++i)
        texts += u"글 %1"_q.arg(i);
    for (const quint32 told : {1u, 49u, 51u, 1000u, 0xFFFFFFFFu}) {
        WorkbookMaker book;
        book.recordLimit = 40;
        book.toldStrings = told;
        WorkbookMaker::Sheet& sheet = book.AddSheet(u"하나"_q);
        for (int i = 0; i < texts.size(); ++i)
            sheet.Text(1, i + 1, texts[i]);
        EXPECT_EQ(FirstColumn(book), texts) << told;
    }
}

TEST(CarelessBiff8, ASharedTextThatThereIsNotIsAnEmptyCell)
{
    WorkbookMaker book;
    WorkbookMaker::Sheet& sheet = book.AddSheet(u"하나"_q).Text(1, 1, u"글"_q);
    int row = 1;
    for (const quint32 number : {2u, 1000u, 0xFFFFFFFFu})
        sheet.Record(LabelSst, Cell(++row).U32(number).bytes);
    sheet.Text(1, 5, u"다음"_q);
    EXPECT_EQ(FirstColumn(book), (QStringList{u"글"_q, u""_q, u""_q, u""_q, u"다음"_q}));
}

/// A workbook whose first cells share these texts, and whose last one has its own.
class SharingBook : public WorkbookMaker
{
public:
    explicit SharingBook(const QStringList& texts)
    {
        Sheet& sheet = AddSheet(u"하나"_q);
        for (int i = 0; i < texts.size(); ++i)
            sheet.Text(1, i + 1, texts[i]);
        sheet.OwnText(1, static_cast<int>(texts.size()) + 1, u"끝"_q);
    }
};

TEST(CarelessBiff8, OfSharedTextsThatAreCutTheWholeOnesCome)
{
    const QByteArray stream = SharingBook({u"abc"_q, u"가나다"_q, u"xyz"_q}).Stream();
    const qsizetype heads[] = {8, 8 + 6, 8 + 6 + 9, 8 + 6 + 9 + 6}; // of the texts, in the record
    const QStringList whole{u"abc"_q, u"가나다"_q, u"xyz"_q};
    for (qsizetype size = 0; size < heads[3] - 3; ++size) {
        QStringList expected{QString(), QString(), QString(), u"끝"_q};
        for (int i = 0; i < 3 && size >= heads[i + 1]; ++i)
            expected[i] = whole[i];
        EXPECT_EQ(FirstColumn(ReadStream(WithCutRecord(stream, QByteArray("\xFC\x00", 2), size))), expected)
            << size;
    }
}

/// With the places of all sheets told by so many bytes too high.
QByteArray WithMovedSheets(QByteArray stream, int bytes)
{
    const QByteArray record("\x85\x00", 2);
    for (qsizetype at = stream.indexOf(record); at >= 0; at = stream.indexOf(record, at + 1)) {
        char* place = stream.data() + at + 4;
        qToLittleEndian(qFromLittleEndian<quint32>(place) + static_cast<quint32>(bytes), place);
    }
    return stream;
}

TEST_P(CarelessWorkbooks, ASheetIsFoundThatIsNotWhereTheWorkbookSays)
{
    const QByteArray chart = LittleEndian().U16(static_cast<int>(GetParam())).U16(0x0020).Fill(12).bytes;
    const auto charted = [&](WorkbookMaker::Sheet& sheet) -> WorkbookMaker::Sheet& {
        return sheet.Record(0x0809, chart).OwnText(1, 1, u"그림"_q).Record(0x000A, {});
    };
    charted(book.AddSheet(u"그림"_q, WorkbookMaker::Visibility::Shown, WorkbookMaker::Kind::Chart));
    charted(book.AddSheet(u"회원"_q)).OwnText(1, 1, u"첫째"_q);
    charted(book.AddSheet(u"둘"_q)).OwnText(1, 1, u"둘째"_q);
    const QByteArray stream = book.Stream();
    for (const int bytes : {-100000, -4, -3, -1, 1, 2, 4, 8, 50, 100000, 0x7FFFFFFF}) {
        const WorkbookTexts texts = ReadStream(WithMovedSheets(stream, bytes));
        EXPECT_EQ(texts.sheets, (QStringList{u"회원"_q, u"둘"_q})) << bytes;
        EXPECT_EQ(FirstColumn(texts), QStringList{u"첫째"_q}) << bytes;
    }
}

TEST_P(CarelessWorkbooks, TheLowerByteOfTheVersionDoesNotCount)
{
    book.codePage = 949;
    book.AddSheet(u"하나"_q).OwnText(1, 1, u"글"_q);
    for (const int lower : {0x01, 0x80, 0xFF}) {
        QByteArray stream = book.Stream();
        const QByteArray record("\x09\x08", 2);
        for (qsizetype at = stream.indexOf(record); at >= 0; at = stream.indexOf(record, at + 1))
            stream[at + 4] = static_cast<char>(lower);
        EXPECT_EQ(FirstColumn(ReadStream(stream)), QStringList{u"글"_q}) << lower;
    }
}

TEST(CarelessBiff8, RecordsWithoutContentMayStandBetweenThoseOfTheSharedTexts)
{
    const QStringList texts{u"가나다라마바사아자차카타파하가나다라마바사"_q, u"plain latin text"_q, u""_q,
                            u"섞인 mixed"_q};
    for (int limit = 14; limit < 60; ++limit) {
        SharingBook book(texts);
        book.recordLimit = limit;
        book.emptyContinues = true;
        EXPECT_EQ(FirstColumn(book), texts + QStringList{u"끝"_q}) << limit;
    }
}

TEST(CarelessBiff8, RecordsWithoutContentMayStandInsideAText)
{
    WorkbookMaker book;
    book.AddSheet(u"하나"_q)
        .OtherFormula(1, 1, 0, 0)
        .Record(String, LittleEndian().U16(4).U8(0).Raw("ab").bytes)
        .Record(Continue, {})
        .Record(Continue, {})
        .Record(Continue, LittleEndian().U8(1).U16(0xAC00).bytes)
        .Record(Continue, {})
        .Record(Continue, LittleEndian().U8(0).Raw("c").bytes)
        .OwnText(1, 2, u"다음"_q);
    EXPECT_EQ(FirstColumn(book), (QStringList{u"ab가c"_q, u"다음"_q}));
}

TEST(CarelessBiff8, HalfACharacterAtTheEdgeOfARecordEndsTheText)
{
    WorkbookMaker book;
    book.AddSheet(u"하나"_q)
        .OtherFormula(1, 1, 0, 0)
        .Record(String, LittleEndian().U16(2).U8(1).U16(0xAC00).Raw("c").bytes)
        .Record(Continue, LittleEndian().U8(1).Raw("d").bytes)
        .OwnText(1, 2, u"다음"_q);
    EXPECT_EQ(FirstColumn(book), (QStringList{u"가"_q, u"다음"_q}));
}

} // namespace

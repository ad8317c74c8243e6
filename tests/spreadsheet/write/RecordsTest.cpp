#include "spreadsheet/write/BiffStream.h"
#include "spreadsheet/write/RecordReader.h"
#include "spreadsheet/write/TableSheet.h"
#include "spreadsheet/write/WriteWorkbook.h"
#include "support/Words.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace tsms;
using namespace tsms::test;

namespace {

/// Looks at the records of a workbook one by one, as a strict reader would.
class Records : public ::testing::Test
{
protected:
    void Write(const Sheet& sheet)
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"x.xls"_q);
        WriteWorkbook(path, sheet);
        records = ReadRecords(path);
    }

    QList<Record> All(BiffRecord type) const
    {
        QList<Record> found;
        std::copy_if(records.begin(), records.end(), std::back_inserter(found),
                     [&](const Record& record) { return record.type == static_cast<quint16>(type); });
        return found;
    }

    Record Only(BiffRecord type) const
    {
        const QList<Record> found = All(type);
        EXPECT_EQ(found.size(), 1);
        return found.value(0);
    }

    Record At(quint32 position, BiffRecord type) const
    {
        const auto found = std::find_if(records.begin(), records.end(),
                                        [&](const Record& record) { return record.position == position; });
        if (found == records.end()) {
            ADD_FAILURE() << "no record begins at " << position;
            return {};
        }
        EXPECT_EQ(found->type, static_cast<quint16>(type)) << "at " << position;
        return *found;
    }

    QStringList SharedTexts() const
    {
        QStringList texts;
        for (const SharedText& text : ReadSharedTexts(records))
            texts += text.text;
        return texts;
    }

    QList<Record> Cells() const
    {
        QList<Record> cells;
        for (const BiffRecord type :
             {BiffRecord::LabelSst, BiffRecord::RK, BiffRecord::Number, BiffRecord::Blank})
            cells += All(type);
        return cells;
    }

    /// The format (XF record) of a cell, both numbers from 1.
    Record FormatAt(int col, int row) const
    {
        for (const Record& cell : Cells())
            if (cell.U16(0) == row - 1 && cell.U16(2) == col - 1)
                return All(BiffRecord::XF).value(cell.U16(4));
        ADD_FAILURE() << "no cell " << col << ", " << row;
        return {};
    }

    QList<Record> records;
};

// Fields of an XF record.
int Alignment(const Record& format)
{
    return format.body[6] & 7;
}
int NumberFormat(const Record& format)
{
    return format.U16(2);
}
bool IsYellow(const Record& format)
{
    const bool solid = format.U32(14) >> 26 == 1;
    return solid && (format.U16(18) & 0x7F) == 13;
}

/// 100 rows with all kinds of cells, rows without any, and texts over several records.
Sheet MixedSheet()
{
    QList<QStringList> rows{{u"이름"_q, u"수"_q, u""_q}};
    for (int row = 2; row <= 100; ++row) {
        if (row % 7 == 0 || (row >= 65 && row <= 96))
            rows += QStringList{u""_q, u""_q, u""_q};
        else
            rows += QStringList{u"이름 %1"_q.arg(row) + QString(row * 9, u'가'),
                                row % 2 ? u"%1.5"_q.arg(row) : QString::number(row), u"같다"_q};
    }
    Sheet sheet = TableSheet(rows);
    sheet.columns[1].number = true;
    return sheet;
}

TEST_F(Records, StandInTheOrderOfTheFormat)
{
    Write(TableSheet({{u"이름"_q}, {u"가"_q}}));
    QList<quint16> types;
    for (const Record& record : records)
        if (types.isEmpty() || types.last() != record.type)
            types += record.type;
    using enum BiffRecord;
    QList<quint16> expected;
    for (const BiffRecord type : {BOF,
                                  InterfaceHdr,
                                  Mms,
                                  InterfaceEnd,
                                  WriteAccess,
                                  CodePage,
                                  DSF,
                                  RRTabId,
                                  WinProtect,
                                  Protect,
                                  Password,
                                  Prot4Rev,
                                  Prot4RevPass,
                                  Window1,
                                  Backup,
                                  HideObj,
                                  Date1904,
                                  CalcPrecision,
                                  RefreshAll,
                                  BookBool,
                                  Font,
                                  XF,
                                  Style,
                                  UsesELFs,
                                  BoundSheet8,
                                  Country,
                                  SST,
                                  ExtSST,
                                  Eof,
                                  BOF,
                                  Index,
                                  CalcMode,
                                  CalcCount,
                                  CalcRefMode,
                                  CalcIter,
                                  CalcDelta,
                                  CalcSaveRecalc,
                                  PrintRowCol,
                                  PrintGrid,
                                  GridSet,
                                  Guts,
                                  DefaultRowHeight,
                                  WsBool,
                                  Header,
                                  Footer,
                                  HCenter,
                                  VCenter,
                                  Setup,
                                  DefColWidth,
                                  ColInfo,
                                  Dimensions,
                                  Row,
                                  LabelSst,
                                  DBCell,
                                  Window2,
                                  Selection,
                                  Eof})
        expected += static_cast<quint16>(type);
    EXPECT_EQ(types, expected);
}

TEST_F(Records, TheBookIsCountedFrom1900WithItsWholePrecisionAndNothingElseIsAskedOfIt)
{
    using enum BiffRecord;
    Write(MixedSheet());
    for (const BiffRecord setting : {Backup, HideObj, Date1904, RefreshAll, BookBool})
        EXPECT_EQ(Only(setting).body, QByteArray(2, '\0')) << static_cast<int>(setting);
    EXPECT_EQ(Only(CalcPrecision).body, QByteArray("\1\0", 2));
}

TEST_F(Records, TheWindowIsSeenWithItsScrollBarsAndTabsOnItsOnlySheet)
{
    Write(TableSheet({{u"가"_q}}));
    const Record window = Only(BiffRecord::Window1);
    EXPECT_EQ(window.U16(8), 0x0038);
    const QList<quint16> sheets{window.U16(10), window.U16(12), window.U16(14)};
    EXPECT_EQ(sheets, (QList<quint16>{0, 0, 1})); // the one on view, the first tab, how many are chosen
}

TEST_F(Records, TheSheetCalculatesByItselfAndItsColumnsHaveLetters)
{
    using enum BiffRecord;
    Write(TableSheet({{u"가"_q}}));
    EXPECT_EQ(Only(CalcMode).U16(0), 1);
    EXPECT_EQ(Only(CalcRefMode).U16(0), 1);
    EXPECT_EQ(Only(CalcSaveRecalc).U16(0), 1);
    EXPECT_EQ(Only(CalcIter).U16(0), 0);
}

TEST_F(Records, AreNoLongerThanTheFormatAllows)
{
    Write(ColumnSheet({QString(32767, u'가'), QString(32767, u'x')}));
    for (const Record& record : records)
        EXPECT_LE(record.body.size(), 8224) << record.type;
    EXPECT_EQ(All(BiffRecord::Continue).size(), 11); // 65,534 and 32,767 bytes in 12 records
}

TEST_F(Records, TheSheetIsWhereTheWorkbookSaysItIs)
{
    Write(MixedSheet());
    const Record beginning = At(Only(BiffRecord::BoundSheet8).U32(0), BiffRecord::BOF);
    EXPECT_EQ(beginning.U16(0), 0x0600);
    EXPECT_EQ(beginning.U16(2), 0x0010); // a worksheet
    EXPECT_EQ(records.first().U16(2), 0x0005);
}

TEST_F(Records, TheIndexLeadsToEveryBlockOfRows)
{
    Write(MixedSheet());
    const Record index = Only(BiffRecord::Index);
    EXPECT_EQ(index.U32(4), 0U);
    EXPECT_EQ(index.U32(8), 100U);
    At(index.U32(12), BiffRecord::DefColWidth);
    ASSERT_EQ(index.body.size(), 16 + 4 * 4); // 100 rows are four blocks
    for (int block = 0; block < 4; ++block) {
        const Record dbCell = At(index.U32(16 + 4 * block), BiffRecord::DBCell);
        const Record row = At(dbCell.position - dbCell.U32(0), BiffRecord::Row);
        EXPECT_EQ(row.U16(0), 32 * block);
    }
}

TEST_F(Records, EachBlockLeadsToTheFirstCellOfItsRows)
{
    Write(MixedSheet());
    QList<quint16> found;
    for (const Record& dbCell : All(BiffRecord::DBCell)) {
        const quint32 firstRow = dbCell.position - dbCell.U32(0);
        const auto rows = static_cast<int>((dbCell.body.size() - 4) / 2);
        quint32 position = firstRow + 20;
        for (int i = 0; i < rows; ++i) {
            position += dbCell.U16(4 + 2 * i);
            const Record row = At(firstRow + static_cast<quint32>(20 * i), BiffRecord::Row);
            if (row.U16(4) == 0)
                continue; // without cells
            const auto cell = std::find_if(records.begin(), records.end(),
                                           [&](const Record& r) { return r.position == position; });
            ASSERT_NE(cell, records.end());
            EXPECT_EQ(cell->U16(0), row.U16(0));
            EXPECT_EQ(cell->U16(2), row.U16(2)); // its first column
            found += row.U16(0);
        }
    }
    EXPECT_EQ(found.size(),
              58); // the title row, and 99 rows less 14 sevenths and 32 empty ones, 4 of them both
}

TEST_F(Records, ARowTellsItsFirstAndLastCell)
{
    Write(TableSheet({{u"가"_q, u""_q, u""_q, u""_q},
                      {u""_q, u"나"_q, u"다"_q, u""_q},
                      {u""_q, u""_q, u""_q, u""_q},
                      {u""_q, u""_q, u""_q, u"라"_q}}));
    const QList<Record> rows = All(BiffRecord::Row);
    ASSERT_EQ(rows.size(), 4);
    const QList<QPair<int, int>> expected{{0, 4}, {1, 3}, {0, 0}, {3, 4}}; // a title row is full
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(rows[i].U16(2), expected[i].first) << i;
        EXPECT_EQ(rows[i].U16(4), expected[i].second) << i;
    }
}

TEST_F(Records, EqualTextsAreKeptOnce)
{
    Write(ColumnSheet({u"가"_q, u"나"_q, u"가"_q, u"가"_q, u"a\r\nb"_q, u"a\nb"_q}));
    const Record table = Only(BiffRecord::SST);
    EXPECT_EQ(table.U32(0), 6U);
    EXPECT_EQ(table.U32(4), 3U);
    EXPECT_EQ(SharedTexts(), (QStringList{u"가"_q, u"나"_q, u"a\nb"_q}));
}

TEST_F(Records, LatinTextsTakeOneByteACharacter)
{
    Write(ColumnSheet({u"abcdé"_q}));
    EXPECT_EQ(Only(BiffRecord::SST).body.size(), 8 + 3 + 5);
    Write(ColumnSheet({u"abcd가"_q}));
    EXPECT_EQ(Only(BiffRecord::SST).body.size(), 8 + 3 + 10);
}

TEST_F(Records, TextsLongerThanSeveralRecordsComeWholeUpToTheLimitOfACell)
{
    const QString latin(32767, u'x');
    const QString korean(32767, u'가');
    Write(ColumnSheet({latin, korean, latin + u"y"_q, korean + u"나"_q, u"끝"_q}));
    EXPECT_EQ(SharedTexts(), (QStringList{latin, korean, u"끝"_q})); // the cut ones are as the first two
}

TEST_F(Records, APairOfSurrogatesIsNotDivided)
{
    for (int filler = 8150; filler < 8224; ++filler) {
        const QStringList texts{QString(filler, u'x'), u"😀"_q, u"a"_q, u"😀😀😀😀"_q.repeated(2000)};
        Write(ColumnSheet(texts));
        ASSERT_EQ(SharedTexts(), texts) << filler;
    }
}

class TableIndex : public Records, public ::testing::WithParamInterface<int>
{
};

TEST_P(TableIndex, LeadsToEveryPartOfTheTable)
{
    QStringList texts;
    for (int i = 0; i < GetParam(); ++i)
        texts += u"%1번 글"_q.arg(i) + QString(i % 40, u'나');
    Write(ColumnSheet(texts));
    const QList<SharedText> shared = ReadSharedTexts(records);
    ASSERT_EQ(shared.size(), GetParam());
    const Record index = Only(BiffRecord::ExtSST);
    const int size = index.U16(0);
    EXPECT_GE(size, 8);
    const int parts = (GetParam() + size - 1) / size;
    EXPECT_LE(parts, 128);
    ASSERT_EQ(index.body.size(), 2 + 8 * parts);
    for (int part = 0; part < parts; ++part) {
        const SharedText& first = shared[part * size];
        EXPECT_EQ(index.U32(2 + 8 * part), first.position);
        EXPECT_EQ(first.position - index.U16(6 + 8 * part), first.record);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, TableIndex, ::testing::Values(0, 1, 8, 9, 1024, 1025, 5000));

TEST_F(Records, ColumnsHaveTheirWidthAndAreHidden)
{
    Sheet sheet = TableSheet({{u"가"_q, u"나"_q, u"다"_q, u"라"_q}});
    sheet.columns[0].width = 10.5;
    sheet.columns[1].hidden = true;
    sheet.columns[2].width = 1000;
    sheet.columns[3].width = -1;
    Write(sheet);
    const QList<Record> columns = All(BiffRecord::ColInfo);
    ASSERT_EQ(columns.size(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(columns[i].U16(0), i);
        EXPECT_EQ(columns[i].U16(2), i);
        EXPECT_EQ(columns[i].U16(8) & 1, i == 1 ? 1 : 0);
    }
    EXPECT_EQ(columns[0].U16(4), 2688); // 256ths of a character
    EXPECT_EQ(columns[1].U16(4), 2048);
    EXPECT_EQ(columns[2].U16(4), 65280);
    EXPECT_EQ(columns[3].U16(4), 0);
}

TEST_F(Records, TitleRowsAreBoldOnYellowThroughout)
{
    Sheet sheet = TableSheet({{u"가"_q, u""_q}, {u"나"_q, u"다"_q}, {u"라"_q, u"마"_q}});
    sheet.titleRows = 2;
    Write(sheet);
    const auto isBold = [&](const Record& format) {
        const int number = format.U16(0);
        return All(BiffRecord::Font)[number < 4 ? number : number - 1].U16(6) == 700;
    };
    for (const int row : {1, 2})
        for (const int col : {1, 2}) {
            EXPECT_TRUE(IsYellow(FormatAt(col, row)));
            EXPECT_TRUE(isBold(FormatAt(col, row)));
        }
    EXPECT_FALSE(IsYellow(FormatAt(1, 3)));
    EXPECT_FALSE(isBold(FormatAt(1, 3)));
}

TEST_F(Records, AllFontsAreTheKoreanOneOfNinePoints)
{
    Write(TableSheet({{u"가"_q}}));
    const QList<Record> fonts = All(BiffRecord::Font);
    EXPECT_EQ(fonts.size(), 5);
    for (const Record& font : fonts) {
        EXPECT_EQ(font.U16(0), 180);
        EXPECT_EQ(font.body[14], 2); // characters
        EXPECT_EQ(font.U16(16), u'굴');
        EXPECT_EQ(font.U16(18), u'림');
    }
}

TEST_F(Records, CellsFollowTheAlignmentOfTheirColumn)
{
    Sheet sheet = TableSheet({{u"가"_q, u"나"_q, u"다"_q, u"라"_q}, {u"1"_q, u"2"_q, u"3"_q, u"4"_q}});
    sheet.columns[1].alignment = SheetAlignment::Left;
    sheet.columns[2].alignment = SheetAlignment::Center;
    sheet.columns[3].alignment = SheetAlignment::Right;
    sheet.columns[3].number = true;
    Write(sheet);
    for (const int row : {1, 2})
        for (int col = 1; col <= 4; ++col)
            EXPECT_EQ(Alignment(FormatAt(col, row)), col - 1);
}

TEST_F(Records, CellsStandAtTheTopSoThatTheFirstOfSeveralLinesIsInView)
{
    Write(TableSheet({{u"가"_q}, {u"첫 줄\n둘째 줄"_q}}));
    for (const int row : {1, 2})
        EXPECT_EQ(FormatAt(1, row).body[6] >> 4, 0);
}

TEST_F(Records, TheSheetIsPrintedUprightOnA4AtItsOwnSize)
{
    Write(TableSheet({{u"가"_q}}));
    const Record setup = Only(BiffRecord::Setup);
    EXPECT_EQ(setup.U16(0), 9);   // the paper
    EXPECT_EQ(setup.U16(2), 100); // percent
    EXPECT_EQ(setup.U16(10), 2);  // the options: upright alone
}

TEST_F(Records, WholeNumbersAreShownInGroupsOfThree)
{
    constexpr int general = 0;
    constexpr int groupsOfThree = 3;
    QList<QStringList> rows{{u"수"_q}};
    for (const QString& text : {u"1234"_q, u"-1234567890"_q, u"99.5"_q, u"1e15"_q, u"가"_q})
        rows += QStringList{text};
    Sheet sheet = TableSheet(rows);
    sheet.columns[0].number = true;
    Write(sheet);
    const QList<int> expected{general, groupsOfThree, groupsOfThree, general, general, general};
    for (int row = 1; row <= 6; ++row)
        EXPECT_EQ(NumberFormat(FormatAt(1, row)), expected[row - 1]) << row;
}

TEST_F(Records, EveryCellNamesACellFormatThatIsThere)
{
    Write(MixedSheet());
    const QList<Record> formats = All(BiffRecord::XF);
    for (int i = 0; i < formats.size(); ++i)
        EXPECT_EQ((formats[i].U16(4) & 4) != 0, i < 15) << i; // the first 15 are those of styles
    for (const Record& cell : Cells()) {
        EXPECT_GE(cell.U16(4), 15);
        EXPECT_LT(cell.U16(4), formats.size());
    }
}

TEST_F(Records, TheSheetTellsWhereItsCellsAre)
{
    Sheet sheet = TableSheet({{u""_q, u""_q, u""_q, u""_q},
                              {u""_q, u""_q, u"가"_q, u""_q},
                              {u""_q, u"1"_q, u""_q, u""_q},
                              {u""_q, u""_q, u""_q, u""_q}});
    sheet.columns[1].number = true;
    sheet.titleRows = 0;
    Write(sheet);
    const Record size = Only(BiffRecord::Dimensions);
    EXPECT_EQ(size.U32(0), 1U);
    EXPECT_EQ(size.U32(4), 3U);
    EXPECT_EQ(size.U16(8), 1);
    EXPECT_EQ(size.U16(10), 3);
    const Record index = Only(BiffRecord::Index);
    EXPECT_EQ(index.U32(4), 1U);
    EXPECT_EQ(index.U32(8), 3U);
    EXPECT_EQ(All(BiffRecord::Row).size(), 2);
    EXPECT_EQ(Only(BiffRecord::LabelSst).U16(0), 1);
    EXPECT_EQ(Only(BiffRecord::RK).U16(0), 2);
}

TEST_F(Records, ASheetWithoutCellsIsOfNoSize)
{
    Write(ColumnSheet({u""_q, u""_q}));
    const Record size = Only(BiffRecord::Dimensions);
    for (const int field : {0, 4, 8})
        EXPECT_EQ(size.U32(field), 0U);
    EXPECT_EQ(Only(BiffRecord::Index).body.size(), 16);
    EXPECT_TRUE(All(BiffRecord::Row).isEmpty());
    EXPECT_TRUE(All(BiffRecord::DBCell).isEmpty());
}

} // namespace

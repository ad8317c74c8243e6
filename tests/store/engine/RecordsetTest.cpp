#include "store/engine/Recordset.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "store/engine/RecordsetCells.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

Recordset TwoPeople()
{
    Recordset records({u"GSubCd"_q, u"GSubNm"_q});
    records.AddInteger(7);
    records.AddText("김민준", 9);
    records.AddInteger(8);
    records.AddNull();
    return records;
}

long NumberOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

} // namespace

TEST(Recordset, AColumnWithoutANameIsNotTakenForOneThatIsNotThere)
{
    Recordset records({u"a"_q, QString()});
    records.AddInteger(1);
    records.AddInteger(2);
    EXPECT_EQ(records.Text(0, 1), u"2"_q);
    EXPECT_EQ(NumberOf([&] { records.Text(0, 2); }), ItemNotFound);
    EXPECT_EQ(NumberOf([&] { records.IsNull(0, -1); }), ItemNotFound);
}

TEST(Recordset, CountsItsRecordsExactly)
{
    EXPECT_EQ(TwoPeople().RecordCount(), 2);
    EXPECT_EQ(Recordset({u"a"_q}).RecordCount(), 0);
}

TEST(Recordset, ReadsByPosition)
{
    const Recordset records = TwoPeople();
    EXPECT_EQ(records.Text(0, 0), u"7"_q);
    EXPECT_EQ(records.Text(0, 1), u"김민준"_q);
    EXPECT_EQ(records.Text(1, 0), u"8"_q);
}

TEST(Recordset, ReadsFieldsByNameWithoutRegardToCase)
{
    EXPECT_EQ(TwoPeople().Field(u"gsubnm"), u"김민준"_q);
}

TEST(Recordset, ANullReadsAsEmptyText)
{
    const Recordset records = TwoPeople();
    EXPECT_TRUE(records.IsNull(1, 1));
    EXPECT_FALSE(records.IsNull(0, 1));
    EXPECT_EQ(records.Text(1, 1), QString());
}

TEST(Recordset, TellsByNameWhetherAFieldOfTheCurrentRecordIsNull)
{
    Recordset records = TwoPeople();
    EXPECT_FALSE(records.IsNull(u"GSubNm"));
    records.MoveNext();
    EXPECT_TRUE(records.IsNull(u"gsubnm"));
    EXPECT_FALSE(records.IsNull(u"GSubCd"));
}

TEST(Recordset, AnEmptyTextIsNotNull)
{
    Recordset records({u"x"_q});
    records.AddText("", 0);
    EXPECT_FALSE(records.IsNull(u"x"));
    EXPECT_EQ(records.Field(u"x"), QString());
}

TEST(Recordset, AskingAFieldThatIsNotThereWhetherItIsNullRaises)
{
    EXPECT_EQ(NumberOf([] { TwoPeople().IsNull(u"GroupNm"); }), ItemNotFound);
    EXPECT_EQ(NumberOf([] { Recordset({u"a"_q}).IsNull(u"a"); }), NoCurrentRecord);
}

TEST(Recordset, TheCursorWalksToTheEndAndStaysThere)
{
    Recordset records = TwoPeople();
    EXPECT_EQ(records.Field(u"GSubCd"), u"7"_q);
    records.MoveNext();
    EXPECT_EQ(records.Field(u"GSubCd"), u"8"_q);
    EXPECT_FALSE(records.Eof());
    records.MoveNext();
    EXPECT_TRUE(records.Eof());
    records.MoveNext();
    EXPECT_TRUE(records.Eof());
}

TEST(Recordset, AnUnknownFieldRaises)
{
    EXPECT_EQ(NumberOf([] { TwoPeople().Field(u"GroupNm"); }), ItemNotFound);
}

TEST(Recordset, AFieldBehindTheEndRaises)
{
    Recordset records = TwoPeople();
    records.MoveNext();
    records.MoveNext();
    EXPECT_EQ(NumberOf([&records] { records.Field(u"GSubCd"); }), NoCurrentRecord);
    EXPECT_EQ(NumberOf([] { Recordset({u"a"_q}).Field(u"a"); }), NoCurrentRecord);
}

TEST(Recordset, AColumnTakesTheWidestTypeOfItsValues)
{
    Recordset records({u"x"_q});
    records.AddNull();
    records.AddInteger(12);
    records.AddReal(1.5);
    records.AddText("가", 3);
    records.AddInteger(-3);
    records.AddReal(1.0 / 3);
    records.AddNull();
    const QStringList expected{QString(), u"12"_q, u"1.5"_q, u"가"_q, u"-3"_q, u"0.333333333333333"_q,
                               QString()};
    ASSERT_EQ(records.RecordCount(), expected.size());
    for (int row = 0; row < records.RecordCount(); ++row)
        EXPECT_EQ(records.Text(row, 0), expected[row]);
    EXPECT_TRUE(records.IsNull(0, 0));
    EXPECT_TRUE(records.IsNull(6, 0));
}

TEST(Recordset, ANullAmongNumbersLeavesThemInTheirRows)
{
    Recordset records({u"a"_q, u"b"_q});
    for (const int number : {1, 2, 3}) {
        if (number == 2) {
            records.AddNull();
            records.AddNull();
        } else {
            records.AddInteger(number);
            records.AddReal(number + 0.5);
        }
    }
    EXPECT_EQ(records.Text(0, 0) + records.Text(1, 0) + records.Text(2, 0), u"13"_q);
    EXPECT_EQ(records.Text(0, 1) + records.Text(1, 1) + records.Text(2, 1), u"1.53.5"_q);
}

TEST(Recordset, EachTextStandsInItsRow)
{
    Recordset records({u"a"_q});
    for (const char* text : {"x", "yz", "u"})
        records.AddText(text, qstrlen(text));
    EXPECT_EQ(records.Text(0, 0), u"x"_q);
    EXPECT_EQ(records.Text(1, 0), u"yz"_q);
    EXPECT_EQ(records.Text(2, 0), u"u"_q);
}

TEST(Recordset, ALongResultHasEachValueInItsRow)
{
    constexpr int rows = 3000; // of several blocks
    Recordset records({u"number"_q, u"text"_q});
    for (int row = 0; row < rows; ++row) {
        records.AddInteger(row);
        const QByteArray text = QByteArray::number(3 * row);
        records.AddText(text.constData(), text.size());
    }
    ASSERT_EQ(records.RecordCount(), rows);
    for (int row = 0; row < rows; ++row) {
        ASSERT_EQ(records.Text(row, 0), QString::number(row));
        ASSERT_EQ(records.Text(row, 1), QString::number(3 * row));
    }
}

TEST(Recordset, AColumnThatTakesAWiderTypeLateKeepsTheValuesOfItsRows)
{
    constexpr int rows = 3000;
    Recordset records({u"x"_q, u"y"_q});
    for (int row = 0; row < rows; ++row) {
        records.AddInteger(row);
        records.AddNull();
    }
    records.AddReal(0.5);
    records.AddText("a", 1);
    records.AddText("b", 1);
    records.AddNull();
    for (int row = 0; row < rows; ++row) {
        ASSERT_EQ(records.Text(row, 0), QString::number(row));
        ASSERT_TRUE(records.IsNull(row, 1));
    }
    EXPECT_EQ(records.Text(rows, 0) + records.Text(rows + 1, 0), u"0.5b"_q);
    EXPECT_EQ(records.Text(rows, 1), u"a"_q);
    EXPECT_TRUE(records.IsNull(rows + 1, 1));
}

TEST(Recordset, APositionOutsideRaises)
{
    EXPECT_EQ(NumberOf([] { TwoPeople().Text(0, 2); }), ItemNotFound);
    EXPECT_EQ(NumberOf([] { TwoPeople().Text(0, -1); }), ItemNotFound);
    EXPECT_EQ(NumberOf([] { TwoPeople().Text(2, 0); }), NoCurrentRecord);
    EXPECT_EQ(NumberOf([] { TwoPeople().Text(-1, 0); }), NoCurrentRecord);
}

TEST(Recordset, NumbersComeInPlainDigits)
{
    Recordset records({u"a"_q, u"b"_q});
    records.AddInteger(2147483648);
    records.AddReal(20.0);
    EXPECT_EQ(records.Text(0, 0), u"2147483648"_q);
    EXPECT_EQ(records.Text(0, 1), u"20"_q);
}

TEST(RecordsetCells, AreTheFieldsByPositionFromOne)
{
    const RecordsetCells cells(std::make_shared<Recordset>(TwoPeople()));
    EXPECT_EQ(cells.Rows(), 2);
    EXPECT_EQ(cells.Cols(), 2);
    EXPECT_EQ(cells.Text(1, 1), u"7"_q);
    EXPECT_EQ(cells.Text(2, 1), u"김민준"_q);
    EXPECT_EQ(cells.Text(1, 2), u"8"_q);
    EXPECT_EQ(cells.Text(2, 2), QString()); // NULL
}

TEST(RecordsetCells, DoNotMoveTheCursorOfTheRecords)
{
    auto records = std::make_shared<Recordset>(TwoPeople());
    RecordsetCells(records).Text(1, 2);
    EXPECT_EQ(records->Field(u"GSubCd"), u"7"_q);
}

TEST(RecordsetCells, KeepTheirRecords)
{
    auto records = std::make_shared<Recordset>(TwoPeople());
    const RecordsetCells cells(records);
    records.reset();
    EXPECT_EQ(cells.Text(2, 1), u"김민준"_q);
}

TEST(RecordsetCells, OfAnEmptyResultHaveNoRows)
{
    const RecordsetCells cells(std::make_shared<Recordset>(QStringList{u"a"_q, u"b"_q}));
    EXPECT_EQ(cells.Rows(), 0);
    EXPECT_EQ(cells.Cols(), 2);
}

} // namespace tsms::test

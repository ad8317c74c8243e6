#include "addressbook/RecipientRecord.h"
#include "addressbook/UserSMSFileRead.h"
#include "runtime/RuntimeError.h"
#include "support/ListOfRows.h"
#include "support/RecipientFile.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <random>

using namespace tsms;
using namespace tsms::test;

namespace {

using Row = ListOfRows::Row;

void Read(QByteArray bytes, ListOfRows& list)
{
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    ReadRecipientRecords(file, list);
}

TEST(ListedNumbers, AreThoseOfRowsOnViewWhateverTheirPunctuation)
{
    ListOfRows list({{{}, {}, u"010-1111"_q}, {{}, {}, u"0102222"_q, true}, {}, {}});
    ListedNumbers listed(list);
    EXPECT_FALSE(listed.Take(3, u"0101111"_q));
    EXPECT_FALSE(listed.Take(3, u"010.11/11"_q));
    EXPECT_TRUE(listed.Take(3, u"010-2222"_q));
    EXPECT_FALSE(listed.Take(4, u"0102222"_q));
}

TEST(ListedNumbers, ThatOfTheLastRowIsOneOfThem)
{
    ListOfRows list({{}, {{}, {}, u"010-1"_q}});
    EXPECT_FALSE(ListedNumbers(list).Take(1, u"0101"_q));
}

TEST(ListedNumbers, LongOnesAreToldApartByEveryDigit)
{
    ListOfRows list({{{}, {}, u"00000000000000000001"_q}, {}});
    EXPECT_TRUE(ListedNumbers(list).Take(2, u"18446744073709551617"_q)); // 1 and two to the power of 64
    EXPECT_FALSE(ListedNumbers(list).Take(2, u"0000000000-0000000001"_q));
}

TEST(ListedNumbers, OnesWithOtherSignsAreToldApartFromThoseOfDigits)
{
    ListOfRows list({{{}, {}, u"59"_q}, {}});
    EXPECT_TRUE(ListedNumbers(list).Take(2, u"1a"_q)); // its code is 49 behind that of 0
    EXPECT_FALSE(ListedNumbers(list).Take(2, u"5-9"_q));
}

TEST(ListedNumbers, ANumberIsGoneWhenTheLastRowThatHasItGivesWay)
{
    ListOfRows list({{{}, {}, u"0101"_q}, {{}, {}, u"010-1"_q}, {{}, {}, u"0102"_q, true}, {}});
    ListedNumbers listed(list);
    const auto take = [&](int row, const QString& phone) {
        const bool taken = listed.Take(row, phone);
        if (taken)
            list.Write(row, {}, {}, phone);
        return taken;
    };
    EXPECT_TRUE(take(1, u"0109"_q));
    EXPECT_FALSE(take(4, u"0101"_q)); // it stands in row 2 still
    EXPECT_TRUE(take(2, u"0108"_q));
    EXPECT_TRUE(take(4, u"0101"_q));
    EXPECT_TRUE(take(3, u"0107"_q)); // a hidden row counts neither before nor after
    EXPECT_TRUE(take(3, u"0107"_q));
}

TEST(RecipientRecordsInAList, ComeToTheSameAsByScansOfTheWholeList)
{
    std::mt19937 random(20120530);
    const auto any = [&](unsigned count) { return static_cast<int>(random() % count); };
    const QByteArray prefixes[] = {"010", "011", "016", "02-", "   ", "019"};
    const QByteArray signs[] = {"", "-", "/", ".", " ", "--"};
    const auto phone = [&] {
        return prefixes[any(6)] + signs[any(6)] + QByteArray::number(any(6)) + signs[any(6)] +
               QByteArray::number(any(4));
    };
    for (int round = 0; round < 400; ++round) {
        ListOfRows list;
        for (int row = any(30); row > 0; --row)
            list.rows.push_back({u"z"_q, u"old"_q, QString::fromLatin1(phone()), any(3) == 0});
        QByteArray bytes;
        for (int record = any(60); record > 0; --record)
            bytes += RecipientRecordBytes("n" + QByteArray::number(record), phone());
        ListOfRows scanned(list.rows);
        Read(bytes, list);
        ReadByScans(bytes, scanned);
        ASSERT_EQ(list.rows, scanned.rows) << "round " << round;
    }
}

TEST(RecipientRecordsInAList, TwentySpareRowsFollowAndAnIncompleteRecordCountsByItsPart)
{
    const auto rowsFor = [](qsizetype size) {
        ListOfRows list;
        Read(QByteArray(size, ' '), list);
        return list.MaxRows();
    };
    EXPECT_EQ(rowsFor(0), 20);
    EXPECT_EQ(rowsFor(100), 20); // 20.4
    EXPECT_EQ(rowsFor(200), 21); // 20.8
    EXPECT_EQ(rowsFor(247), 21);
    EXPECT_EQ(rowsFor(3 * 247), 23);
    EXPECT_EQ(rowsFor(3 * 247 + 123), 23);
    EXPECT_EQ(rowsFor(3 * 247 + 124), 24);
}

TEST(RecipientRecordsInAList, AListThatIsTooLongLosesItsEnd)
{
    ListOfRows list(std::vector<Row>(30, {u"z"_q, u"old"_q, u"0105"_q}));
    Read(RecipientRecordBytes("a", "0107"), list);
    EXPECT_EQ(list.MaxRows(), 21);
    EXPECT_EQ(list.rows[0], (Row{u"1"_q, u"a"_q, u"0107"_q}));
    EXPECT_EQ(list.rows[1], (Row{u"z"_q, u"old"_q, u"0105"_q}));
}

/// A file whose end cannot be read any more.
class ShrinkingFile final : public QBuffer
{
    qint64 readData(char* data, qint64 size) override
    {
        return pos() >= 2 * RecipientRecord::Size ? -1 : QBuffer::readData(data, std::min<qint64>(size, 200));
    }
};

TEST(RecipientRecordsInAList, AFileThatBreaksOffLeavesTheRowsUntilThere)
{
    ShrinkingFile file;
    file.setData(RecipientRecordBytes("a", "0101") + RecipientRecordBytes("b", "0102") +
                 RecipientRecordBytes("c", "0103"));
    file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    ListOfRows list;
    EXPECT_THROW(ReadRecipientRecords(file, list), RuntimeError);
    EXPECT_EQ(list.MaxRows(), 23);
    EXPECT_EQ(list.rows[1].phone, u"0102"_q);
    EXPECT_EQ(list.rows[2].phone, QString());
}

} // namespace

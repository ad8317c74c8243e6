#include "addressbook/RecipientRecord.h"
#include "addressbook/UserSMSFileRead.h"
#include "runtime/RuntimeError.h"
#include "support/ReadByScans.h"
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

/// The numbers of the records, read into a list.
void ReadPhones(const QByteArrayList& phones, ListOfRows& list)
{
    QByteArray bytes;
    for (const QByteArray& phone : phones)
        bytes += RecipientRecordBytes("n", phone);
    Read(bytes, list);
}

TEST(RecipientRecordsInAList, ANumberOfARowOnViewIsNotTakenAgainWhateverItsPunctuation)
{
    ListOfRows list({{.phone = u"010-1111"_q}, {.phone = u"0102222"_q, .removed = true}});
    ReadPhones({"0101111", "010.11/11", "010-2222"}, list);
    EXPECT_EQ(list.Phone(1), u"010-2222"_q); // a removed row has it
    EXPECT_EQ(list.Phone(2), u"0102222"_q);
}

TEST(RecipientRecordsInAList, TheNumberOfTheLastRowIsNotTakenAgain)
{
    ListOfRows list;
    list.Resize(21);
    list.Write(21, {}, u"010-1"_q);
    ReadPhones({"0101"}, list);
    EXPECT_EQ(list.Phone(1), QString());
}

TEST(RecipientRecordsInAList, ANumberMayComeAgainWhenTheLastRowThatHasItGivesWay)
{
    ListOfRows list({{.phone = u"0101"_q}, {.phone = u"010-1"_q}, {.phone = u"0102"_q, .removed = true}});
    ReadPhones({"0109", "0101", "0108", "0101", "0101"}, list);
    EXPECT_EQ(list.Phone(1), u"0109"_q); // the first 0101 stands in row 2 still
    EXPECT_EQ(list.Phone(2), u"0108"_q);
    EXPECT_EQ(list.Phone(3), u"0101"_q); // a removed row counts neither before nor after
    EXPECT_EQ(list.Phone(4), u"0101"_q);
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
        return list.Rows();
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
    EXPECT_EQ(list.Rows(), 21);
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
    EXPECT_EQ(list.Rows(), 23);
    EXPECT_EQ(list.rows[1].phone, u"0102"_q);
    EXPECT_EQ(list.rows[2].phone, QString());
}

} // namespace

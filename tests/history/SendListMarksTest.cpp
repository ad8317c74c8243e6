#include "history/SendListMarks.h"
#include "history/ModStep2.h"
#include "runtime/CellSource.h"
#include "runtime/RuntimeError.h"
#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

const QDate MarkDay(2012, 5, 30);

struct MarkRow
{
    QString status;
    QString time;
    CheckPicture mark;
};

class FirstMarks : public ::testing::TestWithParam<MarkRow>
{
};

TEST_P(FirstMarks, FollowStatusAndDay)
{
    EXPECT_EQ(FirstMark(GetParam().status, GetParam().time, MarkDay), GetParam().mark);
}

INSTANTIATE_TEST_SUITE_P(Rows, FirstMarks,
                         ::testing::Values(MarkRow{u"1"_q, u"2012-05-31 10:00"_q, CheckEmpty},
                                           MarkRow{u"1"_q, u"2012-05-30 23:59"_q, CheckLocked},
                                           MarkRow{u"1"_q, u"2012-05-29 10:00"_q, CheckLocked},
                                           MarkRow{u"0"_q, u"2012-05-31 10:00"_q, CheckEmpty},
                                           MarkRow{u"0"_q, u"2012-05-30 10:00"_q, CheckLocked},
                                           MarkRow{u"2"_q, u"2012-05-31 10:00"_q, CheckLocked},
                                           MarkRow{u"2"_q, u"2012-05-29 10:00"_q, CheckLocked},
                                           MarkRow{u" 2 "_q, u"2012-05-31 10:00"_q, CheckLocked},
                                           MarkRow{u""_q, u"2012-05-31 10:00"_q, CheckEmpty},
                                           MarkRow{u"2"_q, u"no day"_q,
                                                   CheckLocked})); // its day is not looked at

TEST(SendListMarks, AnotherThanARefusedOneWithoutADayRaisesATypeMismatch)
{
    for (const QString& status : {u"0"_q, u"1"_q, u""_q})
        try {
            FirstMark(status, u"no day"_q, MarkDay);
            FAIL() << "taken with status " << status.toStdString();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, TypeMismatch);
        }
}

/// Many rows, all of them reserved.
class ManyReserved final : public CellSource
{
public:
    explicit ManyReserved(int rows) : rows_(rows) {}
    int Rows() const override { return rows_; }
    int Cols() const override { return SendListErrorText; }
    QString Text(int col, int) const override
    {
        return col == SendListStatus ? u"1"_q : col == SendListTime ? u"2012-05-31 10:00"_q : QString();
    }

private:
    int rows_;
};

class MarkedList : public ::testing::Test
{
protected:
    MarkedList() { InitSendListGrid(list); }

    void Fill(int rows)
    {
        list.Cells().SetMaxRows(rows);
        list.SetDataSource(std::make_shared<ManyReserved>(rows));
    }
    /// Three rows: an empty, a ticked and a locked mark.
    void FillThree()
    {
        Fill(3);
        for (int row = 1; row <= 3; ++row)
            list.Cells().SetCellPicture(SendListStatus, row, row - 1);
    }
    QList<CheckPicture> Marks() { return {MarkOf(list, 1), MarkOf(list, 2), MarkOf(list, 3)}; }

    fpSpread list;
};

TEST_F(MarkedList, EachRowGetsItsMark)
{
    Fill(3);
    list.Cells().SetText(SendListTime, 2, u"2012-05-30 10:00"_q);
    list.Cells().SetText(SendListStatus, 3, u"2"_q);
    SetFirstMarks(list, MarkDay);
    EXPECT_EQ(Marks(), QList<CheckPicture>({CheckEmpty, CheckLocked, CheckLocked}));
}

TEST_F(MarkedList, WithoutRowsThereIsNothingToMark)
{
    SetFirstMarks(list, MarkDay);
    EXPECT_EQ(CountTicked(list), 0);
}

TEST_F(MarkedList, ARowWithoutADayLeavesTheRowsBeforeItMarked)
{
    Fill(3);
    list.Cells().SetText(SendListTime, 2, u"no day"_q);
    EXPECT_THROW(SetFirstMarks(list, MarkDay), RuntimeError);
    EXPECT_EQ(list.Cells().CellPicture(SendListStatus, 1), CheckEmpty);
    EXPECT_EQ(list.Cells().CellPicture(SendListStatus, 2), -1);
    EXPECT_EQ(list.Cells().CellPicture(SendListStatus, 3), -1);
}

TEST_F(MarkedList, AsManyRowsAsTheCounterHoldsAreMarked)
{
    Fill(32767);
    SetFirstMarks(list, MarkDay);
    EXPECT_EQ(MarkOf(list, 32767), CheckEmpty);
}

TEST_F(MarkedList, OneRowMoreEndsInAnOverflowBehindTheMarksOfTheOthers)
{
    Fill(32768);
    try {
        SetFirstMarks(list, MarkDay);
        FAIL() << "all marked";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, Overflow);
    }
    EXPECT_EQ(list.Cells().CellPicture(SendListStatus, 32767), CheckEmpty);
    EXPECT_EQ(list.Cells().CellPicture(SendListStatus, 32768), -1);
}

TEST_F(MarkedList, AnInvertedMarkIsTickedOrEmptyAndALockedOneStays)
{
    FillThree();
    for (int row = 1; row <= 3; ++row)
        InvertMark(list, row);
    EXPECT_EQ(Marks(), QList<CheckPicture>({CheckTicked, CheckEmpty, CheckLocked}));
}

TEST_F(MarkedList, InvertingAllTwiceLeavesThemAsTheyWere)
{
    FillThree();
    InvertMarks(list);
    EXPECT_EQ(Marks(), QList<CheckPicture>({CheckTicked, CheckEmpty, CheckLocked}));
    InvertMarks(list);
    EXPECT_EQ(Marks(), QList<CheckPicture>({CheckEmpty, CheckTicked, CheckLocked}));
}

TEST_F(MarkedList, ARowWithoutAMarkIsNotInverted)
{
    Fill(1);
    InvertMarks(list);
    EXPECT_EQ(list.Cells().CellPicture(SendListStatus, 1), -1);
}

TEST_F(MarkedList, OnlyTickedRowsCount)
{
    FillThree();
    EXPECT_EQ(CountTicked(list), 1);
    InvertMark(list, 1);
    EXPECT_EQ(CountTicked(list), 2);
    list.Cells().SetCellPicture(SendListStatus, 3, CheckTicked);
    EXPECT_EQ(CountTicked(list), 3);
}

} // namespace

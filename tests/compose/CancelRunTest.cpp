#include "compose/CancelRun.h"

#include "compose/RunTest.h"
#include "compose/SentRows.h"
#include "runtime/RuntimeError.h"

#include <gtest/gtest.h>

#include <vector>

using namespace tsms;
using namespace tsms::test;

namespace {

class Rows final : public SentRows
{
public:
    struct Row
    {
        bool ticked = true;
        QString number = u"0"_q;
        QString key = u"1"_q;
    };
    explicit Rows(std::vector<Row> given) : rows_(std::move(given)) {}
    int MaxRows() const override { return static_cast<int>(rows_.size()); }
    bool IsRowTicked(int row) const override { return At(row).ticked; }
    QString KeyText(int row) const override { return At(row).key; }
    QString NumberText(int row) const override { return At(row).number; }
    QString TimeText(int) const override { return u"2012-05-31 10:00"_q; }

private:
    const Row& At(int row) const { return rows_[static_cast<std::size_t>(row) - 1]; }

    std::vector<Row> rows_;
};

class CancelRunTest : public RunTest
{
protected:
    /// A message that the gateway holds until tomorrow; it has the first key and the number 100001.
    void ReserveOne()
    {
        db.ConnectWithRetry();
        sms.InitWithRetry();
        ASSERT_TRUE(sms.SubmitSMS(u"가"_q, u"010-0000-0001"_q, u"02-1234-5678"_q, u"내일 뵙겠습니다."_q,
                                  u"2012:05:31:10:00"_q, {}, {}, {}));
        sms.ReleaseSOAP();
        db.CloseDB();
        callsBefore = gateway.CallCount();
    }

    int callsBefore = 0;
};

TEST_F(CancelRunTest, MovesTheBarWithEachRowAndTheStatusWithTickedOnesAlone)
{
    const Rows rows({{.ticked = false, .number = u"100001"_q}, {}, {.ticked = false}, {}});
    RecordedDisplay display;
    CancelRun run(db, sms, rows, display);
    run.RunCancel(2);
    EXPECT_EQ(display.shown,
              QStringList({u"busy"_q, u"bar of 2"_q, u"bar 0"_q, u"bar 1"_q,
                           u"총 취소건수 : 2건 / 현 취소 건수 : 1건"_q, u"bar 2"_q, u"bar 3"_q,
                           u"총 취소건수 : 2건 / 현 취소 건수 : 2건"_q, u"bar 4"_q, u"idle"_q}));
    EXPECT_EQ(gateway.CallCount(), 0);
}

TEST_F(CancelRunTest, WithNothingWithdrawnTheBalanceIsNotTouched)
{
    const Rows rows({{}, {}});
    RecordedDisplay display;
    CancelRun(db, sms, rows, display).RunCancel(2);
    EXPECT_EQ(connections.Connected(), 1);
    EXPECT_EQ(connections.Statements(), QStringList());
}

TEST_F(CancelRunTest, ShowsTheCountsBehindEachRowThatWasTried)
{
    ReserveOne();
    const Rows rows({{.number = u"100001"_q}, {.number = u"999999"_q}, {}});
    RecordedDisplay display;
    CancelRun run(db, sms, rows, display);
    run.RunCancel(3);
    EXPECT_EQ(display.shown,
              QStringList({u"busy"_q, u"bar of 3"_q, u"bar 0"_q, u"counts [1] []"_q,
                           u"총 취소건수 : 3건 / 현 취소 건수 : 1건"_q, u"bar 1"_q, u"counts [1] [1]"_q,
                           u"총 취소건수 : 3건 / 현 취소 건수 : 2건"_q, u"bar 2"_q,
                           u"총 취소건수 : 3건 / 현 취소 건수 : 3건"_q, u"bar 3"_q, u"idle"_q}));
    EXPECT_EQ(gateway.CallCount(), callsBefore + 2);
}

TEST_F(CancelRunTest, ItsFirstWithdrawalTellsTheDatabaseHowManyMayFollow)
{
    ReserveOne();
    const Rows rows({{}, {.number = u"100001"_q}, {.ticked = false}, {}, {}});
    RecordedDisplay display;
    CancelRun run(db, sms, rows, display);
    run.RunCancel(4);
    EXPECT_EQ(connections.Expected(), QList<int>({2}));
}

TEST_F(CancelRunTest, GroupsTheNumberOfRowsDoneAndLeavesTheTotalPlain)
{
    const Rows rows(std::vector<Rows::Row>(1000));
    RecordedDisplay display;
    CancelRun run(db, sms, rows, display);
    run.RunCancel(1000);
    EXPECT_EQ(display.shown.filter(u"현 취소 건수"_q).last(),
              u"총 취소건수 : 1000건 / 현 취소 건수 : 1,000건"_q);
    EXPECT_EQ(gateway.CallCount(), 0);
}

TEST_F(CancelRunTest, CountsAnewInEachRun)
{
    ReserveOne();
    const Rows rows({{.number = u"100001"_q}});
    RecordedDisplay display;
    CancelRun run(db, sms, rows, display);
    run.RunCancel(1);
    EXPECT_EQ(run.CountOK, 1);
    EXPECT_EQ(run.CountFail, 0);
    run.RunCancel(1); // it is gone by now
    EXPECT_EQ(run.CountOK, 0);
    EXPECT_EQ(run.CountFail, 1);
    EXPECT_EQ(display.shown.filter(u"현 취소 건수"_q).last(), u"총 취소건수 : 1건 / 현 취소 건수 : 1건"_q);
}

/// A list whose second row cannot be read.
class BrokenRows final : public SentRows
{
public:
    int MaxRows() const override { return 3; }
    bool IsRowTicked(int row) const override { return row != 2 ? true : throw RuntimeError(Overflow); }
    QString KeyText(int) const override { return {}; }
    QString NumberText(int) const override { return u"0"_q; }
    QString TimeText(int) const override { return {}; }
};

TEST_F(CancelRunTest, AnErrorInTheRunItselfEndsItInSilence)
{
    RecordedDisplay display;
    const BrokenRows rows;
    CancelRun(db, sms, rows, display).RunCancel(3);
    EXPECT_EQ(display.shown,
              QStringList({u"busy"_q, u"bar of 3"_q, u"bar 0"_q, u"총 취소건수 : 3건 / 현 취소 건수 : 1건"_q,
                           u"bar 1"_q, u"idle"_q}));
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EXPECT_EQ(connections.OpenNow(), 0);
}

} // namespace

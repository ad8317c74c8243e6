#include "compose/CancelRun.h"
#include "compose/CancelTransport.h"
#include "history/GridSentRows.h"
#include "runtime/Numbers.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/HistoryProgram.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/look/Pictures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>

#include <algorithm>

using namespace tsms;
using namespace tsms::test;

namespace {

class Cancellation : public HistoryProgram
{
protected:
    /// Reserves that many messages, named "1", "2" and so on, and lists them in this order, all ticked.
    void ListReserved(int count)
    {
        for (int i = 1; i <= count; ++i)
            Reserve(QString::number(i), u"2012:05:31:%1:00"_q.arg(24 - i));
        EnterAndListAll();
        for (int row = 1; row <= count; ++row)
            ClickMark(row);
        ASSERT_EQ(Marks(), QString(count, u't'));
        callsBefore = program.gateway.CallCount();
    }
    /// Clicks "cancel" and answers the question with yes. Runs `act` in the dialog that opens, clicks its
    /// button and keeps what it showed at the end of the run. Behind the question come `boxes`.
    void Cancel(int ticked, const QList<Box>& boxes = {CancelledBox()},
                std::function<void(QWidget& dialog)> act = {})
    {
        InDialog(ticked, boxes, [this, act](QWidget& dialog) {
            if (act)
                act(dialog);
            ClickOn(program.On<QWidget>(dialog, u"BtnSendS(0)"_q));
        });
    }
    void InDialog(int ticked, const QList<Box>& boxes, std::function<void(QWidget& dialog)> act)
    {
        program.desktop.Expect(CancelQuestion(ticked), AnswerYes);
        for (const Box& box : boxes)
            program.desktop.Expect(box);
        WhenShown(u"MakeSMSTransport"_q, [this, act](QWidget& dialog) {
            WhenClosing(dialog, [this, &dialog] {
                for (int i = 0; i < 4; ++i)
                    shown[i] = Words(dialog, u"LblSendSMS(%1)"_q.arg(i));
                const auto& line = program.On<Label>(dialog, u"lblStatus"_q);
                status = line.Caption();
                statusWidth = line.fontMetrics().horizontalAdvance(status);
                roomForStatus = line.contentsRect().width();
                const auto& bar = program.On<ProgressBar>(dialog, u"PB"_q);
                barMaximum = bar.Max();
                barValue = bar.Value();
            });
            act(dialog);
        });
        program.Click(u"BtnSendListFun(1)"_q);
    }
    void ExpectForm(QWidget& dialog, const QString& total)
    {
        EXPECT_EQ(dialog.windowTitle(), u"문자메시지 예약취소"_q);
        EXPECT_EQ(Words(dialog, u"lblTitle(1)"_q), u"문자메시지 예약취소"_q);
        EXPECT_EQ(Words(dialog, u"Label1(0)"_q), u"취소 건수"_q);
        EXPECT_EQ(Words(dialog, u"Label1(1)"_q), u"성공 건수"_q);
        EXPECT_EQ(Words(dialog, u"LblSendSMS(0)"_q), total);
        EXPECT_EQ(Words(dialog, u"lblStatus"_q), u"총 취소건수 : %1건 / 현 취소 건수 : 0건"_q.arg(total));
        EXPECT_EQ(program.On<PushButton>(dialog, u"BtnSendS(0)"_q).Caption(), u"예약취소"_q);
        EXPECT_EQ(program.On<PushButton>(dialog, u"BtnSendS(1)"_q).Caption(), u"취소(ESC)"_q);
        for (const QString& name : {u"ChkTime"_q, u"DTPicker1"_q, u"CbTime"_q, u"CbMintue"_q})
            EXPECT_EQ(dialog.findChild<QWidget*>(name), nullptr) << name.toStdString();
    }
    /// The `nth` call of the run goes wrong.
    void Fail(FaultKind kind, int nth) { program.gateway.Fail(kind, callsBefore + nth); }
    QString Words(QWidget& dialog, const QString& label)
    {
        return program.On<Label>(dialog, label).Caption();
    }
    int WithdrawnMessages()
    {
        const auto messages = program.gateway.Messages();
        return static_cast<int>(std::count_if(messages.begin(), messages.end(),
                                              [](const GatewayMessage& held) { return held.Withdrawn; }));
    }

    int callsBefore = 0;
    QString shown[4];
    QString status;
    int statusWidth = 0; ///< of its words, in pixels
    int roomForStatus = 0;
    int barMaximum = 0;
    int barValue = 0;
};

// The start on the page.

TEST_F(Cancellation, WithoutATickIsNotBegun)
{
    Reserve(u"가"_q);
    EnterAndListAll();
    program.desktop.Expect(NothingTickedBox());
    program.Click(u"BtnSendListFun(1)"_q);
    EXPECT_EQ(Marks(), u"e"_q);
}

TEST_F(Cancellation, EmptyAndLockedMarksAreNoTicks)
{
    Log({.time = u"2012-05-31-12-00"_q});
    Log({.time = u"2012-05-30 10-00"_q});
    EnterAndListAll();
    ASSERT_EQ(Marks(), u"el"_q);
    program.desktop.Expect(NothingTickedBox());
    program.Click(u"BtnSendListFun(1)"_q);
}

TEST_F(Cancellation, TheQuestionTellsTheNumberAndOnlyYesGoesOn)
{
    ListReserved(3);
    ClickMark(3);
    const int opens = program.connections.Opens();
    for (const MsgBoxAnswer answer : {AnswerNo, AnswerOK}) {
        program.desktop.Expect(CancelQuestion(2), answer);
        program.Click(u"BtnSendListFun(1)"_q);
    }
    EXPECT_EQ(Marks(), u"tte"_q);
    EXPECT_EQ(program.connections.Opens(), opens);
    EXPECT_TRUE(Withdrawals().isEmpty());
}

// The dialog.

TEST_F(Cancellation, TheDialogIsToldWhatItIsAbout)
{
    Enter();
    const GridSentRows rows(List());
    CancelTransport dialog(program.services, rows, 1234);
    EXPECT_EQ(program.On<Label>(dialog, u"LblSendSMS(0)"_q).Tag, u"1234"_q);
    ExpectForm(dialog, u"1234"_q);
}

TEST_F(Cancellation, TheDialogHasItsFormBeforeItIsDrawn)
{
    Enter();
    const GridSentRows rows(List());
    CancelTransport dialog(program.services, rows, 2);
    bool looked = false;
    WhenComing(dialog, [&] {
        looked = true;
        ExpectForm(dialog, u"2"_q);
    });
    WhenShown(u"MakeSMSTransport"_q, [](QWidget& form) { PressKey(form, Qt::Key_Escape); });
    dialog.ShowModal();
    EXPECT_TRUE(looked);
}

TEST_F(Cancellation, TheDialogHasItsFormWhenItIsOpenedFromThePage)
{
    ListReserved(2);
    InDialog(2, {}, [this](QWidget& dialog) {
        ExpectForm(dialog, u"2"_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(Cancellation, LaterActivationsOfTheDialogDoNothing)
{
    ListReserved(1);
    InDialog(1, {}, [this](QWidget& dialog) {
        auto& button = program.On<PushButton>(dialog, u"BtnSendS(0)"_q);
        button.SetCaption(u"다른 글"_q);
        QEvent again(QEvent::WindowActivate);
        QApplication::sendEvent(&dialog, &again);
        EXPECT_EQ(button.Caption(), u"다른 글"_q);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(Cancellation, LeavingTheDialogWithdrawsNothingAndSearchesAgain)
{
    Reserve(u"가"_q);
    EnterAndListAll();
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); },
        [this](QWidget& dialog) { ClickOn(program.On<QWidget>(dialog, u"BtnSendS(1)"_q)); },
        [this](QWidget& dialog) { ClickOn(program.On<QWidget>(dialog, u"BtnTopFunc(1)"_q)); }};
    for (const auto& leave : ways) {
        ClickMark(1);
        const int statements = StatementCount();
        InDialog(1, {}, leave);
        EXPECT_EQ(StatementCount(), statements + 1);
        EXPECT_EQ(Marks(), u"e"_q);
    }
    EXPECT_TRUE(Withdrawals().isEmpty());
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(Cancellation, F12Cancels)
{
    ListReserved(1);
    InDialog(1, {CancelledBox()}, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
    EXPECT_EQ(Withdrawals().size(), 1);
    EXPECT_TRUE(Keys().isEmpty());
}

// The run.

TEST_F(Cancellation, WithdrawsDeletesAndCredits)
{
    ListReserved(3);
    ClickMark(2);
    Cancel(2);
    ASSERT_EQ(Withdrawals().size(), 2);
    EXPECT_EQ(Withdrawals()[0].Arguments, QStringList({u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"100001"_q,
                                                       QString(), QString(), QString()}));
    EXPECT_EQ(Withdrawals()[1].Arguments[3], u"100003"_q);
    EXPECT_EQ(Keys(), QStringList{u"2"_q});
    EXPECT_EQ(program.Balance(), 102);
    EXPECT_EQ(shown[0], u"2"_q);
    EXPECT_EQ(shown[1], u"2"_q);
    EXPECT_EQ(shown[2], u""_q);
    EXPECT_EQ(shown[3], u"0"_q);
    EXPECT_EQ(status, u"총 취소건수 : 2건 / 현 취소 건수 : 2건"_q);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(Cancellation, SendsTheStatementsOfEachRowAndOneCredit)
{
    ListReserved(2);
    const int statements = StatementCount();
    Cancel(2);
    EXPECT_EQ(
        program.connections.Statements().mid(statements, 4),
        QStringList({u"DELETE SMSLog_2012 WHERE SMSKey = 1"_q, u"DELETE SMSLog_2012 WHERE SMSKey = 2"_q,
                     u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 2"_q, u"SELECT * FROM SMSSetup"_q}));
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(Cancellation, TheListIsSearchedAgainBehindTheLastBox)
{
    ListReserved(2);
    ClickMark(2);
    program.desktop.Expect(CancelQuestion(1), AnswerYes);
    program.desktop.Expect(CancelledBox(), AnswerOK, [this] {
        EXPECT_EQ(Form::Find(u"MakeSMSTransport"_q), nullptr);
        EXPECT_EQ(Names(), QStringList({u"1"_q, u"2"_q}));
    });
    WhenShown(u"MakeSMSTransport"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
    program.Click(u"BtnSendListFun(1)"_q);
    EXPECT_EQ(Names(), QStringList{u"2"_q});
    EXPECT_EQ(Marks(), u"e"_q);
    EXPECT_EQ(CountText(), u"(총 : 1건이 검색되었습니다.)"_q);
}

TEST_F(Cancellation, ANumberOfZeroCountsAsDoneAndIsNotWithdrawn)
{
    Reserve(u"가"_q, u"2012:05:31:12:00"_q);
    Log({.time = u"2012-05-31-11-00"_q, .number = u" 0 "_q});
    Reserve(u"다"_q, u"2012:05:31:10:00"_q);
    EnterAndListAll();
    for (int row = 1; row <= 3; ++row)
        ClickMark(row);
    Cancel(3);
    EXPECT_EQ(Withdrawals().size(), 2);
    EXPECT_EQ(status, u"총 취소건수 : 3건 / 현 취소 건수 : 3건"_q);
    EXPECT_EQ(shown[0], u"3"_q);
    EXPECT_EQ(shown[1], u"2"_q);
    EXPECT_EQ(shown[2], u""_q);
    EXPECT_EQ(program.Balance(), 102);
    EXPECT_EQ(Keys(), QStringList{u"2"_q});
}

TEST_F(Cancellation, WithZerosAloneNothingIsAsked)
{
    Log({.time = u"2012-05-31-11-00"_q, .number = u"0"_q});
    EnterAndListAll();
    ClickMark(1);
    Cancel(1, {NothingCancelledBox()});
    EXPECT_EQ(program.gateway.CallCount(), 0);
    EXPECT_EQ(shown[1], u"0"_q); // untouched
    EXPECT_EQ(Keys(), QStringList{u"1"_q});
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(Cancellation, AnEmptyNumberIsTriedWithAnEmptyText)
{
    Log({.time = u"2012-05-31-12-00"_q, .number = {}});
    Log({.time = u"2012-05-31-11-00"_q, .number = u"x"_q});
    program.database.Execute(u"UPDATE SMSLog_2012 SET SMSNo = '  ' WHERE SMSNo = 'x'"_q);
    EnterAndListAll();
    ClickMark(1);
    ClickMark(2);
    Cancel(2, {NothingCancelledBox()});
    ASSERT_EQ(Withdrawals().size(), 2);
    EXPECT_EQ(Withdrawals()[0].Arguments[3], QString());
    EXPECT_EQ(Withdrawals()[1].Arguments[3], QString());
    EXPECT_EQ(shown[2], u"2"_q);
    EXPECT_EQ(Keys().size(), 2);
}

TEST_F(Cancellation, TheKeyIsTrimmed)
{
    ListReserved(1);
    List().Cells().SetText(1, 1, u"  1 "_q);
    const int statements = StatementCount();
    Cancel(1);
    EXPECT_EQ(program.connections.Statements()[statements], u"DELETE SMSLog_2012 WHERE SMSKey = 1"_q);
}

TEST_F(Cancellation, TheStatusIsNotLookedAt)
{
    Reserve(u"가"_q);
    program.database.Execute(u"UPDATE SMSLog_2012 SET SMSStatus = '2'"_q);
    EnterAndListAll();
    ASSERT_EQ(Marks(), u"l"_q);
    List().Cells().SetCellPicture(2, 1, CheckTicked);
    Cancel(1);
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_EQ(program.Balance(), 101);
}

TEST_F(Cancellation, TheYearOfTheShownTimeNamesTheTable)
{
    ListReserved(1);
    Log({.time = u"2013-05-31-23-00"_q});
    ASSERT_EQ(Keys(2013), QStringList{u"1"_q});
    List().Cells().SetText(7, 1, u"  2013-05-31 23:00"_q);
    Cancel(1);
    EXPECT_TRUE(Keys(2013).isEmpty());
    EXPECT_EQ(Keys(2012), QStringList{u"1"_q});
    EXPECT_EQ(program.Balance(), 101);
}

TEST_F(Cancellation, TheBarRunsByRowsToTheNumberOfTicks)
{
    ListReserved(5);
    for (int row : {1, 2, 3})
        ClickMark(row);
    Cancel(2);
    EXPECT_EQ(barMaximum, 2);
    EXPECT_EQ(barValue, 5);
}

class LongCancellation : public Cancellation, public ::testing::WithParamInterface<int>
{
};

TEST_P(LongCancellation, ShowsItsLastStatusInFull)
{
    const int count = GetParam();
    LogMany(count, {.time = u"2012-05-31-12-00"_q, .number = u"0"_q});
    EnterAndListAll();
    ClickChkAll();
    Cancel(count, {NothingCancelledBox()});
    EXPECT_EQ(status, CancelStatus(count, FormatCount(count)));
    EXPECT_LE(statusWidth, roomForStatus);
}

INSTANTIATE_TEST_SUITE_P(Counts, LongCancellation, ::testing::Values(1, 12, 1234));

TEST_F(Cancellation, ItsOutcomeIsToldWhenDatabaseAndGatewayHaveBeenLetGo)
{
    ListReserved(1);
    Cancel(1, {}, [this](QWidget&) { ExpectOutcome(CancelledBox()); });
    ExpectNoGatewayClient();
}

TEST_F(Cancellation, ARefusalIsToldWhenDatabaseAndGatewayHaveBeenLetGo)
{
    ListReserved(1);
    Fail(FaultKind::Refuse, 1);
    Cancel(1, {}, [this](QWidget&) { ExpectOutcome(NothingCancelledBox()); });
    ExpectNoGatewayClient();
}

TEST_F(Cancellation, OneConnectionToTheGatewayServesTheWholeRun)
{
    ListReserved(5);
    const int connections = program.gateway.ConnectionCount();
    Cancel(5);
    EXPECT_EQ(program.gateway.ConnectionCount(), connections + 1);
    EXPECT_EQ(program.Balance(), 105);
}

TEST_F(Cancellation, KeysAndClicksDuringTheRunDoNothing)
{
    ListReserved(2);
    int looked = 0;
    Cancel(2, {CancelledBox()}, [&](QWidget& dialog) {
        program.connections.BeforeStatement([&](const QString& sql) {
            if (!sql.startsWith(u"DELETE"_q))
                return;
            ++looked;
            EXPECT_TRUE(program.session.IsBusy());
            PressKey(dialog, Qt::Key_F12);
            PressKey(dialog, Qt::Key_Escape);
            for (const QString& name : {u"BtnSendS(0)"_q, u"BtnSendS(1)"_q, u"BtnTopFunc(1)"_q})
                ClickOn(program.On<QWidget>(dialog, name));
            EXPECT_TRUE(dialog.isVisible());
        });
    });
    EXPECT_EQ(looked, 2);
    EXPECT_EQ(Withdrawals().size(), 2);
}

TEST_F(Cancellation, TheMainWindowKeepsShowingTheBalanceFromBeforeTheRunUntilTheAccountIsReadAgain)
{
    ListReserved(2);
    Cancel(2);
    EXPECT_EQ(program.Balance(), 102);
    EXPECT_EQ(program.session.SMSRemainCnt, 100);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    EXPECT_EQ(program.The<Label>(u"lblSMSCnt"_q).Tag, u"100"_q);
    program.Click(u"BtnToolbarDis(0)"_q);
    program.desktop.Expect({u"문자메시지"_q, u"문자메시지 내용을 입력하여 주십시오."_q, MsgBoxCritical});
    program.Click(u"BtnSend(0)"_q);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"102건 남았습니다."_q);
}

// What the gateway does wrong.

TEST_F(Cancellation, ARefusedRowStaysAndTheRunGoesOn)
{
    ListReserved(3);
    Fail(FaultKind::Refuse, 2);
    Cancel(3);
    EXPECT_EQ(Withdrawals().size(), 3);
    EXPECT_EQ(shown[1], u"2"_q);
    EXPECT_EQ(shown[2], u"1"_q);
    EXPECT_EQ(status, u"총 취소건수 : 3건 / 현 취소 건수 : 3건"_q);
    EXPECT_EQ(Keys(), QStringList{u"2"_q});
    EXPECT_EQ(Names(), QStringList{u"2"_q});
    EXPECT_EQ(program.Balance(), 102);
}

TEST_F(Cancellation, WithEveryRowRefusedItEndsInTheFailureBox)
{
    ListReserved(2);
    program.gateway.Fail(FaultKind::Refuse);
    const int statements = StatementCount();
    Cancel(2, {NothingCancelledBox()});
    EXPECT_EQ(Withdrawals().size(), 2);
    EXPECT_EQ(shown[1], u""_q);
    EXPECT_EQ(shown[2], u"2"_q);
    EXPECT_EQ(Keys().size(), 2);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(StatementCount(), statements + 1); // the search; no balance is read
}

TEST_F(Cancellation, WhatHasLeftMeanwhileIsRefused)
{
    ListReserved(1);
    program.clock.Set(QDateTime(QDate(2012, 5, 31), QTime(23, 0)));
    Cancel(1, {NothingCancelledBox()});
    EXPECT_EQ(Keys(), QStringList{u"1"_q});
    EXPECT_EQ(Marks(), u"l"_q);
}

struct BrokenReply
{
    FaultKind kind;
    int withdrawn; ///< by the gateway, all the same

    friend void PrintTo(const BrokenReply& reply, std::ostream* out)
    {
        *out << ::testing::PrintToString(reply.kind);
    }
};

class CancellationAtABrokenGateway : public Cancellation, public ::testing::WithParamInterface<BrokenReply>
{
};

TEST_P(CancellationAtABrokenGateway, ShowsNothingFailsTheRestAndLosesTheCreditOfTheRowsBefore)
{
    ListReserved(4);
    Fail(GetParam().kind, 2);
    Cancel(4);
    EXPECT_EQ(Withdrawals().size(), 2);
    EXPECT_EQ(WithdrawnMessages(), GetParam().withdrawn);
    EXPECT_EQ(shown[1], u"1"_q);
    EXPECT_EQ(shown[2], u"3"_q);
    EXPECT_EQ(status, u"총 취소건수 : 4건 / 현 취소 건수 : 4건"_q);
    EXPECT_EQ(Keys(), QStringList({u"2"_q, u"3"_q, u"4"_q}));
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.connections.OpenNow(), 0);
    EXPECT_EQ(Marks(), u"eee"_q);
}

INSTANTIATE_TEST_SUITE_P(Faults, CancellationAtABrokenGateway,
                         ::testing::Values(BrokenReply{FaultKind::Short, 2},
                                           BrokenReply{FaultKind::BadTruth, 2},
                                           BrokenReply{FaultKind::Drop, 2}, BrokenReply{FaultKind::Cut, 2},
                                           BrokenReply{FaultKind::SoapFault, 1},
                                           BrokenReply{FaultKind::Http500, 1},
                                           BrokenReply{FaultKind::Garbage, 1}));

TEST_F(Cancellation, AnErrorAtTheFirstRowEndsInTheFailureBoxAndTheNextRunWorks)
{
    ListReserved(2);
    Fail(FaultKind::SoapFault, 1);
    Cancel(2, {NothingCancelledBox()});
    EXPECT_EQ(Withdrawals().size(), 1);
    EXPECT_EQ(Keys().size(), 2);
    ClickMark(1);
    ClickMark(2);
    Cancel(2);
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_EQ(program.Balance(), 102);
}

TEST_F(Cancellation, AnErrorAtTheLastRowLosesTheCreditToo)
{
    ListReserved(2);
    Fail(FaultKind::Drop, 2);
    Cancel(2);
    EXPECT_EQ(Keys(), QStringList{u"2"_q});
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(Cancellation, WithoutAGatewayTheConnectionBoxComesTwiceAndEveryRowFails)
{
    ListReserved(2);
    program.gateway.Fail(FaultKind::WsdlMissing);
    program.desktop.Expect(CancelQuestion(2), AnswerYes);
    program.desktop.AllowBoxes();
    WhenShown(u"MakeSMSTransport"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
    program.Click(u"BtnSendListFun(1)"_q);
    ASSERT_EQ(program.desktop.boxes.size(), 4);
    for (int i : {1, 2}) {
        EXPECT_EQ(program.desktop.boxes[i].title, u"문자메시지 통신환경 연결실패!!!"_q);
        EXPECT_EQ(program.desktop.boxes[i].style, MsgBoxPlain);
    }
    EXPECT_EQ(program.desktop.boxes[3], NothingCancelledBox());
    EXPECT_TRUE(Withdrawals().isEmpty());
    EXPECT_EQ(Keys().size(), 2);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_FALSE(program.session.IsBusy());
}

// What the database does wrong.

TEST_F(Cancellation, AFailedDeleteCountsAsDoneAndLosesTheNextRowsDeleteInSilence)
{
    ListReserved(4);
    Cancel(4, {DatabaseBox(u"no"_q), CancelledBox()},
           [this](QWidget&) { program.connections.FailStatement(2, StatementFailure, u"no"_q); });
    EXPECT_EQ(Withdrawals().size(), 4);
    EXPECT_EQ(shown[1], u"4"_q);
    EXPECT_EQ(shown[2], u""_q);
    EXPECT_EQ(Keys(), QStringList({u"2"_q, u"3"_q}));
    EXPECT_EQ(Names(), QStringList({u"2"_q, u"3"_q}));
    EXPECT_EQ(program.Balance(), 104);
}

struct RowsWithoutTable
{
    int rows;
    int boxes; ///< each second row reconnects in silence
    int credit;

    friend void PrintTo(const RowsWithoutTable& without, std::ostream* out)
    {
        *out << without.rows << " rows";
    }
};

class CancellationWithoutATable : public Cancellation, public ::testing::WithParamInterface<RowsWithoutTable>
{
};

using CancellationWithoutATableInSqlServerWords = InSqlServerWords<CancellationWithoutATable>;

TEST_P(CancellationWithoutATableInSqlServerWords, CreditsOnlyBehindARowThatHasReconnected)
{
    ListReserved(GetParam().rows);
    program.database.Execute(u"DROP TABLE SMSLog_2012"_q);
    const Box missing = DatabaseBox(u"Invalid object name 'SMSLog_2012'."_q);
    // The last one is that of the search.
    Cancel(GetParam().rows, QList<Box>(GetParam().boxes, missing) + QList<Box>{CancelledBox(), missing});
    EXPECT_EQ(shown[1], QString::number(GetParam().rows));
    EXPECT_EQ(shown[2], u""_q);
    EXPECT_EQ(program.Balance(), 100 + GetParam().credit);
    EXPECT_EQ(List().Cells().MaxRows(), 0);
    EXPECT_FALSE(program.session.IsBusy());
}

INSTANTIATE_TEST_SUITE_P(Rows, CancellationWithoutATableInSqlServerWords,
                         ::testing::Values(RowsWithoutTable{1, 1, 0}, RowsWithoutTable{2, 1, 2},
                                           RowsWithoutTable{3, 2, 0}, RowsWithoutTable{4, 2, 4}));

TEST_F(Cancellation, AFailedCreditShowsItsBoxAndTheRunEndsWell)
{
    ListReserved(1);
    Cancel(1, {DatabaseBox(u"no"_q), CancelledBox()},
           [this](QWidget&) { program.connections.FailStatement(2, StatementFailure, u"no"_q); });
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(Cancellation, ADatabaseThatDiesBeforeTheRunStillLetsTheMessagesBeWithdrawn)
{
    ListReserved(1);
    // Two of the run's connecting, one each of delete and credit, and four of refreshing the balance: two of
    // connecting, one of the query, one of the error that is still current. Then the three of the search.
    Cancel(1, QList<Box>(8, ServerDownBox()) + QList<Box>{CancelledBox()} + QList<Box>(3, ServerDownBox()),
           [this](QWidget&) { program.connections.RefuseOpens(-1); });
    EXPECT_EQ(WithdrawnMessages(), 1);
    EXPECT_EQ(Keys(), QStringList{u"1"_q});
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(List().Cells().MaxRows(), 0);
}

} // namespace

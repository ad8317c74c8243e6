#include "compose/RunDialog.h"
#include "support/database/SqlServerWords.h"
#include "support/program/Program.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Theme.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QEvent>
#include <QTest>

using namespace tsms;
using namespace tsms::test;

namespace {

QString InvalidObject(const QString& table)
{
    return u"Invalid object name '%1'."_q.arg(table);
}

class Dispatch : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    static QList<QStringList> Good(int count)
    {
        QList<QStringList> recipients;
        for (int i = 1; i <= count; ++i)
            recipients += {u"이름%1"_q.arg(i), u"010-0000-%1"_q.arg(i, 4, 10, QChar(u'0'))};
        return recipients;
    }

    /// Sends to these recipients and keeps what the dialog showed at the end of the run.
    void SendTo(const QList<QStringList>& recipients, std::function<void(QWidget&)> act = {})
    {
        program.Write(u"안녕"_q);
        program.Recipients().Cells().SetMaxRows(static_cast<int>(recipients.size()));
        program.List(recipients);
        Send(std::move(act));
    }
    void Send(std::function<void(QWidget&)> act = {})
    {
        program.Send([this, act](QWidget& dialog) {
            WhenClosing(dialog, [this, &dialog] {
                for (int i = 0; i < 4; ++i)
                    shown[i] = program.On<Label>(dialog, u"LblSendSMS(%1)"_q.arg(i)).Caption();
                status = program.On<Label>(dialog, u"lblStatus"_q).Caption();
                if (atTheEnd)
                    atTheEnd();
            });
            if (act)
                act(dialog);
        });
    }

    /// Clicks "send" on the page, runs `act` in the dialog that opens, and leaves it by Esc.
    void OpenAndLeave(std::function<void(QWidget&)> act)
    {
        WhenShown(u"MakeSMSTransport"_q, [act](QWidget& dialog) {
            act(dialog);
            PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(u"BtnSend(0)"_q);
    }

    void Tick(QWidget& dialog) { ClickOn(program.On<QCheckBox>(dialog, u"ChkTime"_q)); }
    void Choose(QWidget& dialog, const QString& date, const QString& hour, const QString& minute)
    {
        program.On<DatePicker>(dialog, u"DTPicker1"_q).SetValue(QDate::fromString(date, Qt::ISODate));
        auto& hours = program.On<ComboBox>(dialog, u"CbTime"_q);
        auto& minutes = program.On<ComboBox>(dialog, u"CbMintue"_q);
        hours.SetListIndex(hours.findText(hour + u"시"_q));
        minutes.SetListIndex(minutes.findText(minute + u"분"_q));
    }

    Program program;
    QString shown[4];
    QString status;
    std::function<void()> atTheEnd; ///< when the dialog is about to go
};

/// What a label showed each time that it was drawn.
class DrawnCaptions : public QObject
{
public:
    explicit DrawnCaptions(Label& label) : label_(label) { label.installEventFilter(this); }

    QStringList all;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            all += label_.Caption();
        return false;
    }

private:
    Label& label_;
};

/// A dialog whose rows a test plays.
class RowByRow : public RunDialog
{
public:
    explicit RowByRow(Services& services) : RunDialog(services, {}, 3, nullptr) {}
    using RunDialog::SetBarValue;
    using RunDialog::ShowStatus;

protected:
    void Run() override {}
};

using DispatchInSqlServerWords = InSqlServerWords<Dispatch>;

TEST_F(Dispatch, AFilteredRowCountsAsDoneAndTheBalanceFallsByWhatLeft)
{
    program.desktop.Expect(SentBox());
    SendTo({{u"가"_q, u"010-1111-1111"_q},
            {u"나"_q, u"02-111-1111"_q},
            {u"다"_q, u"01122223333"_q},
            {u"라"_q, u"010-12345"_q},
            {u"마"_q, u"0191234567"_q}});
    EXPECT_EQ(program.gateway.CallCount(), 3);
    EXPECT_EQ(status, u"총 발송건수 : 5건 / 현 발송 건수 : 5건"_q);
    EXPECT_EQ(shown[0], u"5"_q);
    EXPECT_EQ(shown[1], u"3"_q);
    EXPECT_EQ(shown[2], u""_q);
    EXPECT_EQ(shown[3], u"0"_q);
    EXPECT_EQ(program.Balance(), 97);
    EXPECT_EQ(program.LogRows(), 3);
}

TEST_F(Dispatch, TheFirstRowIsDrawnAtOnce)
{
    RowByRow dialog(program.services);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    DrawnCaptions drawn(program.On<Label>(dialog, u"lblStatus"_q));
    dialog.SetBarValue(0); // where a run begins
    dialog.ShowStatus(u"첫째"_q);
    dialog.SetBarValue(1);
    EXPECT_EQ(drawn.all, QStringList(u"첫째"_q));
}

TEST_F(Dispatch, TheBarRunsByRowsAndStandsFullPastItsMaximum)
{
    program.Write(u"안녕"_q);
    program.List(Good(3));
    ClickCell(program.Recipients(), 4, 2);
    ProgressBar* bar = nullptr;
    int maximum = 0;
    int value = 0;
    program.desktop.Expect(SentBox());
    Send([&](QWidget& dialog) {
        bar = &program.On<ProgressBar>(dialog, u"PB"_q);
        EXPECT_EQ(bar->Max(), 100);
        EXPECT_EQ(bar->Value(), 0);
        atTheEnd = [&] {
            maximum = bar->Max();
            value = bar->Value();
        };
    });
    EXPECT_EQ(maximum, 2);
    EXPECT_EQ(value, 20);
}

TEST_F(Dispatch, TheSenderIsPutInFirstAndTheRecipientSecond)
{
    program.database.Execute(u"UPDATE SMSSetup SET SMSOrgNm = '[받는사람]회'"_q);
    program.Write(u"[보내는사람]"_q);
    program.Recipients().Cells().SetText(2, 1, u"[보내는사람]"_q);
    program.Recipients().Cells().SetText(3, 1, u"01011111111"_q);
    program.desktop.Expect(SentBox());
    Send();
    EXPECT_EQ(program.gateway.Messages().first().Content, u"[보내는사람]회"_q);
}

TEST_F(Dispatch, ARefusedTimeReadsNoAccountAndOpensNoPage)
{
    program.Write(u"안녕"_q);
    program.List(Good(2));
    program.desktop.Expect({u"문자메세지 발송시간"_q,
                            u"보낼 시간을 현재시간으로 부터 3분 이후로 설정하여 주십시오. "_q,
                            MsgBoxCritical});
    OpenAndLeave([this](QWidget& dialog) {
        program.database.SetAccount(1);
        Tick(dialog);
        Choose(dialog, u"2012-05-30"_q, u"00"_q, u"00"_q);
        const int opens = program.connections.Opens();
        PressKey(dialog, Qt::Key_F12);
        EXPECT_EQ(program.connections.Opens(), opens);
    });
    EXPECT_TRUE(program.desktop.pages.isEmpty());
}

TEST_F(Dispatch, TheHourTwentyFourIsSentAndLoggedAsItStands)
{
    program.desktop.Expect(SentBox());
    SendTo(Good(1), [this](QWidget& dialog) {
        Tick(dialog);
        Choose(dialog, u"2012-05-30"_q, u"24"_q, u"00"_q);
    });
    EXPECT_EQ(program.gateway.Messages().first().SendTime, u"2012:05:30:24:00"_q);
    EXPECT_EQ(program.database.Value(u"SELECT SendTime FROM SMSLog_2012"_q), u"2012-05-30-24-00"_q);
}

TEST_F(Dispatch, ADayThatIsBeingTypedIsTheDayThatIsSent)
{
    program.desktop.Expect(
        {u"문자메세지 발송시간"_q, u"잘못된 일시선택입니다. 다시 선택하여 주십시오."_q, MsgBoxCritical});
    program.Write(u"안녕"_q);
    program.List(Good(1));
    OpenAndLeave([this](QWidget& dialog) {
        Tick(dialog);
        auto& date = program.On<DatePicker>(dialog, u"DTPicker1"_q);
        date.setFocus();
        date.SelectPart(DatePart::Day);
        TypeText(date, u"3"_q);
        EXPECT_EQ(date.text(), u"2012-05-3"_q);
        PressKey(dialog, Qt::Key_F12);
    });
    EXPECT_EQ(program.gateway.CallCount(), 0);
}

TEST_F(Dispatch, AnEmptyRowCountsAsDoneAndARemovedOneDoesNot)
{
    program.Write(u"안녕"_q);
    program.List(Good(3));
    ClickCell(program.Recipients(), 4, 2);
    program.desktop.Expect(SentBox());
    Send();
    EXPECT_EQ(program.gateway.CallCount(), 2);
    EXPECT_EQ(status, u"총 발송건수 : 2건 / 현 발송 건수 : 19건"_q);
    EXPECT_EQ(program.Balance(), 98);
}

TEST_F(Dispatch, WithEveryNumberFilteredNothingLeaves)
{
    program.desktop.Expect(NothingSentBox());
    SendTo({{u"가"_q, u"02-111-1111"_q}, {u"나"_q, u"010-12345"_q}});
    EXPECT_EQ(program.gateway.CallCount(), 0);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(program.LogRows(), 0);
}

TEST_F(Dispatch, ATotalOfZeroEndsInTheFailureBox)
{
    program.Write(u"안녕"_q);
    program.List(Good(1));
    ClickCell(program.Recipients(), 4, 1);
    program.desktop.Expect(NothingSentBox());
    Send();
    EXPECT_EQ(program.gateway.CallCount(), 0);
}

TEST_F(Dispatch, PlaceholdersBecomeTheNamesOfRecipientAndOrganisation)
{
    program.Write(u"[받는사람]님 [보내는사람]"_q);
    program.List({{u" 홍길동 "_q, u"01011111111"_q}, {u""_q, u"01022222222"_q}});
    program.desktop.Expect(SentBox());
    Send();
    const auto messages = program.gateway.Messages();
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages[0].Content, u"홍길동님 한빛교회"_q);
    EXPECT_EQ(messages[1].Content, u"님 한빛교회"_q);
}

TEST_F(Dispatch, TheGatewayGetsTheNumberAsItStandsAndTheMessageUntrimmed)
{
    program.The<TextBox>(u"txtSendNo"_q).SetText(u"02-1234-5678"_q);
    program.Write(u" 앞뒤 "_q);
    program.List({{u"가"_q, u" 010-1234-567 "_q}});
    program.desktop.Expect(SentBox());
    Send();
    const auto calls = program.gateway.Calls();
    ASSERT_EQ(calls.size(), 1);
    EXPECT_EQ(calls[0].Arguments,
              QStringList({u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"02-1234-5678"_q, u"010-1234-567"_q,
                           u" 앞뒤 "_q, u""_q, u""_q, u""_q, u""_q, u""_q}));
    EXPECT_EQ(program.database.Value(u"SELECT SMSContent FROM SMSLog_2012"_q), u"앞뒤"_q);
}

TEST_F(Dispatch, TheLogRowTellsTheSendToTheLetter)
{
    program.Write(u"안녕"_q);
    program.List({{u"홍길동"_q, u"01011111111"_q}});
    program.desktop.Expect(SentBox());
    Send();
    const int number = program.gateway.Messages().first().Number;
    EXPECT_EQ(
        program.database.Rows(u"SELECT SMSStatus, SMSNo, SMSID, SendNm, SendTelNo, ReceiveTelNo, SMSContent, "
                              u"SendTime, UserData1, UserData2, UserData3, ErrCd, ErrMsg FROM SMSLog_2012"_q),
        QList<QStringList>(
            {{u"1"_q, QString::number(number), u"demo"_q, u"홍길동"_q, u"01011111111"_q, u"02-1234-5678"_q,
              u"안녕"_q, u"2012-05-30 14-07"_q, u"7"_q, u"본사"_q, u"(null)"_q, u"(null)"_q, u"(null)"_q}}));
}

TEST_F(Dispatch, AReservationIsLoggedInTheTableOfItsOwnYear)
{
    program.desktop.Expect(SentBox());
    SendTo(Good(1), [this](QWidget& dialog) {
        Tick(dialog);
        Choose(dialog, u"2013-01-02"_q, u"09"_q, u"05"_q);
    });
    EXPECT_EQ(program.gateway.Messages().first().SendTime, u"2013:01:02:09:05"_q);
    EXPECT_EQ(program.LogRows(), 0);
    EXPECT_EQ(program.database.Value(u"SELECT SendTime FROM SMSLog_2013"_q), u"2013-01-02-09-05"_q);
    EXPECT_EQ(program.Balance(), 99);
}

TEST_F(Dispatch, ThePresentMinuteIsLetThroughAsAReservation)
{
    program.clock.Set(QDateTime(QDate(2012, 5, 30), QTime(14, 5, 30)));
    program.desktop.Expect(SentBox());
    SendTo(Good(1), [this](QWidget& dialog) {
        Tick(dialog);
        Choose(dialog, u"2012-05-30"_q, u"14"_q, u"05"_q);
    });
    EXPECT_EQ(program.gateway.CallCount(), 1);
}

TEST_F(Dispatch, APastTimeIsRefusedAndTheMinuteGetsTheFocus)
{
    program.desktop.Expect({u"문자메세지 발송시간"_q,
                            u"보낼 시간을 현재시간으로 부터 3분 이후로 설정하여 주십시오. "_q,
                            MsgBoxCritical});
    program.Write(u"안녕"_q);
    program.List(Good(1));
    program.Send([this](QWidget& dialog) {
        Tick(dialog);
        Choose(dialog, u"2012-05-30"_q, u"14"_q, u"05"_q);
        ClickOn(program.On<QWidget>(dialog, u"BtnSendS(0)"_q));
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(program.On<QWidget>(dialog, u"CbMintue"_q).hasFocus());
        program.On<CheckBox>(dialog, u"ChkTime"_q).SetValue(false);
        program.desktop.Expect(SentBox());
    });
    EXPECT_EQ(program.gateway.CallCount(), 1);
}

TEST_F(Dispatch, APastDayIsRefusedAndTheDateGetsTheFocus)
{
    program.desktop.Expect(
        {u"문자메세지 발송시간"_q, u"잘못된 일시선택입니다. 다시 선택하여 주십시오."_q, MsgBoxCritical});
    program.Write(u"안녕"_q);
    program.List(Good(1));
    OpenAndLeave([this](QWidget& dialog) {
        Tick(dialog);
        Choose(dialog, u"2012-05-29"_q, u"23"_q, u"55"_q);
        ClickOn(program.On<QWidget>(dialog, u"BtnSendS(0)"_q));
        EXPECT_TRUE(program.On<QWidget>(dialog, u"DTPicker1"_q).hasFocus());
    });
    EXPECT_EQ(program.gateway.CallCount(), 0);
}

TEST_F(Dispatch, EachTickOfTheReservationListsTheTimesAgain)
{
    program.Write(u"안녕"_q);
    program.List(Good(1));
    program.desktop.Expect(SentBox());
    program.Send([this](QWidget& dialog) {
        auto& hours = program.On<ComboBox>(dialog, u"CbTime"_q);
        auto& minutes = program.On<ComboBox>(dialog, u"CbMintue"_q);
        EXPECT_EQ(hours.count(), 1);
        EXPECT_FALSE(hours.isEnabled());
        EXPECT_FALSE(minutes.isEnabled());
        EXPECT_FALSE(program.On<QWidget>(dialog, u"DTPicker1"_q).isEnabled());
        Tick(dialog);
        EXPECT_TRUE(hours.isEnabled());
        EXPECT_EQ(hours.count(), 25);
        EXPECT_EQ(minutes.count(), 13);
        EXPECT_EQ(hours.Text(), u"14시"_q);
        EXPECT_EQ(minutes.Text(), u"15분"_q);
        Tick(dialog);
        EXPECT_FALSE(program.On<QWidget>(dialog, u"DTPicker1"_q).isEnabled());
        for (const ComboBox* list : {&hours, &minutes}) {
            EXPECT_FALSE(list->isEnabled());
            EXPECT_EQ(list->BackColor(), theme::ButtonFace);
        }
        Tick(dialog);
        EXPECT_TRUE(program.On<QWidget>(dialog, u"DTPicker1"_q).isEnabled());
        EXPECT_EQ(minutes.BackColor(), theme::White);
        EXPECT_EQ(hours.count(), 49);
        EXPECT_EQ(minutes.count(), 25);
        EXPECT_EQ(hours.Text(), u"14시"_q);
        EXPECT_EQ(hours.BackColor(), QColor(Qt::white));
    });
    EXPECT_EQ(program.gateway.Messages().first().SendTime, u"2012:05:30:14:15"_q);
}

TEST_F(Dispatch, ASuggestionNearTheFullHourLiesInThePastAndIsRefused)
{
    program.clock.Set(QDateTime(QDate(2012, 5, 30), QTime(10, 52)));
    program.desktop.Expect({u"문자메세지 발송시간"_q,
                            u"보낼 시간을 현재시간으로 부터 3분 이후로 설정하여 주십시오. "_q,
                            MsgBoxCritical});
    program.Write(u"안녕"_q);
    program.List(Good(1));
    OpenAndLeave([this](QWidget& dialog) {
        Tick(dialog);
        EXPECT_EQ(program.On<ComboBox>(dialog, u"CbTime"_q).Text(), u"10시"_q);
        EXPECT_EQ(program.On<ComboBox>(dialog, u"CbMintue"_q).Text(), u"00분"_q);
        PressKey(dialog, Qt::Key_F12);
    });
    EXPECT_EQ(program.gateway.CallCount(), 0);
}

TEST_F(Dispatch, ABalanceThatFellMeanwhileStopsTheSendAtTheDialog)
{
    program.Write(u"안녕"_q);
    program.List(Good(2));
    program.desktop.Expect(ShortageBox(), AnswerOK,
                           [this] { EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"1건 남았습니다."_q); });
    OpenAndLeave([this](QWidget& dialog) {
        program.database.SetAccount(1);
        ClickOn(program.On<QWidget>(dialog, u"BtnSendS(0)"_q));
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_EQ(program.desktop.pages, QStringList{program.session.SMSWeb2});
    EXPECT_EQ(program.gateway.CallCount(), 0);
}

TEST_F(Dispatch, F12Sends)
{
    program.Write(u"안녕"_q);
    program.List(Good(1));
    program.desktop.Expect(SentBox());
    WhenShown(u"MakeSMSTransport"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
    program.Click(u"BtnSend(0)"_q);
    EXPECT_EQ(program.gateway.CallCount(), 1);
}

TEST_F(Dispatch, TheDialogReadsAsItShould)
{
    program.Write(u"안녕"_q);
    program.List(Good(1));
    WhenShown(u"MakeSMSTransport"_q, [this](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"문자메시지 발송하기"_q);
        EXPECT_EQ(program.On<Label>(dialog, u"lblTitle(1)"_q).Caption(), u"문자메시지 발송하기"_q);
        const QStringList captions{u"발송 건수"_q, u"성공 건수"_q, u"실패 건수"_q, u"잔여 건수"_q,
                                   u"건"_q,        u"건"_q,        u"건"_q,        u"건"_q};
        for (int i = 0; i < 8; ++i)
            EXPECT_EQ(program.On<Label>(dialog, u"Label1(%1)"_q.arg(i)).Caption(), captions[i]);
        const QColor colors[] = {QColor(), QColor(0x00, 0x00, 0xC0), QColor(0xFF, 0x00, 0x00),
                                 QColor(0x36, 0x36, 0x36)};
        for (int i = 1; i < 4; ++i) {
            const auto& number = program.On<Label>(dialog, u"LblSendSMS(%1)"_q.arg(i));
            EXPECT_EQ(number.Caption(), u"0"_q);
            EXPECT_EQ(number.palette().color(number.foregroundRole()), colors[i]);
        }
        EXPECT_EQ(program.On<CheckBox>(dialog, u"ChkTime"_q).Caption(), u"예약발송"_q);
        EXPECT_EQ(program.On<PushButton>(dialog, u"BtnSendS(0)"_q).Caption(), u"발송(F12)"_q);
        EXPECT_EQ(program.On<PushButton>(dialog, u"BtnSendS(1)"_q).Caption(), u"취소(ESC)"_q);
        EXPECT_EQ(program.On<DatePicker>(dialog, u"DTPicker1"_q).Value(), u"2012-05-30"_q);
        ClickOn(program.On<QWidget>(dialog, u"BtnTopFunc(0)"_q));
        EXPECT_TRUE(dialog.isVisible());
        ClickOn(program.On<QWidget>(dialog, u"BtnTopFunc(1)"_q));
    });
    program.Click(u"BtnSend(0)"_q);
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(Dispatch, TheMainWindowKeepsShowingTheBalanceFromBeforeTheRunUntilTheNextClick)
{
    program.desktop.Expect(SentBox());
    SendTo(Good(2));
    EXPECT_EQ(program.Balance(), 98);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    OpenAndLeave([](QWidget&) {});
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"98건 남았습니다."_q);
}

TEST_F(Dispatch, TheBalanceIsWrittenAnewBeforeTheBoxOfSuccess)
{
    auto& balance = program.The<Label>(u"lblSMSCnt"_q);
    atTheEnd = [&] {
        balance.SetCaption(u"x"_q);
        balance.Tag = u"x"_q;
    };
    program.desktop.Expect(SentBox(), AnswerOK, [&] {
        EXPECT_EQ(balance.Caption(), u"100건 남았습니다."_q);
        EXPECT_EQ(balance.Tag, u"100"_q);
    });
    SendTo(Good(1));
}

TEST_F(Dispatch, WithoutAnAccountRowItIsLeftAsItStands)
{
    auto& balance = program.The<Label>(u"lblSMSCnt"_q);
    atTheEnd = [&] {
        balance.SetCaption(u"x"_q);
        program.database.Execute(u"DELETE FROM SMSSetup"_q);
    };
    program.desktop.Expect(SentBox(), AnswerOK, [&] { EXPECT_EQ(balance.Caption(), u"x"_q); });
    SendTo(Good(1));
}

TEST_F(Dispatch, WhenTheFourthOfTenIsRefusedThreeLeaveAndTheRestFail)
{
    program.gateway.Fail(FaultKind::Refuse, 4);
    program.desktop.AllowBoxes();
    SendTo(Good(10));
    EXPECT_EQ(program.gateway.CallCount(), 4);
    EXPECT_EQ(program.gateway.Messages().size(), 3);
    ASSERT_EQ(program.desktop.boxes.size(), 8);
    const auto logged = program.database.Rows(u"SELECT ErrCd, ErrMsg FROM SMSLog_2012 ORDER BY SMSKey"_q);
    ASSERT_EQ(logged.size(), 4);
    EXPECT_EQ(program.desktop.boxes[0], SendFailureBox(logged[3][0], logged[3][1]));
    EXPECT_FALSE(logged[3][0].isEmpty());
    for (int i = 1; i < 7; ++i)
        EXPECT_EQ(program.desktop.boxes[i], SendFailureBox());
    EXPECT_EQ(program.desktop.boxes[7], SentBox());
    EXPECT_EQ(shown[1], u"3"_q);
    EXPECT_EQ(shown[2], u"7"_q);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_FALSE(program.session.IsBusy());
}

TEST_F(Dispatch, WhatIsDeadDuringTheRunLooksSoAndIsAliveAgainBehindIt)
{
    const QStringList names{u"BtnSendS(0)"_q, u"BtnSendS(1)"_q, u"BtnTopFunc(1)"_q, u"ChkTime"_q};
    QWidget* open = nullptr;
    const auto alive = [&] {
        QStringList enabled;
        for (const QString& name : names)
            if (program.On<QWidget>(*open, name).isEnabled())
                enabled += name;
        return enabled;
    };
    QStringList before;
    QStringList during;
    QStringList behind;
    program.gateway.Fail(FaultKind::Drop, 1);
    program.desktop.Expect(SendFailureBox(), AnswerOK, [&] { during = alive(); });
    program.desktop.Expect(NothingSentBox());
    atTheEnd = [&] { behind = alive(); };
    SendTo(Good(1), [&](QWidget& dialog) {
        open = &dialog;
        before = alive();
    });
    EXPECT_EQ(before, names);
    EXPECT_EQ(during, QStringList());
    EXPECT_EQ(behind, names);
}

TEST_F(Dispatch, TheDialogOpensSoThatEnterSends)
{
    program.Write(u"안녕"_q);
    program.List(Good(1));
    program.desktop.AllowBoxes();
    OpenAndLeave([](QWidget& dialog) { PressKey(*dialog.focusWidget(), Qt::Key_Return); });
    EXPECT_EQ(program.desktop.boxes, QList<Box>{SentBox()});
    EXPECT_EQ(program.gateway.CallCount(), 1);
}

TEST_F(Dispatch, ARefusedFirstRowEndsTheRunInTheFailureBox)
{
    program.gateway.Fail(FaultKind::Refuse, 1);
    program.desktop.AllowBoxes();
    SendTo(Good(2));
    ASSERT_EQ(program.desktop.boxes.size(), 3);
    EXPECT_EQ(program.desktop.boxes[2], NothingSentBox());
    EXPECT_EQ(program.LogRows(), 1);
    EXPECT_EQ(program.Balance(), 100);
}

struct BrokenReply
{
    FaultKind kind;
    int messages; ///< that the gateway took all the same

    friend void PrintTo(const BrokenReply& reply, std::ostream* out)
    {
        *out << ::testing::PrintToString(reply.kind);
    }
};

class DispatchToABrokenGateway : public Dispatch, public ::testing::WithParamInterface<BrokenReply>
{
};

TEST_P(DispatchToABrokenGateway, AsksOnceLogsNothingAndLosesTheDebitOfTheRowsBefore)
{
    program.gateway.Fail(GetParam().kind, 2);
    program.desktop.Expect(SendFailureBox());
    program.desktop.Expect(SendFailureBox());
    program.desktop.Expect(SentBox());
    SendTo(Good(3));
    EXPECT_EQ(program.gateway.CallCount(), 2);
    EXPECT_EQ(program.gateway.Messages().size(), GetParam().messages);
    EXPECT_EQ(program.LogRows(), 1);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(shown[1], u"1"_q);
    EXPECT_EQ(shown[2], u"2"_q);
    EXPECT_FALSE(program.session.IsBusy());
}

INSTANTIATE_TEST_SUITE_P(Faults, DispatchToABrokenGateway,
                         ::testing::Values(BrokenReply{FaultKind::Short, 2}, BrokenReply{FaultKind::Drop, 2},
                                           BrokenReply{FaultKind::Cut, 2},
                                           BrokenReply{FaultKind::SoapFault, 1},
                                           BrokenReply{FaultKind::Http500, 1},
                                           BrokenReply{FaultKind::Garbage, 1},
                                           BrokenReply{FaultKind::BadTruth, 2}));

TEST_F(Dispatch, AfterAFailedRunTheNextOneWorks)
{
    program.gateway.Fail(FaultKind::Drop, 1);
    program.desktop.AllowBoxes();
    SendTo(Good(2));
    EXPECT_EQ(program.LogRows(), 0);
    Send();
    EXPECT_EQ(program.LogRows(), 2);
    EXPECT_EQ(program.Balance(), 98);
    EXPECT_EQ(program.desktop.boxes.last(), SentBox());
}

TEST_F(Dispatch, AFailedInsertLosesItsRowAndTheNextAndTheRestIsLogged)
{
    program.Write(u"안녕"_q);
    QList<QStringList> recipients = Good(4);
    recipients[1][0] = u"O'Neil"_q;
    program.Recipients().Cells().SetMaxRows(4);
    program.List(recipients);
    program.desktop.AllowBoxes();
    Send();
    EXPECT_EQ(program.gateway.CallCount(), 4);
    ASSERT_EQ(program.desktop.boxes.size(), 2);
    EXPECT_EQ(program.desktop.boxes[0].title, u" - 오류!!!"_q);
    EXPECT_EQ(program.desktop.boxes[0].style, MsgBoxCritical);
    EXPECT_TRUE(program.desktop.boxes[0].text.startsWith(u"☞ : "_q));
    EXPECT_EQ(program.desktop.boxes[1], SentBox());
    EXPECT_EQ(program.database.Rows(u"SELECT SendNm FROM SMSLog_2012 ORDER BY SMSKey"_q),
              QList<QStringList>({{u"이름1"_q}, {u"이름4"_q}}));
    EXPECT_EQ(shown[1], u"4"_q);
    EXPECT_EQ(program.Balance(), 96);
}

TEST_F(DispatchInSqlServerWords, WhenTheInsertOfTheLastRowFailsTheDebitIsLost)
{
    program.database.Execute(u"DROP TABLE SMSLog_2012"_q);
    program.desktop.Expect({u" - 오류!!!"_q, u"☞ : "_q + InvalidObject(u"SMSLog_2012"_q), MsgBoxCritical});
    program.desktop.Expect(SentBox());
    SendTo(Good(1));
    EXPECT_EQ(program.gateway.CallCount(), 1);
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(DispatchInSqlServerWords, WithoutALogTableTheRowBehindReconnectsAndTheRunGoesOn)
{
    program.database.Execute(u"DROP TABLE SMSLog_2012"_q);
    const Box box{u" - 오류!!!"_q, u"☞ : "_q + InvalidObject(u"SMSLog_2012"_q), MsgBoxCritical};
    program.desktop.Expect(box); // row 1; row 2 reconnects in silence
    program.desktop.Expect(box); // row 3
    program.desktop.Expect(SentBox());
    SendTo(Good(4)); // row 4 reconnects, and the debit finds the connection
    EXPECT_EQ(program.gateway.CallCount(), 4);
    EXPECT_EQ(program.Balance(), 96);
}

TEST_F(Dispatch, ADatabaseThatDiesBeforeTheRunStillLetsTheMessagesOut)
{
    program.Write(u"안녕"_q);
    program.Recipients().Cells().SetMaxRows(1);
    program.List(Good(1));
    program.desktop.AllowBoxes();
    program.Send([this](QWidget&) { program.connections.RefuseOpens(-1); });
    EXPECT_EQ(program.gateway.CallCount(), 1);
    EXPECT_EQ(program.LogRows(), 0);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_FALSE(program.session.IsBusy());
    // Three of reading the account, two of the run's connecting, one each of insert and debit, and four of
    // refreshing the balance: two of connecting, one of the query, one of the error that is still current.
    ASSERT_EQ(program.desktop.boxes.size(), 12);
    EXPECT_EQ(program.desktop.boxes.last(), SentBox());
    for (int i = 0; i < 11; ++i)
        EXPECT_EQ(program.desktop.boxes[i], ServerDownBox());
}

TEST_F(Dispatch, WithoutAGatewayTheConnectionBoxComesTwiceAndEveryRowFails)
{
    program.gateway.Fail(FaultKind::WsdlMissing);
    program.desktop.AllowBoxes();
    SendTo(Good(2));
    ASSERT_EQ(program.desktop.boxes.size(), 5);
    for (int i : {0, 1}) {
        EXPECT_EQ(program.desktop.boxes[i].title, u"문자메시지 통신환경 연결실패!!!"_q);
        EXPECT_EQ(program.desktop.boxes[i].style, MsgBoxPlain);
        EXPECT_TRUE(program.desktop.boxes[i].text.contains(u"\r\n"_q));
    }
    EXPECT_EQ(program.desktop.boxes[2], SendFailureBox());
    EXPECT_EQ(program.desktop.boxes[3], SendFailureBox());
    EXPECT_EQ(program.desktop.boxes[4], NothingSentBox());
    EXPECT_EQ(program.LogRows(), 0);
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(Dispatch, OneConnectionToTheGatewayServesTheWholeRun)
{
    program.desktop.Expect(SentBox());
    SendTo(Good(30));
    EXPECT_EQ(program.gateway.CallCount(), 30);
    EXPECT_EQ(program.gateway.ConnectionCount(), 1);
}

TEST_F(Dispatch, KeysAndClicksDuringTheRunDoNothing)
{
    program.gateway.Fail(FaultKind::Refuse, 1);
    program.desktop.Expect(SendFailureBox(u"E99"_q, u"수신이 거부된 번호입니다."_q), AnswerOK, [this] {
        Form* dialog = Form::Find(u"MakeSMSTransport"_q);
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(program.session.IsBusy());
        PressKey(*dialog, Qt::Key_F12);
        PressKey(*dialog, Qt::Key_Escape);
        ClickOn(program.On<QWidget>(*dialog, u"BtnSendS(0)"_q));
        ClickOn(program.On<QWidget>(*dialog, u"BtnSendS(1)"_q));
        ClickOn(program.On<QWidget>(*dialog, u"BtnTopFunc(1)"_q));
        ClickOn(program.On<QWidget>(*dialog, u"ChkTime"_q));
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_FALSE(program.On<QWidget>(*dialog, u"CbTime"_q).isEnabled());
    });
    program.desktop.Expect(NothingSentBox());
    SendTo(Good(1));
    EXPECT_EQ(program.gateway.CallCount(), 1);
}

TEST_F(Dispatch, BehindAFailureTheRunIsNoLongerBusyAndStillBeginsNoSecondOne)
{
    program.gateway.Fail(FaultKind::Refuse, 1);
    const auto press = [this] {
        Form* dialog = Form::Find(u"MakeSMSTransport"_q);
        ASSERT_NE(dialog, nullptr);
        EXPECT_FALSE(program.session.IsBusy());
        program.On<PushButton>(*dialog, u"BtnSendS(0)"_q)
            .Click(); // as a screen reader does, whatever box stands
        program.On<PushButton>(*dialog, u"BtnSendS(1)"_q).Click();
        EXPECT_TRUE(dialog->isVisible());
    };
    program.desktop.Expect(SendFailureBox(u"E99"_q, u"수신이 거부된 번호입니다."_q));
    program.desktop.Expect(SendFailureBox(), AnswerOK, press);
    program.desktop.Expect(SendFailureBox());
    program.desktop.Expect(NothingSentBox());
    SendTo(Good(3));
    EXPECT_EQ(program.gateway.CallCount(), 1);
    EXPECT_EQ(shown[2], u"3"_q);
}

TEST_F(Dispatch, APressBehindTheLastBoxSendsNothingAgain)
{
    PushButton* send = nullptr;
    program.desktop.Expect(SentBox(), AnswerOK, [&] { send->Click(); });
    SendTo(Good(2), [&](QWidget& dialog) { send = &program.On<PushButton>(dialog, u"BtnSendS(0)"_q); });
    EXPECT_EQ(program.gateway.CallCount(), 2);
    EXPECT_EQ(program.Balance(), 98);
}

TEST_F(Dispatch, APressBeforeTheFirstRowSendsNothingEither)
{
    PushButton* send = nullptr;
    program.Write(u"안녕"_q);
    program.List(Good(2));
    program.desktop.Expect(ShortageBox(), AnswerOK, [&] {
        program.database.SetAccount(100);
        send->Click();
    });
    OpenAndLeave([&](QWidget& dialog) {
        program.database.SetAccount(1);
        send = &program.On<PushButton>(dialog, u"BtnSendS(0)"_q);
        ClickOn(*send);
    });
    EXPECT_EQ(program.gateway.CallCount(), 0);
}

TEST_F(Dispatch, TenThousandRowsOfWhichOneIsFilledAreWalkedToTheEnd)
{
    program.Write(u"안녕"_q);
    program.Recipients().Cells().SetMaxRows(10000);
    program.Recipients().Cells().SetText(3, 10000, u"01012345678"_q);
    program.desktop.Expect(SentBox());
    Send();
    EXPECT_EQ(program.gateway.CallCount(), 1);
    EXPECT_EQ(status, u"총 발송건수 : 1건 / 현 발송 건수 : 10,000건"_q);
}

} // namespace

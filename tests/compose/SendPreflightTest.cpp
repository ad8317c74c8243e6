#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

Box Refusal(const QString& words)
{
    return {u"문자메시지"_q, words, MsgBoxCritical};
}

class SendPreflight : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    void FillPage()
    {
        program.Write(u"안녕하세요"_q);
        program.List({{u"홍길동"_q, u"010-1234-5678"_q}, {u"김"_q, u"01011112222"_q}});
    }
    void ClickSend() { program.Click(u"BtnSend(0)"_q); }
    /// Looks at the dialog that a click on "send" opens and closes it again.
    void ClickSendAndLook(std::function<void(QWidget&)> look)
    {
        bool looked = false;
        WhenShown(u"MakeSMSTransport"_q, [&](QWidget& dialog) {
            looked = true;
            look(dialog);
            PressKey(dialog, Qt::Key_Escape);
        });
        ClickSend();
        EXPECT_TRUE(looked);
    }
    QString DialogCaption(QWidget& dialog, const QString& label)
    {
        return program.On<Label>(dialog, label).Caption();
    }
    TextBox& SendNo() { return program.The<TextBox>(u"txtSendNo"_q); }

    Program program;
};

TEST_F(SendPreflight, AnEmptyPageIsRefusedForItsMessageFirst)
{
    program.desktop.Expect(Refusal(u"문자메시지 내용을 입력하여 주십시오."_q));
    ClickSend();
    EXPECT_TRUE(program.Control(u"TxtPerSendMsg"_q).hasFocus());
}

TEST_F(SendPreflight, AMessageOfBlanksIsNone)
{
    FillPage();
    program.The<MemoBox>(u"TxtPerSendMsg"_q).SetText(u"   "_q);
    program.desktop.Expect(Refusal(u"문자메시지 내용을 입력하여 주십시오."_q));
    ClickSend();
}

TEST_F(SendPreflight, WithoutRecipientsTheGridGetsTheFocus)
{
    program.Write(u"안녕"_q);
    program.desktop.Expect(Refusal(u"문자메시지를 받는사람 번호를 입력하여 주십시오."_q));
    ClickSend();
    EXPECT_TRUE(program.Recipients().hasFocus());
}

TEST_F(SendPreflight, ASenderNumberOfEightIsRefusedAndOneOfNineAccepted)
{
    FillPage();
    SendNo().SetText(u"02-12.34"_q);
    program.desktop.Expect(Refusal(u"올바른 보내는 사람번호를 입력하여 주십시오."_q));
    ClickSend();
    EXPECT_TRUE(SendNo().hasFocus());
    SendNo().SetText(u"02-12.345"_q);
    ClickSendAndLook([](QWidget&) {});
}

TEST_F(SendPreflight, AnEmptySenderNumberHasItsOwnWords)
{
    FillPage();
    SendNo().SetText(u""_q);
    program.desktop.Expect(Refusal(u"문자메시지를 보내는 사람번호를 입력하여 주십시오."_q));
    ClickSend();
    EXPECT_TRUE(SendNo().hasFocus());
}

TEST_F(SendPreflight, EachOfTheThreeAccountFieldsLeadsToTheSignUpPage)
{
    FillPage();
    for (const QString& column : {u"SMSID"_q, u"SMSPWD"_q, u"SMSDNS"_q}) {
        program.database.SetAccount();
        program.database.Execute(u"UPDATE SMSSetup SET %1 = '  '"_q.arg(column));
        program.desktop.Expect(SignUpBox());
        ClickSend();
        ASSERT_FALSE(program.desktop.pages.isEmpty());
        EXPECT_EQ(program.desktop.pages.last(), program.session.SMSWeb1);
    }
    EXPECT_EQ(program.desktop.pages.size(), 3);
}

TEST_F(SendPreflight, TheAccountIsLookedAtBeforeTheBalance)
{
    program.database.SetAccount(0);
    program.database.Execute(u"UPDATE SMSSetup SET SMSDNS = NULL"_q);
    program.desktop.Expect(SignUpBox());
    ClickSend();
}

TEST_F(SendPreflight, TheRecipientsAreLookedAtBeforeTheSenderNumber)
{
    program.Write(u"안녕"_q);
    SendNo().SetText(QString());
    program.desktop.Expect(Refusal(u"문자메시지를 받는사람 번호를 입력하여 주십시오."_q));
    ClickSend();
}

TEST_F(SendPreflight, ABalanceOfZeroWithAFilledPageOpensTheChargePageTwice)
{
    FillPage();
    program.database.SetAccount(0);
    program.desktop.Expect(ChargeBox());
    program.desktop.Expect(ShortageBox());
    ClickSend();
    EXPECT_EQ(program.desktop.events,
              QStringList({u"box 문자메시지 충전"_q, u"page "_q + program.session.SMSWeb2,
                           u"box 경고 - 문자메세지 잔여건수 부족"_q, u"page "_q + program.session.SMSWeb2}));
}

TEST_F(SendPreflight, ABalanceOfZeroDoesNotStopTheChecks)
{
    program.database.SetAccount(0);
    program.desktop.Expect(ChargeBox());
    program.desktop.Expect(Refusal(u"문자메시지 내용을 입력하여 주십시오."_q));
    ClickSend();
}

TEST_F(SendPreflight, AsManyRecipientsAsTheBalanceAreAllowedAndOneMoreIsNot)
{
    FillPage();
    program.database.SetAccount(2);
    ClickSendAndLook([](QWidget&) {});
    program.database.SetAccount(1);
    program.desktop.Expect(ShortageBox());
    ClickSend();
    EXPECT_EQ(program.desktop.pages, QStringList{program.session.SMSWeb2});
}

TEST_F(SendPreflight, TheDialogOpensWithTheTotalAndItsStatusLine)
{
    FillPage();
    ClickSendAndLook([&](QWidget& dialog) {
        EXPECT_EQ(DialogCaption(dialog, u"LblSendSMS(0)"_q), u"2"_q);
        EXPECT_EQ(program.On<Label>(dialog, u"LblSendSMS(0)"_q).Tag, u"2"_q);
        EXPECT_EQ(DialogCaption(dialog, u"lblStatus"_q), u"총 발송건수 : 2건 / 현 발송 건수 : 0건"_q);
    });
    EXPECT_EQ(program.The<MemoBox>(u"TxtPerSendMsg"_q).Text(), u"안녕하세요"_q);
    EXPECT_EQ(program.Recipients().Cells().Text(2, 1), u"홍길동"_q);
}

TEST_F(SendPreflight, ARemovedRowPassesTheFirstCountAndLeavesATotalOfZero)
{
    program.Write(u"안녕"_q);
    program.List({{u"홍"_q, u"01012345678"_q}});
    ClickCell(program.Recipients(), 4, 1);
    ClickSendAndLook([&](QWidget& dialog) { EXPECT_EQ(DialogCaption(dialog, u"LblSendSMS(0)"_q), u"0"_q); });
}

TEST_F(SendPreflight, WhatIsBeingTypedIntoACellCounts)
{
    program.Write(u"안녕"_q);
    ClickCell(program.Recipients(), 3, 1);
    TypeText(program.Recipients(), u"01012345678"_q);
    ClickSendAndLook([&](QWidget& dialog) { EXPECT_EQ(DialogCaption(dialog, u"LblSendSMS(0)"_q), u"1"_q); });
}

TEST_F(SendPreflight, TheClickReadsTheAccountAgainAndShowsItsBalance)
{
    program.database.SetAccount(77);
    program.desktop.Expect(Refusal(u"문자메시지 내용을 입력하여 주십시오."_q));
    ClickSend();
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"77건 남았습니다."_q);
    EXPECT_EQ(program.The<Label>(u"lblSMSCnt"_q).Tag, u"77"_q);
}

TEST_F(SendPreflight, ADeadDatabaseIsReportedAndTheChecksGoOnWithWhatTheSessionHolds)
{
    FillPage();
    program.connections.RefuseOpens(-1);
    for (int i = 0; i < 3; ++i)
        program.desktop.Expect(ServerDownBox());
    ClickSendAndLook([](QWidget&) {});
}

TEST_F(SendPreflight, WhileBusyTheClickDoesNothing)
{
    program.session.Busy = true;
    ClickSend();
    program.Click(u"BtnSend(1)"_q);
    program.session.Busy = false;
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(SendPreflight, TheCloseButtonOfThePageAsksTheClosingQuestion)
{
    program.desktop.Expect(
        {u"프로그램 종료"_q, u"프로그램 종료 : 타른리프 문자메시지을 종료하시겠습니까?"_q, MsgBoxQuestion},
        AnswerNo);
    program.Click(u"BtnSend(1)"_q);
    EXPECT_TRUE(program.form->isVisible());
}

TEST_F(SendPreflight, TheSenderNumberStartsAsTheAccountsAndIsMarkedWhenEntered)
{
    EXPECT_EQ(SendNo().Text(), program.session.SMSTelNo);
    SendNo().setFocus();
    EXPECT_EQ(SendNo().SelLength(), SendNo().Text().size());
}

TEST_F(SendPreflight, TheSenderNumberTakesDigitsHyphenPointAndSlash)
{
    SendNo().SetText(QString());
    SendNo().setFocus();
    TypeText(SendNo(), u"0a2-한1.2/3,4+5"_q);
    EXPECT_EQ(SendNo().Text(), u"02-1.2/345"_q);
    // The keys are dropped before they act: a selection that they would replace stays.
    SendNo().SelectAll();
    TypeText(SendNo(), u"a"_q);
    EXPECT_EQ(SendNo().Text(), u"02-1.2/345"_q);
}

TEST_F(SendPreflight, TheSenderNumberStopsAtThirteenBytesAndIsCleanedWhenPasted)
{
    SendNo().SetText(QString());
    SendNo().setFocus();
    PasteText(SendNo(), u"전화 02) 123-4567-8901234"_q);
    EXPECT_EQ(SendNo().Text(), u"02123-4567-89"_q);
    SendNo().SetText(QString());
    PasteText(SendNo(), QString(u"1가"_q).repeated(50000));
    EXPECT_EQ(SendNo().Text(), QString(u"1"_q).repeated(13));
}

TEST_F(SendPreflight, EnterInAnEmptySenderNumberAsksForOne)
{
    SendNo().SetText(u"  "_q);
    SendNo().setFocus();
    program.desktop.Expect({u"문자메시지 전송"_q, u"회신 전화번호를 입력하여 주십시오."_q, MsgBoxCritical});
    TypeText(SendNo(), u"\n"_q);
    SendNo().SetText(u"02-123-4567"_q);
    TypeText(SendNo(), u"\n"_q);
    EXPECT_EQ(program.desktop.boxes.size(), 1);
}

TEST_F(SendPreflight, EntryToThePageSetsTheAccountsSenderNumberAgain)
{
    SendNo().SetText(u"031-999-9999"_q);
    program.Click(u"BtnToolbarDis(1)"_q);
    program.Click(u"BtnToolbarDis(0)"_q);
    EXPECT_EQ(SendNo().Text(), program.session.SMSTelNo);
}

} // namespace

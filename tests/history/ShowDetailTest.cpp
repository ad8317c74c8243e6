#include "history/dlgSMSShowDetail.h"
#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/HistoryProgram.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QtTest/QTest>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString Title = u"문자메시지 예약취소"_q;

Box NotReservedBox()
{
    return {Title, u"이미 전송을 완료 하였거나 전송실패된  문자메시지는 예약취소를 하실수가 없습니다.!!!"_q,
            MsgBoxCritical};
}

Box WithdrawnBox()
{
    return {Title, u"정상적으로 문자메시지 예약취소를 완료하였습니다.!!"_q, MsgBoxInformation};
}

// The rules.

TEST(DetailStatement, ReadsOneMessageOfItsYear)
{
    EXPECT_EQ(DetailStatement(17, u"2013"_q).Text(),
              u"SELECT  SMSKey, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE (CASE WHEN SMSStatus ='1' THEN "
              u"'전송성공' ELSE '전송실패' END) END) AS SMSStatus, SMSNo, SendNm,SendTelNo, "
              u"SMSContent,SendTime,ErrCd,ErrMsg  FROM SMSLog_2013 WHERE SMSKey=17"_q);
}

struct StatusWord
{
    QString status; ///< in the log
    QString read;   ///< by the query
    QString time;
    QString shown;

    friend void PrintTo(const StatusWord& word, std::ostream* out)
    {
        *out << "status " << word.status.toStdString() << " of " << word.time.toStdString();
    }
};

const StatusWord StatusWords[] = {{u"0"_q, u"예약중"_q, u"2012-05-31-10-00"_q, u"예약중"_q},
                                  {u"0"_q, u"예약중"_q, u"2012-05-29 10-00"_q, u"예약중"_q},
                                  {u"1"_q, u"전송성공"_q, u"2012-05-31-10-00"_q, u"예약중"_q},
                                  {u"1"_q, u"전송성공"_q, u"2012-05-30-23-55"_q, u"전송완료"_q},
                                  {u"1"_q, u"전송성공"_q, u"2012-05-29 10-00"_q, u"전송완료"_q},
                                  {u"2"_q, u"전송실패"_q, u"2012-05-31-10-00"_q, u"전송실패"_q},
                                  {u"2"_q, u"전송실패"_q, u"2012-05-29 10-00"_q, u"전송실패"_q},
                                  {u"9"_q, u"전송실패"_q, u"2012-05-31-10-00"_q, u"전송실패"_q}};

class ShownWord : public ::testing::TestWithParam<StatusWord>
{
};

TEST_P(ShownWord, FollowsTheDayOnlyForWhatWasAccepted)
{
    EXPECT_EQ(ShownStatus(GetParam().read, GetParam().time, QDate(2012, 5, 30)), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Words, ShownWord, ::testing::ValuesIn(StatusWords));

TEST(ShownWordWithoutADay, IsThatOfTheQueryForAFailedMessage)
{
    EXPECT_EQ(ShownStatus(u"전송실패"_q, u"no day"_q, QDate(2012, 5, 30)), u"전송실패"_q);
}

TEST(ShownWordWithoutADay, RaisesATypeMismatchForOneThatWasAccepted)
{
    EXPECT_THROW(ShownStatus(u"전송성공"_q, u"no day"_q, QDate(2012, 5, 30)), RuntimeError);
}

class ShowDetail : public HistoryProgram
{
protected:
    /// Clicks "detail", looks at the dialog that opens and leaves it by Esc, unless it is gone by then.
    void Open(std::function<void(QWidget& dialog)> look)
    {
        bool looked = false;
        WhenShown(u"dlgSMSShowDetail"_q, [&](QWidget& dialog) {
            looked = true;
            look(dialog);
            if (dialog.isVisible())
                PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(u"BtnSendListFun(0)"_q);
        EXPECT_TRUE(looked);
        EXPECT_EQ(Form::Find(u"dlgSMSShowDetail"_q), nullptr);
    }
    /// Puts the message into the log, lists the year and opens the first row.
    void LogAndOpen(const SentMessage& message, std::function<void(QWidget& dialog)> look)
    {
        Log(message);
        EnterAndListAll();
        Open(std::move(look));
    }
    void ListReserved()
    {
        Reserve(u"가"_q);
        EnterAndListAll();
        callsBefore = program.gateway.CallCount();
    }
    /// Opens the first row and clicks "cancel" in it.
    void Cancel(const QList<Box>& boxes)
    {
        for (const Box& box : boxes)
            program.desktop.Expect(box);
        Open([this](QWidget& dialog) { ClickCancel(dialog); });
    }
    void ClickCancel(QWidget& dialog) { ClickOn(program.On<QWidget>(dialog, u"BtnSendS(0)"_q)); }
    /// The next call goes wrong.
    void Fail(FaultKind kind) { program.gateway.Fail(kind, callsBefore + 1); }
    Label& Of(QWidget& dialog, const QString& label) { return program.On<Label>(dialog, label); }
    QString Value(QWidget& dialog, int index) { return Of(dialog, u"LblSendSMS(%1)"_q.arg(index)).Caption(); }
    void ExpectNothingShown(QWidget& dialog)
    {
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(Value(dialog, i), QString()) << i;
        EXPECT_EQ(Of(dialog, u"LblSendSMS(0)"_q).Tag, QString());
        EXPECT_EQ(Of(dialog, u"LblTmpContent"_q).Caption(), QString());
        EXPECT_EQ(Of(dialog, u"LblTmpContent"_q).Tag, QString());
    }
    /// The cancel was tried in vain: nothing has changed but that the list is fresh.
    void ExpectInVain(int statementsBefore)
    {
        EXPECT_EQ(Keys(), QStringList{u"1"_q});
        EXPECT_EQ(program.Balance(), 100);
        EXPECT_TRUE(LastStatement().contains(u"AS nSendTime"_q));
        EXPECT_GT(StatementCount(), statementsBefore + 1); // the detail's, too
        EXPECT_EQ(program.connections.OpenNow(), 0);
    }

    int callsBefore = 0;
};

using ShowDetailInSqlServerWords = InSqlServerWords<ShowDetail>;

// Opening and what it shows.

TEST_F(ShowDetail, ReadsAsItShould)
{
    LogAndOpen({}, [this](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"문자메시지 상세보기"_q);
        EXPECT_EQ(Of(dialog, u"lblTitle(1)"_q).Caption(), u"문자메시지 상세보기"_q);
        const QStringList titles{u"전송상태"_q, u"받는사람"_q, u"수신번호"_q, u"보낸시간"_q};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(Of(dialog, u"Label1(%1)"_q.arg(i)).Caption(), titles[i]);
        EXPECT_EQ(Of(dialog, u"lblHeading"_q).Caption(), u"문자메시지 보낸 내역을 확인하실수가 있습니다."_q);
        EXPECT_EQ(Of(dialog, u"lblNotice"_q).Caption(), u"예약취소는 발송 1일전까지만 가능합니다."_q);
        EXPECT_EQ(program.On<PushButton>(dialog, u"BtnSendS(0)"_q).Caption(), u"예약취소"_q);
        EXPECT_EQ(program.On<PushButton>(dialog, u"BtnSendS(1)"_q).Caption(), u"취소(ESC)"_q);
    });
}

TEST_F(ShowDetail, ShowsTheMessageAndRemembersItsKeyAndNumber)
{
    const int key = Log({.time = u"2012-05-31-14-05"_q,
                         .name = u" 홍길동 "_q,
                         .phone = u"010-1234-5678"_q,
                         .content = u"내일 모임이 있습니다."_q,
                         .number = u"100017"_q});
    EnterAndListAll();
    Open([&](QWidget& dialog) {
        EXPECT_EQ(Value(dialog, 0), u"예약중"_q);
        EXPECT_EQ(Of(dialog, u"LblSendSMS(0)"_q).Tag, QString::number(key));
        EXPECT_EQ(Value(dialog, 1), u"홍길동"_q);
        EXPECT_EQ(Value(dialog, 2), u"010-1234-5678"_q);
        EXPECT_EQ(Value(dialog, 3), u"2012-05-31-14-05"_q); // as it is stored
        EXPECT_EQ(Value(dialog, 4), QString());
        EXPECT_EQ(Of(dialog, u"LblTmpContent"_q).Caption(), u"내일 모임이 있습니다."_q);
        EXPECT_EQ(Of(dialog, u"LblTmpContent"_q).Tag, u"100017"_q);
    });
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(ShowDetail, WhatIsNullReadsAsNothing)
{
    LogAndOpen({.name = {}, .content = {}, .number = {}}, [this](QWidget& dialog) {
        EXPECT_EQ(Value(dialog, 1), QString());
        EXPECT_EQ(Of(dialog, u"LblTmpContent"_q).Caption(), QString());
        EXPECT_EQ(Of(dialog, u"LblTmpContent"_q).Tag, QString());
    });
}

TEST_F(ShowDetail, ShowsTheActiveRow)
{
    Log({.time = u"2012-05-30 12-00"_q, .name = u"가"_q});
    Log({.time = u"2012-05-30 11-00"_q, .name = u"나"_q});
    EnterAndListAll();
    Open([this](QWidget& dialog) { EXPECT_EQ(Value(dialog, 1), u"가"_q); });
    ClickCell(List(), 5, 2);
    Open([this](QWidget& dialog) { EXPECT_EQ(Value(dialog, 1), u"나"_q); });
}

TEST_F(ShowDetail, OpensByADoubleClickAnywhereInARow)
{
    Log({.time = u"2012-05-31-12-00"_q, .name = u"가"_q});
    Log({.time = u"2012-05-31-11-00"_q, .name = u"나"_q});
    EnterAndListAll();
    for (int col = 2; col <= 10; ++col) {
        QString name;
        WhenShown(u"dlgSMSShowDetail"_q, [&](QWidget& dialog) {
            name = Value(dialog, 1);
            PressKey(dialog, Qt::Key_Escape);
        });
        DoubleClickCell(List(), col, 2);
        EXPECT_EQ(name, u"나"_q) << col;
    }
    EXPECT_EQ(Marks(), u"et"_q); // the first of the two clicks on the mark ticked it
}

TEST_F(ShowDetail, OpensByADoubleClickOnATitleOrBelowTheLastRow)
{
    Log({.time = u"2012-05-31-12-00"_q, .name = u"가"_q});
    Log({.time = u"2012-05-31-11-00"_q, .name = u"나"_q});
    EnterAndListAll();
    ClickCell(List(), 5, 2);
    const int x = List().columnViewportPosition(4) + 20;
    for (const auto& [surface, place] : {std::pair(List().horizontalHeader()->viewport(), QPoint(x, 5)),
                                         {List().viewport(), QPoint(x, List().viewport()->height() - 5)}}) {
        QString name;
        WhenShown(u"dlgSMSShowDetail"_q, [&](QWidget& dialog) {
            name = Value(dialog, 1);
            PressKey(dialog, Qt::Key_Escape);
        });
        QTest::mouseClick(surface, Qt::LeftButton, {}, place);
        QTest::mouseDClick(surface, Qt::LeftButton, {}, place);
        EXPECT_EQ(name, u"나"_q);
    }
}

TEST_F(ShowDetail, TheYearOfTheShownTimeNamesTheTable)
{
    Log({.name = u"올해"_q});
    Log({.time = u"2013-05-30 10-00"_q, .name = u"내년"_q});
    EnterAndListAll();
    List().Cells().SetText(7, 1, u"2013-05-30 10:00"_q);
    Open([this](QWidget& dialog) { EXPECT_EQ(Value(dialog, 1), u"내년"_q); });
}

class DetailStatus : public ShowDetail, public ::testing::WithParamInterface<StatusWord>
{
};

TEST_P(DetailStatus, HasItsWord)
{
    LogAndOpen({.time = GetParam().time, .status = GetParam().status},
               [this](QWidget& dialog) { EXPECT_EQ(Value(dialog, 0), GetParam().shown); });
}

INSTANTIATE_TEST_SUITE_P(Words, DetailStatus, ::testing::ValuesIn(StatusWords));

TEST_F(ShowDetail, AFailedMessageTellsItsReasonAndCode)
{
    LogAndOpen({.status = u"2"_q, .errorCode = u" E99 "_q, .errorText = u" 수신이 거부된 번호입니다. "_q},
               [this](QWidget& dialog) {
                   EXPECT_EQ(Value(dialog, 0), u"전송실패"_q);
                   EXPECT_EQ(Value(dialog, 4), u"수신이 거부된 번호입니다.(E99)"_q);
               });
}

TEST_F(ShowDetail, AReasonWithoutACodeHasEmptyBrackets)
{
    LogAndOpen({.status = u"2"_q, .errorText = u"수신이 거부된 번호입니다."_q},
               [this](QWidget& dialog) { EXPECT_EQ(Value(dialog, 4), u"수신이 거부된 번호입니다.()"_q); });
}

TEST_F(ShowDetail, ACodeWithoutAReasonIsNotShown)
{
    LogAndOpen({.status = u"2"_q, .errorCode = u"E99"_q},
               [this](QWidget& dialog) { EXPECT_EQ(Value(dialog, 4), QString()); });
}

TEST_F(ShowDetail, AnEmptyReasonThatIsNotNullShowsItsCode)
{
    Log({.status = u"2"_q, .errorCode = u"E99"_q});
    program.database.Execute(u"UPDATE SMSLog_2012 SET ErrMsg = ''"_q);
    EnterAndListAll();
    Open([this](QWidget& dialog) { EXPECT_EQ(Value(dialog, 4), u"(E99)"_q); });
}

TEST_F(ShowDetail, LineBreaksAndSignsOfTheMessageAreShownAsTheyAre)
{
    LogAndOpen({.name = u"O'Neil"_q, .content = u"첫 줄 'a' <b>&amp;\r\n둘째 줄"_q}, [this](QWidget& dialog) {
        const Label& content = Of(dialog, u"LblTmpContent"_q);
        EXPECT_EQ(content.Caption(), u"첫 줄 'a' <b>&amp;\r\n둘째 줄"_q);
        EXPECT_EQ(content.text(), u"첫 줄 'a' <b>&amp;\n둘째 줄"_q);
        EXPECT_EQ(content.textFormat(), Qt::PlainText);
        EXPECT_EQ(Value(dialog, 1), u"O'Neil"_q);
        EXPECT_EQ(Of(dialog, u"LblSendSMS(1)"_q).textFormat(), Qt::PlainText);
    });
}

TEST_F(ShowDetail, AWordThatFindsNoRoomInALineGoesOnInTheNext)
{
    LogAndOpen({.name = QString(50, u'W'), .content = u"http://"_q + QString(73, u'w')},
               [this](QWidget& dialog) {
                   Settle();
                   const Label& content = Of(dialog, u"LblTmpContent"_q);
                   EXPECT_EQ(content.width(), content.parentWidget()->width());
                   EXPECT_GE(content.height(), content.heightForWidth(content.width()));
                   const Label& name = Of(dialog, u"LblSendSMS(1)"_q);
                   EXPECT_GE(name.height(), name.heightForWidth(name.width()));
                   EXPECT_GT(name.height(), Of(dialog, u"LblSendSMS(2)"_q).height());
               });
}

TEST_F(ShowDetail, SelectedWordsAreCopiedAndTheFocusStaysOnTheButtonThatCloses)
{
    LogAndOpen({.name = u"김하늘"_q, .content = u"내일 뵙겠습니다"_q}, [this](QWidget& dialog) {
        Settle();
        QTest::mouseDClick(&Of(dialog, u"LblSendSMS(1)"_q), Qt::LeftButton, {}, QPoint(6, 6));
        EXPECT_EQ(dialog.focusWidget()->objectName(), u"BtnSendS(1)"_q);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), u"김하늘"_q);
    });
}

TEST_F(ShowDetail, ItsQueryHoldsBusyUntilItsEnd)
{
    Log({});
    EnterAndListAll();
    bool busy = false;
    program.connections.BeforeStatement([&](const QString&) { busy = program.session.IsBusy(); });
    Open([&](QWidget&) {
        EXPECT_TRUE(busy);
        EXPECT_FALSE(program.session.IsBusy());
        program.connections.BeforeStatement({});
    });
}

TEST_F(ShowDetail, AnUnknownMessageBehindAnotherEmptiesTheStatusAndItsKeyAlone)
{
    const int key = Log({.time = u"2012-05-31-14-05"_q, .name = u"홍길동"_q, .phone = u"010-1234-5678"_q});
    dlgSMSShowDetail dialog(program.services, [] {});
    dialog.Sp_SMSDeTail(key, u"2012"_q);
    dialog.Sp_SMSDeTail(key + 1, u"2012"_q);
    EXPECT_EQ(Value(dialog, 0), QString());
    EXPECT_EQ(Of(dialog, u"LblSendSMS(0)"_q).Tag, QString());
    EXPECT_EQ(Value(dialog, 1), u"홍길동"_q);
    EXPECT_EQ(Value(dialog, 2), u"010-1234-5678"_q);
    EXPECT_EQ(Value(dialog, 3), u"2012-05-31-14-05"_q);
}

TEST_F(ShowDetail, WhileBusyItIsNotFilled)
{
    const int key = Log({});
    dlgSMSShowDetail dialog(program.services, [] {});
    const int opens = program.connections.Opens();
    program.session.Busy = true;
    dialog.Sp_SMSDeTail(key, u"2012"_q);
    program.session.Busy = false;
    EXPECT_EQ(program.connections.Opens(), opens);
    ExpectNothingShown(dialog);
}

// Leaving.

TEST_F(ShowDetail, IsLeftByEscByItsSecondButtonAndByTheCross)
{
    Reserve(u"가"_q);
    EnterAndListAll();
    ClickMark(1);
    const int calls = program.gateway.CallCount();
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); },
        [this](QWidget& dialog) { ClickOn(program.On<QWidget>(dialog, u"BtnSendS(1)"_q)); },
        [this](QWidget& dialog) { ClickOn(program.On<QWidget>(dialog, u"BtnTopFunc(1)"_q)); }};
    for (const auto& leave : ways)
        Open([&](QWidget& dialog) {
            ClickOn(program.On<QWidget>(dialog, u"BtnTopFunc(0)"_q));
            EXPECT_TRUE(dialog.isVisible());
            leave(dialog);
            EXPECT_FALSE(dialog.isVisible());
        });
    EXPECT_EQ(program.gateway.CallCount(), calls);
    EXPECT_EQ(Marks(), u"t"_q); // not searched again
}

TEST_F(ShowDetail, EnterClosesItAndWithdrawsNothing)
{
    ListReserved();
    Open([](QWidget& dialog) {
        PressKey(dialog, Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(Withdrawals().isEmpty());
}

TEST_F(ShowDetail, TheAccentIsNotOnWithdrawing)
{
    ListReserved();
    Open([this](QWidget& dialog) {
        auto& withdraw = program.On<PushButton>(dialog, u"BtnSendS(0)"_q);
        EXPECT_EQ(withdraw.LookOf(), PushButton::Look::Plain);
        PressKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(ShowDetail, WhileBusyItsKeysAndButtonsAreDead)
{
    ListReserved();
    Open([this](QWidget& dialog) {
        program.session.Busy = true;
        PressKey(dialog, Qt::Key_F12);
        PressKey(dialog, Qt::Key_Escape);
        for (const QString& name : {u"BtnSendS(0)"_q, u"BtnSendS(1)"_q, u"BtnTopFunc(1)"_q})
            ClickOn(program.On<QWidget>(dialog, name));
        program.session.Busy = false;
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_TRUE(Withdrawals().isEmpty());
}

// The cancellation.

class NotCancelled : public ShowDetail, public ::testing::WithParamInterface<SentMessage>
{
};

TEST_P(NotCancelled, IsRefusedByKeyAndClickAndStays)
{
    LogAndOpen(GetParam(), [this](QWidget& dialog) {
        program.desktop.Expect(NotReservedBox());
        ClickCancel(dialog);
        program.desktop.Expect(NotReservedBox());
        PressKey(dialog, Qt::Key_F12);
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_EQ(program.gateway.RequestCount(), 0);
    EXPECT_EQ(Keys().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Messages, NotCancelled,
                         ::testing::Values(SentMessage{.time = u"2012-05-30-23-55"_q},
                                           SentMessage{.time = u"2012-05-29 10-00"_q},
                                           SentMessage{.time = u"2012-05-31-10-00"_q, .status = u"2"_q}));

TEST_F(ShowDetail, ACancelledMessageIsWithdrawnDeletedAndCredited)
{
    ListReserved();
    const int statements = StatementCount();
    Cancel({WithdrawnBox()});
    ASSERT_EQ(Withdrawals().size(), 1);
    EXPECT_EQ(Withdrawals()[0].Arguments, QStringList({u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"100001"_q,
                                                       QString(), QString(), QString()}));
    EXPECT_EQ(program.connections.Statements().mid(statements + 1, 2),
              QStringList({u"DELETE SMSLog_2012 WHERE SMSKey = 1"_q,
                           u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q}));
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_EQ(List().Cells().MaxRows(), 0);
    EXPECT_EQ(program.Balance(), 101);
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(ShowDetail, ACancellationLeavesTheSessionsBalanceAndTheWindowsAlone)
{
    ListReserved();
    Cancel({WithdrawnBox()});
    EXPECT_EQ(program.session.SMSRemainCnt, 100);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    EXPECT_EQ(program.The<Label>(u"lblSMSCnt"_q).Tag, u"100"_q);
}

TEST_F(ShowDetail, F12Cancels)
{
    ListReserved();
    program.desktop.Expect(WithdrawnBox());
    Open([](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
    EXPECT_TRUE(Keys().isEmpty());
}

TEST_F(ShowDetail, ACancellationDoesNotSetBusy)
{
    ListReserved();
    int looked = 0;
    program.desktop.Expect(WithdrawnBox());
    Open([&](QWidget& dialog) {
        program.connections.BeforeStatement([&](const QString& sql) {
            if (sql.startsWith(u"SELECT"_q))
                return;
            ++looked;
            EXPECT_FALSE(program.session.IsBusy());
        });
        ClickCancel(dialog);
    });
    EXPECT_EQ(looked, 2);
}

TEST_F(ShowDetail, TheOutcomeIsToldWhenTheDialogHasGoneAndTheListIsSearchedBehindIt)
{
    ListReserved();
    program.desktop.Expect(WithdrawnBox(), AnswerOK, [this] {
        EXPECT_EQ(Form::Find(u"dlgSMSShowDetail"_q), nullptr);
        EXPECT_EQ(Names(), QStringList{u"가"_q});
    });
    Open([this](QWidget& dialog) { ClickCancel(dialog); });
    EXPECT_EQ(List().Cells().MaxRows(), 0);
    EXPECT_EQ(CountText(), u"(검색된 전송내역이 없습니다.)"_q);
}

TEST_F(ShowDetail, TheDialogStandsWhileTheCreditIsWritten)
{
    ListReserved();
    bool stands = false;
    program.desktop.Expect(WithdrawnBox(), AnswerOK,
                           [] { EXPECT_EQ(Form::Find(u"dlgSMSShowDetail"_q), nullptr); });
    Open([&](QWidget& dialog) {
        program.connections.BeforeStatement([&](const QString& sql) {
            if (sql.startsWith(u"UPDATE"_q))
                stands = dialog.isVisible();
        });
        ClickCancel(dialog);
    });
    EXPECT_TRUE(stands);
}

TEST_F(ShowDetail, TheOutcomeIsToldWhenDatabaseAndGatewayHaveBeenLetGo)
{
    ListReserved();
    ExpectOutcome(WithdrawnBox());
    Cancel({});
    ExpectNoGatewayClient();
}

TEST_F(ShowDetail, AFailureIsToldWhenDatabaseAndGatewayHaveBeenLetGo)
{
    ListReserved();
    Fail(FaultKind::Refuse);
    ExpectOutcome(NothingCancelledBox());
    Cancel({});
    ExpectNoGatewayClient();
}

TEST_F(ShowDetail, AFailureIsToldWhenTheDialogHasGoneToo)
{
    ListReserved();
    Fail(FaultKind::Refuse);
    ClickMark(1);
    program.desktop.Expect(NothingCancelledBox(), AnswerOK, [this] {
        EXPECT_EQ(Form::Find(u"dlgSMSShowDetail"_q), nullptr);
        EXPECT_EQ(Marks(), u"t"_q);
    });
    Open([this](QWidget& dialog) { ClickCancel(dialog); });
    EXPECT_EQ(Marks(), u"e"_q);
}

TEST_F(ShowDetail, TheYearOfTheStoredTimeNamesTheTableOfTheDelete)
{
    Reserve(u"가"_q, u"2013:01:02:10:00"_q);
    Log({.time = u"2012-06-01-10-00"_q});
    EnterAndList(u"2013-01-01"_q, u"2013-12-31"_q);
    Cancel({WithdrawnBox()});
    EXPECT_TRUE(Keys(2013).isEmpty());
    EXPECT_EQ(Keys(2012), QStringList{u"1"_q});
}

TEST_F(ShowDetail, AnOldMessageWithStatusZeroIsTriedAndTheGatewayDecides)
{
    Log({.time = u"2012-05-29-10-00"_q, .status = u"0"_q, .number = u"999999"_q});
    EnterAndListAll();
    ASSERT_EQ(Marks(), u"l"_q);
    const int statements = StatementCount();
    Cancel({NothingCancelledBox()});
    ASSERT_EQ(Withdrawals().size(), 1);
    EXPECT_EQ(Withdrawals()[0].Arguments[3], u"999999"_q);
    ExpectInVain(statements);
}

TEST_F(ShowDetail, AnOldMessageWithStatusZeroIsGoneWhenTheGatewayAgrees)
{
    ListReserved();
    program.database.Execute(u"UPDATE SMSLog_2012 SET SMSStatus = '0', SendTime = '2012-05-29-10-00'"_q);
    Search();
    Cancel({WithdrawnBox()});
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_EQ(program.Balance(), 101);
}

class CancelAtABrokenGateway : public ShowDetail, public ::testing::WithParamInterface<FaultKind>
{
};

TEST_P(CancelAtABrokenGateway, EndsInTheFailureBoxAlone)
{
    ListReserved();
    Fail(GetParam());
    const int statements = StatementCount();
    Cancel({NothingCancelledBox()});
    EXPECT_EQ(Withdrawals().size(), 1);
    ExpectInVain(statements);
    EXPECT_EQ(Marks(), u"e"_q);
}

INSTANTIATE_TEST_SUITE_P(Faults, CancelAtABrokenGateway,
                         ::testing::Values(FaultKind::Refuse, FaultKind::Short, FaultKind::BadTruth,
                                           FaultKind::Drop, FaultKind::Cut, FaultKind::SoapFault,
                                           FaultKind::Http500, FaultKind::Garbage));

TEST_F(ShowDetail, WithoutAGatewayTheConnectionBoxComesTwiceBeforeTheFailureBox)
{
    ListReserved();
    program.gateway.Fail(FaultKind::WsdlMissing);
    program.desktop.AllowBoxes();
    const int statements = StatementCount();
    Cancel({});
    ASSERT_EQ(program.desktop.boxes.size(), 3);
    for (int i : {0, 1}) {
        EXPECT_EQ(program.desktop.boxes[i].title, u"문자메시지 통신환경 연결실패!!!"_q);
        EXPECT_EQ(program.desktop.boxes[i].style, MsgBoxPlain);
    }
    EXPECT_EQ(program.desktop.boxes[2], NothingCancelledBox());
    EXPECT_TRUE(Withdrawals().isEmpty());
    ExpectInVain(statements);
}

// What the database does wrong.

TEST_F(ShowDetail, ACreditThatFailsIsLostWithTheRowAndToldAsAFailure)
{
    ListReserved();
    program.desktop.Expect(DatabaseBox(u"no"_q));
    program.desktop.Expect(NothingCancelledBox());
    Open([this](QWidget& dialog) {
        program.connections.FailStatement(2, StatementFailure, u"no"_q);
        ClickCancel(dialog);
    });
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_EQ(List().Cells().MaxRows(), 0);
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(ShowDetail, ADeleteThatFailsLosesTheCreditInSilenceAndIsToldAsAFailure)
{
    ListReserved();
    program.desktop.Expect(DatabaseBox(u"no"_q));
    program.desktop.Expect(NothingCancelledBox());
    Open([this](QWidget& dialog) {
        program.connections.FailStatement(1, StatementFailure, u"no"_q);
        ClickCancel(dialog);
    });
    EXPECT_TRUE(program.gateway.Messages().first().Withdrawn);
    EXPECT_EQ(Keys(), QStringList{u"1"_q});
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(Marks(), u"e"_q);
}

TEST_F(ShowDetail, ADatabaseThatDiesBehindTheOpeningStillLetsTheMessageBeWithdrawn)
{
    ListReserved();
    // Two of connecting, one each of delete and credit; then the three of the search.
    for (int i = 0; i < 4; ++i)
        program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(NothingCancelledBox());
    for (int i = 0; i < 3; ++i)
        program.desktop.Expect(ServerDownBox());
    Open([this](QWidget& dialog) {
        program.connections.RefuseOpens(-1);
        ClickCancel(dialog);
    });
    EXPECT_TRUE(program.gateway.Messages().first().Withdrawn);
    EXPECT_EQ(Keys(), QStringList{u"1"_q});
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_FALSE(program.session.IsBusy());
}

TEST_F(ShowDetail, AMessageThatIsGoneOpensEmptyAndIsNotCancelled)
{
    ListReserved();
    program.database.Execute(u"DELETE FROM SMSLog_2012"_q);
    Open([this](QWidget& dialog) {
        ExpectNothingShown(dialog);
        program.desktop.Expect(NotReservedBox());
        ClickCancel(dialog);
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_TRUE(Withdrawals().isEmpty());
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(ShowDetailInSqlServerWords, AMissingTableShowsItsBoxAndOpensEmpty)
{
    ListReserved();
    program.database.Execute(u"DROP TABLE SMSLog_2012"_q);
    program.desktop.Expect(DatabaseBox(u"Invalid object name 'SMSLog_2012'."_q));
    Open([this](QWidget& dialog) {
        ExpectNothingShown(dialog);
        EXPECT_FALSE(program.session.IsBusy());
        program.desktop.Expect(NotReservedBox());
        ClickCancel(dialog);
    });
    EXPECT_TRUE(Withdrawals().isEmpty());
}

TEST_F(ShowDetail, ADeadDatabaseShowsItsBoxesAndOpensEmpty)
{
    ListReserved();
    program.connections.RefuseOpens(-1);
    for (int i = 0; i < 3; ++i)
        program.desktop.Expect(ServerDownBox());
    Open([this](QWidget& dialog) {
        ExpectNothingShown(dialog);
        EXPECT_FALSE(program.session.IsBusy());
    });
}

TEST_F(ShowDetail, AMessageWithoutADayShowsItsBoxAndIsNotCancelled)
{
    Log({.time = u"2012-02-30-10-00"_q});
    program.desktop.Expect(DatabaseBox(u"형식이 일치하지 않습니다."_q)); // of the marks
    Enter();
    SetPeriod(u"2012-02-01"_q, u"2012-03-31"_q);
    Search();
    program.desktop.Expect(DatabaseBox(u"형식이 일치하지 않습니다."_q));
    Open([this](QWidget& dialog) {
        EXPECT_EQ(Value(dialog, 0), u"전송성공"_q);
        EXPECT_EQ(Value(dialog, 3), u"2012-02-30-10-00"_q);
        EXPECT_FALSE(program.session.IsBusy());
        program.desktop.Expect(NotReservedBox());
        ClickCancel(dialog);
    });
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

} // namespace

#include "support/program/Program.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

#include <QCheckBox>

namespace tsms::test {

namespace {

constexpr int StartBalance = 100;

/// What an office does in a day, each from the start of the program to the rows in its tables. The tables are
/// asked in words that every engine understands, so these run on a real server too.
class WorkingDay : public ::testing::Test
{
protected:
    void Start() { ASSERT_TRUE(program.Start()); }
    void Told(const Box& box, MsgBoxAnswer answer = AnswerOK) { program.desktop.Expect(box, answer); }
    QString Value(const QString& sql) { return program.database.Value(sql); }
    void Type(QWidget& form, const QString& field, const QString& text)
    {
        QWidget& box = program.On<QWidget>(form, field);
        box.setFocus();
        TypeText(box, text);
    }

    /// Opens a dialog by a button of the main window and acts in it. What `act` leaves open is left by Esc.
    void InDialog(const QString& button, const QString& form, const std::function<void(QWidget&)>& act)
    {
        WhenShown(form, [&](QWidget& dialog) {
            act(dialog);
            EXPECT_EQ(Form::Find(form), nullptr);
            if (Form::Find(form))
                PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(button);
    }

    void SendTo(const QList<QStringList>& recipients, std::function<void(QWidget&)> act = {})
    {
        program.Write(u"안녕하세요 [받는사람]님"_q);
        program.List(recipients);
        Told(SentBox());
        program.Send(std::move(act));
    }

    void ChooseTomorrow(QWidget& dialog)
    {
        ClickOn(program.On<QCheckBox>(dialog, u"ChkTime"_q));
        program.On<DatePicker>(dialog, u"DTPicker1"_q).SetValue(QDate(2012, 5, 31));
    }

    void List(const QDate& first, const QDate& last)
    {
        program.Click(u"BtnToolbarDis(1)"_q);
        program.The<DatePicker>(u"DTPSendDt(0)"_q).SetValue(first);
        program.The<DatePicker>(u"DTPSendDt(1)"_q).SetValue(last);
        program.Click(u"BtnSendListSerch"_q);
    }
    fpSpread& Listed() { return program.The<fpSpread>(u"fpSpreadSendList"_q); }

    Program program;
};

TEST_F(WorkingDay, MessagesAreSentLoggedPaidForAndFoundAgain)
{
    Start();
    SendTo({{u"김하늘"_q, u"010-0000-0001"_q}, {u"이바다"_q, u"01000000002"_q}});
    EXPECT_EQ(program.gateway.Messages().size(), 2U);
    EXPECT_EQ(program.Balance(), StartBalance - 2);
    EXPECT_EQ(program.database.Rows(
                  u"SELECT SendNm, SendTelNo, SMSContent, SMSStatus FROM SMSLog_2012 ORDER BY SMSKey"_q),
              (QList<QStringList>{{u"김하늘"_q, u"010-0000-0001"_q, u"안녕하세요 김하늘님"_q, u"1"_q},
                                  {u"이바다"_q, u"01000000002"_q, u"안녕하세요 이바다님"_q, u"1"_q}}));
    List({2012, 5, 30}, {2012, 5, 30});
    EXPECT_EQ(Listed().Cells().MaxRows(), 2);
}

TEST_F(WorkingDay, AReservationIsWithdrawnAndItsPriceComesBack)
{
    Start();
    SendTo({{u"김하늘"_q, u"010-0000-0001"_q}}, [this](QWidget& dialog) { ChooseTomorrow(dialog); });
    EXPECT_EQ(program.Balance(), StartBalance - 1);
    List({2012, 5, 31}, {2012, 5, 31});
    ASSERT_EQ(Listed().Cells().MaxRows(), 1);
    ClickCell(Listed(), 2, 1);
    Told({u"예약취소"_q, u"예약취소확인 : 총1건에 대한 문자메시지를 예약취소 하시겠습니까.?"_q,
          MsgBoxQuestion},
         AnswerYes);
    Told({u"문자메시지 취소 완료!!!"_q, u"정상적으로 문자 메시지를 발송 취소 하였습니다."_q,
          MsgBoxInformation});
    InDialog(u"BtnSendListFun(1)"_q, u"MakeSMSTransport"_q,
             [this](QWidget& dialog) { ClickOn(program.On<QWidget>(dialog, u"BtnSendS(0)"_q)); });
    EXPECT_EQ(program.LogRows(), 0);
    EXPECT_EQ(program.Balance(), StartBalance);
    EXPECT_TRUE(program.gateway.Messages().at(0).Withdrawn);
}

TEST_F(WorkingDay, AGroupWithAMemberIsMadeAndSentTo)
{
    Start();
    Told({u"그룹등록"_q, u"정상적으로 그룹을 등록 하였습니다."_q, MsgBoxInformation});
    Told({u"발송대상"_q, u"정상적으로 하위 발송대상을 등록 하였습니다."_q, MsgBoxInformation});
    InDialog(u"BtnFuncMain(0)"_q, u"dlgSMSGroupSelect"_q, [this](QWidget& book) {
        WhenShown(u"dlgSMSGroupMst"_q, [this](QWidget& dialog) {
            Type(dialog, u"txtGroupNm"_q, u"청년부"_q);
            PressKey(dialog, Qt::Key_F12);
        });
        ClickOn(program.On<QWidget>(book, u"BtnAdd(1)"_q));
        WhenShown(u"dlgSMSGroupSub"_q, [this](QWidget& dialog) {
            Type(dialog, u"txtGroupSub(0)"_q, u"김하늘"_q);
            Type(dialog, u"txtGroupSub(1)"_q, u"010-0000-0001"_q);
            PressKey(dialog, Qt::Key_F12);
        });
        ClickOn(program.On<QWidget>(book, u"BtnAdd(0)"_q));
        ClickCell(program.On<fpSpread>(book, u"fpSpreadMst"_q), 2, 1);
        ClickOn(program.On<QWidget>(book, u"BtnFuncAdd(0)"_q));
        ClickOn(program.On<QWidget>(book, u"BtnFunc(0)"_q));
    });
    EXPECT_EQ(
        program.database.Rows(u"SELECT GroupNm, GSubNm, GSPhone FROM SMSGroupSub AS S, SMSGroupMst AS M "
                              "WHERE S.GroupCd = M.GroupCd"_q),
        (QList<QStringList>{{u"청년부"_q, u"김하늘"_q, u"010-0000-0001"_q}}));
    EXPECT_EQ(program.Recipients().Cells().Text(3, 1), u"010-0000-0001"_q);
    program.Write(u"안녕하세요"_q);
    Told(SentBox());
    program.Send();
    EXPECT_EQ(Value(u"SELECT SendNm FROM SMSLog_2012"_q), u"김하늘"_q);
}

TEST_F(WorkingDay, AChargeRaisesTheBalanceAndItsDeletionLowersIt)
{
    Start();
    program.Click(u"BtnToolbarDis(2)"_q);
    Told({u"문자메시지 충전!!!"_q, u"정상적으로 문자메시지 충전내역을 등록하였습니다."_q, MsgBoxInformation});
    InDialog(u"BtnChargeFunc(0)"_q, u"dlgSMSCharge"_q, [this](QWidget& dialog) {
        Type(dialog, u"txtUpdate(1)"_q, u"1000"_q);
        Type(dialog, u"txtUpdate(2)"_q, u"20000"_q);
        Type(dialog, u"txtUpdate(3)"_q, u"20"_q);
        Type(dialog, u"txtUpdate(4)"_q, u"첫 충전"_q);
        PressKey(dialog, Qt::Key_F12);
    });
    EXPECT_EQ(program.Balance(), StartBalance + 1000);
    EXPECT_EQ(Value(u"SELECT ChargeCnt FROM SMSCharge"_q), u"1000"_q);
    ClickCell(program.The<fpSpread>(u"fpSpreadCharge"_q), 2, 1);
    const QString day = Value(u"SELECT ChargeDt FROM SMSCharge"_q);
    Told({u"충전현황 삭제"_q, u"삭제확인 : "_q + day + u"에 등록된 충전내역을 삭제하시겠습니까.?"_q,
          MsgBoxQuestion},
         AnswerYes);
    Told({u"삭제완료"_q, u"삭제완료 : 정상적으로 문자메시지 충전내역을 삭제 하였습니다."_q,
          MsgBoxInformation});
    program.Click(u"BtnChargeFunc(1)"_q);
    EXPECT_EQ(program.Balance(), StartBalance);
    EXPECT_EQ(program.database.Count(u"SMSCharge"_q), 0);
}

TEST_F(WorkingDay, ATemplateIsStoredAndGoesIntoAMessage)
{
    program.database.Execute(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1,'인사')"_q);
    Start();
    program.Click(u"BtnToolbarDis(3)"_q);
    Type(*program.form, u"txtEditSubject"_q, u"아침"_q);
    Type(*program.form, u"txtEditBox"_q, u"좋은 아침입니다"_q);
    Told({u"문자서식 등록"_q, u"신규 문자서식 등록확인 : 입력한 문자서식을 등록하시겠습니까?"_q,
          MsgBoxQuestion},
         AnswerYes);
    Told({u"문자서식 등록"_q, u"등록성공알림 : 신규 문자서식 등록이 정상적으로 완료 되었습니다."_q,
          MsgBoxInformation});
    program.Click(u"BtnFuncDoc(1)"_q);
    EXPECT_EQ(program.database.Rows(u"SELECT TempLSubNm, TempLContent FROM SMSTempLSub"_q),
              (QList<QStringList>{{u"아침"_q, u"좋은 아침입니다"_q}}));
    program.Click(u"BtnToolbarDis(0)"_q);
    program.Click(u"LblTmpContent(1)"_q);
    EXPECT_EQ(program.The<MemoBox>(u"TxtPerSendMsg"_q).Text(), u"좋은 아침입니다"_q);
}

} // namespace

} // namespace tsms::test

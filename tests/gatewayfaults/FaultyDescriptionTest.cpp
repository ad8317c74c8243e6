#include "support/program/HistoryProgram.h"

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int LateMs = 150;

/// A description of the service that cannot be had, and the first of the two texts that tell why.
struct DescriptionFault
{
    std::string name;
    std::function<void(TestGateway&)> happen;
    QString words;
    QString detail; ///< empty when it is the system's own
};

std::function<void(TestGateway&)> Fails(FaultKind kind)
{
    return [kind](TestGateway& gateway) { gateway.Fail(kind); };
}

const DescriptionFault DescriptionFaults[] = {
    {"RefusedConnection",
     [](TestGateway& gateway) { gateway.Leave(); },
     u"문자메시지 서버에 연결하지 못하였습니다."_q,
     {}},
    {"CutBeforeTheAnswer", Fails(FaultKind::WsdlDrop), u"문자메시지 서버와의 통신이 끊어졌습니다."_q, {}},
    {"CutInTheAnswer", Fails(FaultKind::WsdlCut), u"문자메시지 서버와의 통신이 끊어졌습니다."_q, {}},
    {"Http500", Fails(FaultKind::WsdlHttp500), u"문자메시지 서버가 요청을 처리하지 못하였습니다."_q,
     u"HTTP 500"_q},
    {"NotFound", Fails(FaultKind::WsdlMissing), u"문자메시지 서버가 요청을 처리하지 못하였습니다."_q,
     u"HTTP 404"_q},
    {"Garbage", Fails(FaultKind::WsdlGarbage), u"문자메시지 서비스의 설명을 읽지 못하였습니다."_q, {}},
};

class FaultyDescription : public HistoryProgram, public ::testing::WithParamInterface<DescriptionFault>
{
protected:
    void ListReserved()
    {
        Reserve(u"가"_q);
        Reserve(u"나"_q);
        EnterAndListAll();
        callsBefore_ = program.gateway.CallCount();
    }
    void Send()
    {
        program.Write(u"안녕"_q);
        program.List({{u"가"_q, u"01000000001"_q}, {u"나"_q, u"01000000002"_q}});
        program.Send();
    }
    void WithdrawMany()
    {
        for (int row = 1; row <= List().Cells().MaxRows(); ++row)
            ClickMark(row);
        WhenShown(u"MakeSMSTransport"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
        program.Click(u"BtnSendListFun(1)"_q);
    }
    void WithdrawOne()
    {
        WhenShown(u"dlgSMSShowDetail"_q, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
        program.Click(u"BtnSendListFun(0)"_q);
    }
    /// The two boxes of the connection that came from `at` on.
    void ExpectTwoConnectionBoxes(int at)
    {
        ASSERT_GE(program.desktop.boxes.size(), at + 2);
        const QList<Box> boxes = program.desktop.boxes.mid(at, 2);
        for (const Box& box : boxes) {
            EXPECT_EQ(box.title, u"문자메시지 통신환경 연결실패!!!"_q);
            EXPECT_EQ(box.style, MsgBoxPlain);
            EXPECT_EQ(box.text.section(u"\r\n"_q, 0, 0), GetParam().words);
            const QString detail = box.text.section(u"\r\n"_q, 1);
            const QString& known = GetParam().detail;
            EXPECT_TRUE(known.isEmpty() ? !detail.isEmpty() : detail == known) << detail.toStdString();
        }
    }
    void ExpectNothingDone(int logRows)
    {
        EXPECT_EQ(program.gateway.CallCount(), callsBefore_);
        EXPECT_EQ(program.LogRows(), logRows);
        EXPECT_EQ(program.Balance(), 100);
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
    }
    void BehaveAgain()
    {
        program.gateway.BehaveAgain();
        program.desktop.boxes.clear();
    }

private:
    int callsBefore_ = 0;
};

TEST_P(FaultyDescription, FailsEveryRowOfASendAndTheNextOneWorks)
{
    program.desktop.AllowBoxes();
    GetParam().happen(program.gateway);
    Send();
    ExpectTwoConnectionBoxes(0);
    EXPECT_EQ(program.desktop.boxes.mid(2),
              QList<Box>({SendFailureBox(), SendFailureBox(), NothingSentBox()}));
    ExpectNothingDone(0);

    BehaveAgain();
    program.Send();
    EXPECT_EQ(program.desktop.boxes, QList<Box>{SentBox()});
    EXPECT_EQ(program.gateway.Messages().size(), 2);
    EXPECT_EQ(program.LogRows(), 2);
    EXPECT_EQ(program.Balance(), 98);
}

TEST_P(FaultyDescription, FailsEveryRowOfAWithdrawalAndTheNextOneWorks)
{
    ListReserved();
    program.desktop.Expect(CancelQuestion(2), AnswerYes);
    program.desktop.AllowBoxes();
    GetParam().happen(program.gateway);
    WithdrawMany();
    ExpectTwoConnectionBoxes(1);
    EXPECT_EQ(program.desktop.boxes.mid(3), QList<Box>{NothingCancelledBox()});
    ExpectNothingDone(2);

    BehaveAgain();
    program.desktop.Expect(CancelQuestion(2), AnswerYes);
    WithdrawMany();
    EXPECT_EQ(program.desktop.boxes.mid(1), QList<Box>{CancelledBox()});
    EXPECT_EQ(Withdrawals().size(), 2);
    EXPECT_EQ(program.LogRows(), 0);
    EXPECT_EQ(program.Balance(), 102);
}

TEST_P(FaultyDescription, FailsTheWithdrawalOfOneAndTheNextOneWorks)
{
    ListReserved();
    program.desktop.AllowBoxes();
    GetParam().happen(program.gateway);
    WithdrawOne();
    ExpectTwoConnectionBoxes(0);
    EXPECT_EQ(program.desktop.boxes.mid(2), QList<Box>{NothingCancelledBox()});
    ExpectNothingDone(2);

    BehaveAgain();
    WithdrawOne();
    EXPECT_EQ(program.desktop.boxes.size(), 1);
    EXPECT_EQ(Withdrawals().size(), 1);
    EXPECT_EQ(program.LogRows(), 1);
    EXPECT_EQ(program.Balance(), 101);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FaultyDescription, ::testing::ValuesIn(DescriptionFaults),
                         [](const auto& fault) { return fault.param.name; });

using LateDescription = HistoryProgram;

TEST_F(LateDescription, IsWaitedFor)
{
    program.gateway.DescribeLate(LateMs);
    program.Write(u"안녕"_q);
    program.List({{u"가"_q, u"01000000001"_q}});
    program.desktop.Expect(SentBox());
    program.Send();
    EXPECT_EQ(program.gateway.Messages().size(), 1);
    EXPECT_EQ(program.LogRows(), 1);
    EXPECT_EQ(program.Balance(), 99);
}

using ServiceWithoutOperations = HistoryProgram;

TEST_F(ServiceWithoutOperations, FailsTheFirstCallAndTheRowsBehind)
{
    program.gateway.Fail(FaultKind::WsdlNoOperation);
    program.Write(u"안녕"_q);
    program.List({{u"가"_q, u"01000000001"_q}, {u"나"_q, u"01000000002"_q}});
    program.desktop.Expect(SendFailureBox());
    program.desktop.Expect(SendFailureBox());
    program.desktop.Expect(NothingSentBox());
    program.Send();
    EXPECT_EQ(program.gateway.CallCount(), 0);
    EXPECT_EQ(program.LogRows(), 0);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_FALSE(program.session.IsBusy());
}

} // namespace

#include "gateway/ModSMS.h"

#include "gateway/ReplyGateway.h"
#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/database/SqlServerWords.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/gateway/TestGateway.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <optional>

namespace tsms::test {

namespace {

Box SubmitFailure(const QString& code, const QString& words)
{
    return {u"문자메시지 발송실패!!!"_q,
            u"문자발송 실패!!! :  실패코드 = "_q + code + u" 실패사유 = "_q + words, MsgBoxCritical};
}

/// The operations over a real database and a gateway of the test's choice, on 30 May 2012 at 14:07:09.
class Sending : public ::testing::Test
{
protected:
    Sending()
    {
        database.SetAccount();
        database.Describe(session);
        session.SMSID = u"demo"_q;
        session.SMSPWD = u"demo"_q;
        session.SMSDNS = u"sms.example.kr"_q;
        session.UserData1 = 42;
        session.UserData2 = u"지점"_q;
    }

    /// Connects and creates the client, as a run does.
    void Begin(const QString& wsdlUrl)
    {
        sms.emplace(session, db, desktop, clock, wsdlUrl);
        db.ConnectWithRetry();
        sms->InitWithRetry();
    }

    bool Submit(const QString& content = u"안녕하세요"_q, const QString& sendTime = {},
                const QString& name = u"홍길동"_q)
    {
        return sms->SubmitSMS(name, u"010-0000-0001"_q, u"02-1234-5678"_q, content, sendTime, {}, {}, {});
    }

    bool Withdraw(const QString& key, const QString& number, const QString& year = u"2012"_q)
    {
        return sms->WithdrawSMS(key, number, year, {}, {}, {});
    }

    QStringList LastRow(const QString& table = u"SMSLog_2012"_q)
    {
        const QList<QStringList> rows =
            database.Rows(u"SELECT SMSStatus,SMSNo,SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,SendTime,"
                          u"UserData1,UserData2,UserData3,ErrCd,ErrMsg FROM "_q +
                          table + u" ORDER BY SMSKey DESC"_q);
        return rows.isEmpty() ? QStringList() : rows.first();
    }

    /// The gateway answers the next calls with these reply texts.
    void BeginWithReply(const QString& reply)
    {
        replying.emplace([reply](int) { return ReplyGateway::Replying(reply); });
        Begin(replying->WsdlUrl());
    }

    FixedClock clock;
    ScriptedDesktop desktop;
    TestDatabase database{clock};
    FailingConnections connections{database.Connections()};
    Session session;
    DBConnect db{session, desktop, connections.Maker()};
    TestGateway gateway{clock};
    std::optional<ReplyGateway> replying;
    std::optional<ModSMS> sms;
};

using SendingInSqlServerWords = InSqlServerWords<Sending>;

} // namespace

TEST(GatewayDescriptionUrl, LiesBelowTheAddress)
{
    EXPECT_EQ(GatewayDescriptionUrl(u"http://127.0.0.1:8790"_q),
              u"http://127.0.0.1:8790/SMSWS/webservice/xSMSWebService.wsdl"_q);
    EXPECT_EQ(GatewayDescriptionUrl(u"https://sms.example.kr/"_q),
              u"https://sms.example.kr/SMSWS/webservice/xSMSWebService.wsdl"_q);
}

// InitSOAP and ReleaseSOAP

TEST_F(Sending, InitSOAPReadsTheDescriptionAndAnswersTrue)
{
    ModSMS plain(session, db, desktop, clock, gateway.WsdlUrl());
    EXPECT_TRUE(plain.InitSOAP());
    EXPECT_EQ(gateway.RequestCount(), 1);
}

TEST_F(Sending, AFailedInitSOAPShowsTheTwoFaultTextsInAPlainBox)
{
    gateway.Fail(FaultKind::WsdlMissing);
    ModSMS plain(session, db, desktop, clock, gateway.WsdlUrl());
    desktop.Expect({u"문자메시지 통신환경 연결실패!!!"_q,
                    u"문자메시지 서버가 요청을 처리하지 못하였습니다.\r\nHTTP 404"_q, MsgBoxPlain});
    EXPECT_FALSE(plain.InitSOAP());
}

TEST_F(Sending, InitIsTriedTwiceWithABoxEach)
{
    gateway.Fail(FaultKind::WsdlMissing);
    ModSMS plain(session, db, desktop, clock, gateway.WsdlUrl());
    desktop.AllowBoxes();
    plain.InitWithRetry();
    EXPECT_EQ(desktop.boxes.size(), 2);
    EXPECT_EQ(gateway.RequestCount(), 2);
}

TEST_F(Sending, ASecondInitThatSucceedsServesTheRun)
{
    gateway.Fail(FaultKind::WsdlMissing);
    sms.emplace(session, db, desktop, clock, gateway.WsdlUrl());
    db.ConnectWithRetry();
    desktop.Expect({u"문자메시지 통신환경 연결실패!!!"_q,
                    u"문자메시지 서버가 요청을 처리하지 못하였습니다.\r\nHTTP 404"_q, MsgBoxPlain},
                   AnswerOK, [this] { gateway.BehaveAgain(); });
    sms->InitWithRetry();
    EXPECT_TRUE(Submit());
}

TEST_F(Sending, ASuccessfulInitIsNotRepeated)
{
    ModSMS plain(session, db, desktop, clock, gateway.WsdlUrl());
    plain.InitWithRetry();
    EXPECT_EQ(gateway.RequestCount(), 1);
}

TEST_F(Sending, ReleaseSOAPClearsTheCurrentErrorAlsoWithoutAClient)
{
    ModSMS plain(session, db, desktop, clock, gateway.WsdlUrl());
    Err().Number = ObjectNotSet;
    plain.ReleaseSOAP();
    EXPECT_EQ(Err().Number, NoError);
}

TEST_F(Sending, ReleaseSOAPLetsTheConnectionGo)
{
    Begin(gateway.WsdlUrl());
    EXPECT_TRUE(Submit());
    sms->ReleaseSOAP();
    desktop.Expect(SubmitFailure({}, {}));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(gateway.CallCount(), 1);
}

// SubmitSMS

TEST_F(Sending, ElevenArgumentsGoOutInOrder)
{
    Begin(gateway.WsdlUrl());
    EXPECT_TRUE(sms->SubmitSMS(u"이름"_q, u"01000000001"_q, u" 02-1 "_q, u" 본문 "_q, u"2012:05:31:09:05"_q,
                               u"갑"_q, u"을"_q, u"병"_q));
    EXPECT_EQ(gateway.Calls().first().Arguments,
              (QStringList{u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u" 02-1 "_q, u"01000000001"_q,
                           u" 본문 "_q, QString(), u"2012:05:31:09:05"_q, u"갑"_q, u"을"_q, u"병"_q}));
}

TEST_F(Sending, AnImmediateSendIsLoggedWithThePresentMinute)
{
    Begin(gateway.WsdlUrl());
    EXPECT_TRUE(Submit());
    EXPECT_EQ(gateway.Calls().first().Arguments[7], QString());
    EXPECT_EQ(LastRow(), (QStringList{u"1"_q, u"100001"_q, u"demo"_q, u"홍길동"_q, u"010-0000-0001"_q,
                                      u"02-1234-5678"_q, u"안녕하세요"_q, u"2012-05-30 14-07"_q, u"42"_q,
                                      u"지점"_q, u"(null)"_q, u"(null)"_q, u"(null)"_q}));
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 1);
}

TEST_F(Sending, AReservationIsLoggedWithFiveJoinedParts)
{
    Begin(gateway.WsdlUrl());
    EXPECT_TRUE(Submit(u"예약"_q, u"2012:06:01:09:05"_q));
    EXPECT_EQ(LastRow()[7], u"2012-06-01-09-05"_q);
}

TEST_F(Sending, AReservationOfTheNextYearGoesToThatYearsTable)
{
    Begin(gateway.WsdlUrl());
    EXPECT_TRUE(Submit(u"새해"_q, u"2013:01:01:00:05"_q));
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
    EXPECT_EQ(LastRow(u"SMSLog_2013"_q)[7], u"2013-01-01-00-05"_q);
}

TEST_F(Sending, ATextWithBlanksAroundIsSentAsItStandsAndLoggedTrimmed)
{
    Begin(gateway.WsdlUrl());
    EXPECT_TRUE(Submit(u"  앞뒤  "_q));
    EXPECT_EQ(gateway.Messages().first().Content, u"  앞뒤  "_q);
    EXPECT_EQ(LastRow()[6], u"앞뒤"_q);
}

TEST_F(Sending, NineItemsWithEmptyCodesAreASuccess)
{
    BeginWithReply(u"return_value:true;a;b;unique_num:77;c;d;e;error_code:;error_msg:"_q);
    EXPECT_TRUE(Submit());
    EXPECT_EQ(LastRow()[0], u"1"_q);
    EXPECT_EQ(LastRow()[1], u"77"_q);
}

TEST_F(Sending, AFalseReturnValueWithoutAFailureIsLoggedAsFailedAndIsASuccess)
{
    BeginWithReply(u"return_value:false;;;unique_num:77;;;;error_code:;error_msg:"_q);
    EXPECT_TRUE(Submit());
    EXPECT_EQ(LastRow()[0], u"2"_q);
}

TEST_F(Sending, ATrueReturnValueWithAFailureTextIsLoggedAsSentAndIsAFailure)
{
    BeginWithReply(u"return_value:true;;;unique_num:77;;;;error_code:;error_msg:잔액 부족"_q);
    desktop.Expect(SubmitFailure({}, u"잔액 부족"_q));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(LastRow()[0], u"1"_q);
    EXPECT_EQ(LastRow()[12], u"잔액 부족"_q);
}

TEST_F(Sending, AReplyWithoutUniqueNumLogsNull)
{
    BeginWithReply(u"return_value:true;;;number:77;;;;error_code:;error_msg:"_q);
    EXPECT_TRUE(Submit());
    EXPECT_EQ(LastRow()[1], u"(null)"_q);
}

TEST_F(Sending, ARefusalShowsItsTextsAndLeavesARow)
{
    gateway.Fail(FaultKind::Refuse);
    Begin(gateway.WsdlUrl());
    desktop.Expect(SubmitFailure(u"E99"_q, u"수신이 거부된 번호입니다."_q));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(LastRow()[0], u"2"_q);
    EXPECT_EQ(LastRow()[11], u"E99"_q);
    EXPECT_EQ(LastRow()[12], u"수신이 거부된 번호입니다."_q);
}

TEST_F(Sending, AWrongAccountIsRefusedInTheGatewaysWords)
{
    session.SMSPWD = u"wrong"_q;
    Begin(gateway.WsdlUrl());
    desktop.Expect(SubmitFailure(u"E01"_q, u"아이디 또는 비밀번호가 올바르지 않습니다."_q));
    EXPECT_FALSE(Submit());
}

TEST_F(Sending, AFailureReleasesTheClientAndClosesTheDatabaseWithoutAWord)
{
    gateway.Fail(FaultKind::Refuse);
    Begin(gateway.WsdlUrl());
    session.Busy = true;
    desktop.Expect(SubmitFailure(u"E99"_q, u"수신이 거부된 번호입니다."_q));
    Submit();
    EXPECT_FALSE(session.Busy);
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_EQ(connections.Opens(), 1); // no quiet reconnection
}

TEST_F(Sending, EveryRowAfterAFailureFailsWithEmptyValuesAndNoRow)
{
    gateway.Fail(FaultKind::Refuse, 2);
    Begin(gateway.WsdlUrl());
    EXPECT_TRUE(Submit());
    desktop.Expect(SubmitFailure(u"E99"_q, u"수신이 거부된 번호입니다."_q));
    EXPECT_FALSE(Submit());
    for (int i = 0; i < 3; ++i) {
        desktop.Expect(SubmitFailure({}, {}));
        EXPECT_FALSE(Submit());
    }
    EXPECT_EQ(gateway.CallCount(), 2);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 2);
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_EQ(connections.Opens(), 1);
}

class SubmitOverABadWire : public Sending, public ::testing::WithParamInterface<FaultKind>
{
};

TEST_P(SubmitOverABadWire, ShowsEmptyValuesAndLeavesNoRow)
{
    gateway.Fail(GetParam());
    Begin(gateway.WsdlUrl());
    desktop.Expect(SubmitFailure({}, {}));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(gateway.CallCount(), 1);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_EQ(connections.Opens(), 1);
}

INSTANTIATE_TEST_SUITE_P(Faults, SubmitOverABadWire,
                         ::testing::Values(FaultKind::Drop, FaultKind::Cut, FaultKind::SoapFault,
                                           FaultKind::Http500, FaultKind::Garbage, FaultKind::Short,
                                           FaultKind::BadTruth));

TEST_F(Sending, WithoutAClientNothingIsSentOrLogged)
{
    sms.emplace(session, db, desktop, clock, gateway.WsdlUrl());
    db.ConnectWithRetry();
    desktop.Expect(SubmitFailure({}, {}));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(gateway.RequestCount(), 0);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
}

TEST_F(Sending, AfterAFailedInitEverySendFails)
{
    gateway.Fail(FaultKind::WsdlNoOperation);
    Begin(gateway.WsdlUrl());
    desktop.Expect(SubmitFailure({}, {}));
    EXPECT_FALSE(Submit());
}

TEST_F(Sending, AShortReplyShowsWhatWasReadAndLeavesNoRow)
{
    BeginWithReply(u"return_value:false;;;unique_num:;;;;error_code:E7"_q);
    desktop.Expect(SubmitFailure(u"E7"_q, {}));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
}

TEST_F(Sending, ABadTruthValueShowsNothingOfWhatFollowsIt)
{
    BeginWithReply(u"return_value:maybe;;;unique_num:;;;;error_code:E7;error_msg:실패"_q);
    desktop.Expect(SubmitFailure({}, {}));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
}

TEST_F(Sending, ALostLogRowIsReportedByTheDatabaseAloneAndTheMessageCounts)
{
    Begin(gateway.WsdlUrl());
    desktop.AllowBoxes();
    EXPECT_TRUE(Submit(u"it's"_q));
    ASSERT_EQ(desktop.boxes.size(), 1);
    EXPECT_EQ(desktop.boxes.first().title, u" - 오류!!!"_q);
    EXPECT_EQ(desktop.boxes.first().style, MsgBoxCritical);
    EXPECT_TRUE(desktop.boxes.first().text.startsWith(u"☞ : ")) << desktop.boxes.first();
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
    EXPECT_EQ(gateway.Messages().size(), 1);
}

TEST_F(Sending, AfterALostLogRowTheNextIsLostQuietlyAndTheOneAfterIsWritten)
{
    Begin(gateway.WsdlUrl());
    desktop.AllowBoxes();
    EXPECT_TRUE(Submit(u"it's"_q));
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_TRUE(Submit(u"둘째"_q));
    EXPECT_EQ(connections.OpenNow(), 1);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
    EXPECT_TRUE(Submit(u"셋째"_q));
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 1);
    EXPECT_EQ(LastRow()[6], u"셋째"_q);
    EXPECT_EQ(desktop.boxes.size(), 1);
}

TEST_F(SendingInSqlServerWords, AMissingTableLosesTheRowAndTheMessageCounts)
{
    database.Execute(u"DROP TABLE SMSLog_2013"_q);
    Begin(gateway.WsdlUrl());
    desktop.Expect({u" - 오류!!!"_q, u"☞ : Invalid object name 'SMSLog_2013'."_q, MsgBoxCritical});
    EXPECT_TRUE(Submit(u"새해"_q, u"2013:01:01:00:05"_q));
}

TEST_F(Sending, ARefusalWhoseRowIsLostShowsBothBoxes)
{
    gateway.Fail(FaultKind::Refuse);
    Begin(gateway.WsdlUrl());
    connections.FailStatement(1, -2147217900, u"no"_q);
    desktop.Expect({u" - 오류!!!"_q, u"☞ : no"_q, MsgBoxCritical});
    desktop.Expect(SubmitFailure(u"E99"_q, u"수신이 거부된 번호입니다."_q));
    EXPECT_FALSE(Submit());
    EXPECT_EQ(connections.OpenNow(), 0);
}

TEST_F(Sending, ValuesOfTheReplyCannotChangeTheStatement)
{
    BeginWithReply(u"return_value:true;;;unique_num:1','x','y' /*;;;;error_code:;error_msg:"_q);
    desktop.AllowBoxes();
    EXPECT_TRUE(Submit());
    EXPECT_EQ(desktop.boxes.size(), 1);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
    EXPECT_EQ(connections.Statements().size(), 0);
}

TEST_F(Sending, ARunUsesOneGatewayConnectionAndOneDatabaseConnection)
{
    Begin(gateway.WsdlUrl());
    for (int i = 0; i < 50; ++i)
        ASSERT_TRUE(Submit());
    EXPECT_EQ(gateway.ConnectionCount(), 1);
    EXPECT_EQ(connections.Opens(), 1);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 50);
}

// WithdrawSMS

TEST_F(Sending, SevenArgumentsGoOutInOrder)
{
    Begin(gateway.WsdlUrl());
    sms->WithdrawSMS(u"1"_q, u"100001"_q, u"2012"_q, u"갑"_q, u"을"_q, u"병"_q);
    EXPECT_EQ(gateway.Calls().first().Operation, u"DeleteSMS"_q);
    EXPECT_EQ(gateway.Calls().first().Arguments, (QStringList{u"demo"_q, u"demo"_q, u"sms.example.kr"_q,
                                                              u"100001"_q, u"갑"_q, u"을"_q, u"병"_q}));
}

TEST_F(Sending, AWithdrawalRemovesTheRow)
{
    Begin(gateway.WsdlUrl());
    Submit(u"하나"_q, u"2012:06:01:09:05"_q);
    Submit(u"둘"_q, u"2012:06:01:09:05"_q);
    EXPECT_TRUE(Withdraw(u"1"_q, u"100001"_q));
    EXPECT_TRUE(gateway.Messages().first().Withdrawn);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 1);
    EXPECT_EQ(LastRow()[6], u"둘"_q);
}

TEST_F(Sending, AWithdrawalTakesTheTableOfTheYearGiven)
{
    Begin(gateway.WsdlUrl());
    Submit(u"올해"_q, u"2012:12:31:09:05"_q);
    Submit(u"내년"_q, u"2013:01:01:09:05"_q);
    EXPECT_TRUE(Withdraw(u"1"_q, u"100002"_q, u" 2013-01-01 09:05"_q));
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 1);
    EXPECT_EQ(database.Count(u"SMSLog_2013"_q), 0);
}

TEST_F(Sending, ARefusedWithdrawalSaysNothingAndKeepsRowClientAndDatabase)
{
    Begin(gateway.WsdlUrl());
    Submit(u"바로"_q);
    EXPECT_FALSE(Withdraw(u"1"_q, u"100001"_q));
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 1);
    EXPECT_EQ(connections.OpenNow(), 1);
    EXPECT_TRUE(Submit(u"아직 산다"_q));
    EXPECT_EQ(gateway.RequestCount(), 4);
}

class WithdrawalOverABadWire : public Sending, public ::testing::WithParamInterface<FaultKind>
{
};

TEST_P(WithdrawalOverABadWire, SaysNothingKeepsTheRowAndReleasesAll)
{
    Begin(gateway.WsdlUrl());
    Submit(u"예약"_q, u"2012:06:01:09:05"_q);
    gateway.Fail(GetParam());
    session.Busy = true;
    EXPECT_FALSE(Withdraw(u"1"_q, u"100001"_q));
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 1);
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_EQ(connections.Opens(), 1);
    EXPECT_FALSE(session.Busy);
    EXPECT_FALSE(Withdraw(u"1"_q, u"100001"_q));
    EXPECT_EQ(gateway.CallCount(), 2);
}

INSTANTIATE_TEST_SUITE_P(Faults, WithdrawalOverABadWire,
                         ::testing::Values(FaultKind::Drop, FaultKind::Cut, FaultKind::SoapFault,
                                           FaultKind::Http500, FaultKind::Garbage, FaultKind::Short,
                                           FaultKind::BadTruth));

TEST_F(Sending, AFalseReturnValueIsNoRefusalOfAWithdrawal)
{
    BeginWithReply(u"return_value:false;;;;;;;error_code:;error_msg:"_q);
    database.Execute(u"INSERT INTO SMSLog_2012 (SMSStatus,SendTime) VALUES ('1','2012-06-01-09-05')"_q);
    EXPECT_TRUE(Withdraw(u"1"_q, u"5"_q));
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 0);
}

TEST_F(SendingInSqlServerWords, ARowThatCannotBeRemovedCountsAsWithdrawn)
{
    Begin(gateway.WsdlUrl());
    Submit(u"예약"_q, u"2012:06:01:09:05"_q);
    desktop.Expect({u" - 오류!!!"_q, u"☞ : Invalid object name 'SMSLog_1999'."_q, MsgBoxCritical});
    EXPECT_TRUE(Withdraw(u"1"_q, u"100001"_q, u"1999"_q));
    EXPECT_EQ(connections.OpenNow(), 0);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 1);
}

TEST_F(Sending, AKeyThatIsNoNumberRemovesNothing)
{
    Begin(gateway.WsdlUrl());
    Submit(u"예약"_q, u"2012:06:01:09:05"_q);
    Submit(u"다른 예약"_q, u"2012:06:01:09:05"_q);
    desktop.AllowBoxes();
    EXPECT_TRUE(Withdraw(u"1 OR 1=1"_q, u"100001"_q));
    EXPECT_EQ(desktop.boxes.size(), 1);
    EXPECT_EQ(database.Count(u"SMSLog_2012"_q), 2);
}

} // namespace tsms::test

#include "gateway/SoapClient30.h"

#include "gateway/ReplyGateway.h"
#include "gateway/SoapFault.h"
#include "support/gateway/TestGateway.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

const QStringList Message = {
    u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"02-1234-5678"_q, u"010-0000-0001"_q, u"안녕하세요"_q,
    QString(), QString(), QString(),           QString(),         QString()};

QString WithContent(SoapClient30& client, const QString& content)
{
    QStringList message = Message;
    message[5] = content;
    return client.Call(u"SendSMS"_q, message);
}

/// The number that a call raises, or NoError.
long ErrorOfCall(SoapClient30& client, const QString& operation, const QStringList& arguments)
{
    try {
        client.Call(operation, arguments);
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

long ErrorOfInit(SoapClient30& client, const QString& url)
{
    try {
        client.mssoapinit(url, {}, {}, {});
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

} // namespace

class ClientOfEveryStyle : public ::testing::TestWithParam<ServiceStyle>
{
};

INSTANTIATE_TEST_SUITE_P(Styles, ClientOfEveryStyle,
                         ::testing::Values(ServiceStyle::RpcEncoded, ServiceStyle::RpcLiteral,
                                           ServiceStyle::DocumentLiteral));

TEST_P(ClientOfEveryStyle, SendsTheArgumentsAndBringsTheReply)
{
    TestGateway gateway(GetParam());
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    const QString reply = client.Call(u"SendSMS"_q, Message);
    EXPECT_TRUE(reply.startsWith(u"return_value:true;")) << reply.toStdString();
    ASSERT_EQ(gateway.CallCount(), 1);
    EXPECT_EQ(gateway.Calls().first().Operation, u"SendSMS"_q);
    EXPECT_EQ(gateway.Calls().first().Arguments, Message);
}

TEST_P(ClientOfEveryStyle, CarriesEveryCharacterOfAMessage)
{
    TestGateway gateway(GetParam());
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    const QString content = u"  <b>\"값\" & 'x'</b>\r\n둘째 줄\t끝 ]]> 😀 &amp; %1 뷁  "_q;
    WithContent(client, content);
    EXPECT_EQ(gateway.Messages().first().Content, content);
}

TEST(SoapClient, AControlCharacterDoesNotBreakTheCall)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    WithContent(client, u"a\u0001b\u000Bc\u0000d"_q);
    EXPECT_EQ(gateway.Messages().first().Content, u"a b c d"_q);
}

TEST(SoapClient, TheDescriptionAndARunUseOneConnection)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int i = 0; i < 2000; ++i)
        client.Call(u"SendSMS"_q, Message);
    EXPECT_EQ(gateway.CallCount(), 2000);
    EXPECT_EQ(gateway.ConnectionCount(), 1);
    EXPECT_EQ(gateway.RequestCount(), 2001);
}

TEST(SoapClient, AnOperationThatTheServiceDoesNotHaveRaises438)
{
    TestGateway gateway;
    gateway.Fail(FaultKind::WsdlNoOperation);
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), UnknownOperation);
    EXPECT_EQ(gateway.CallCount(), 0);
}

TEST(SoapClient, AWrongNumberOfArgumentsRaises450AndIsNotSent)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message.first(10)), WrongArgumentCount);
    EXPECT_EQ(ErrorOfCall(client, u"DeleteSMS"_q, Message), WrongArgumentCount);
    EXPECT_EQ(gateway.RequestCount(), 1);
}

TEST(SoapClient, ACallBeforeTheDescriptionWasReadIsAFault)
{
    SoapClient30 client;
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), AutomationError);
    EXPECT_NE(client.FaultString(), QString());
}

TEST(SoapClient, ACallAfterAFailedReadingIsAFault)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    gateway.Fail(FaultKind::WsdlMissing);
    EXPECT_EQ(ErrorOfInit(client, gateway.WsdlUrl()), AutomationError);
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), AutomationError);
    EXPECT_EQ(gateway.CallCount(), 0);
}

TEST(SoapClient, AMissingDescriptionLeavesItsTexts)
{
    TestGateway gateway;
    gateway.Fail(FaultKind::WsdlMissing);
    SoapClient30 client;
    EXPECT_EQ(ErrorOfInit(client, gateway.WsdlUrl()), AutomationError);
    EXPECT_EQ(client.FaultString(), u"문자메시지 서버가 요청을 처리하지 못하였습니다."_q);
    EXPECT_EQ(client.Detail(), u"HTTP 404"_q);
}

TEST(SoapClient, ADescriptionThatIsNoXmlLeavesItsTexts)
{
    TestGateway gateway;
    gateway.Fail(FaultKind::WsdlGarbage);
    SoapClient30 client;
    EXPECT_EQ(ErrorOfInit(client, gateway.WsdlUrl()), AutomationError);
    EXPECT_EQ(client.FaultString(), u"문자메시지 서비스의 설명을 읽지 못하였습니다."_q);
    EXPECT_EQ(client.Detail(), u"XML 형식이 아닙니다."_q);
}

TEST(SoapClient, ARefusedConnectionIsAFault)
{
    QString url;
    {
        TestGateway gone;
        url = gone.WsdlUrl();
    }
    SoapClient30 client;
    EXPECT_EQ(ErrorOfInit(client, url), AutomationError);
    EXPECT_EQ(client.FaultString(), u"문자메시지 서버에 연결하지 못하였습니다."_q);
    EXPECT_NE(client.Detail(), QString());
}

TEST(SoapClient, AnAddressOfAnotherKindIsAFault)
{
    SoapClient30 client;
    EXPECT_EQ(ErrorOfInit(client, u"file:///etc/passwd"_q), AutomationError);
    EXPECT_EQ(ErrorOfInit(client, QString()), AutomationError);
}

TEST(SoapClient, AWsmlIsRefused)
{
    TestGateway gateway;
    SoapClient30 client;
    EXPECT_THROW(client.mssoapinit(gateway.WsdlUrl(), {}, {}, u"x"_q), SoapFault);
}

TEST(SoapClient, ASoapFaultLeavesCodeStringAndDetail)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    gateway.Fail(FaultKind::SoapFault);
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), AutomationError);
    EXPECT_EQ(client.FaultCode(), u"Server"_q);
    EXPECT_EQ(client.FaultString(), u"서비스를 잠시 쓸 수 없습니다."_q);
    EXPECT_EQ(client.Detail(), u"점검 중입니다."_q);
}

TEST(SoapClient, ASuccessForgetsTheTextsOfTheLastFault)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    gateway.Fail(FaultKind::SoapFault, 1);
    ErrorOfCall(client, u"SendSMS"_q, Message);
    client.Call(u"SendSMS"_q, Message);
    EXPECT_EQ(client.FaultCode() + client.FaultString() + client.Detail(), QString());
}

TEST(SoapClient, AnErrorPageIsAFaultWithItsStatus)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    gateway.Fail(FaultKind::Http500);
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), AutomationError);
    EXPECT_EQ(client.Detail(), u"HTTP 500"_q);
}

TEST(SoapClient, AGoodAnswerUnderAnErrorStatusIsAFault)
{
    ReplyGateway gateway([](int) {
        HttpAnswer answer = ReplyGateway::Replying(u"return_value:true"_q);
        answer.Bytes.replace("200 OK", "500 No");
        return answer;
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), AutomationError);
    EXPECT_EQ(client.Detail(), u"HTTP 500"_q);
}

TEST(SoapClient, AFaultUnderStatus200IsAFault)
{
    ReplyGateway gateway(
        [](int) { return WholeAnswer(200, "text/xml", ServiceFault(u"Server"_q, u"안 됨"_q, {})); });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), AutomationError);
    EXPECT_EQ(client.FaultString(), u"안 됨"_q);
}

TEST(SoapClient, GarbageIsAFault)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    gateway.Fail(FaultKind::Garbage);
    EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, Message), AutomationError);
    EXPECT_EQ(client.FaultString(), u"문자메시지 서버의 응답을 읽지 못하였습니다."_q);
}

TEST(SoapClient, ALateAnswerIsWaitedFor)
{
    TestGateway gateway;
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    gateway.AnswerLate(1500);
    EXPECT_TRUE(client.Call(u"SendSMS"_q, Message).startsWith(u"return_value:true"));
    EXPECT_EQ(gateway.CallCount(), 1);
}

TEST(SoapClient, NoTextOfAFaultTellsAnythingOfTheMessage)
{
    TestGateway gateway;
    for (const FaultKind kind :
         {FaultKind::Drop, FaultKind::Cut, FaultKind::SoapFault, FaultKind::Http500, FaultKind::Garbage}) {
        SoapClient30 client;
        client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
        gateway.Fail(kind);
        QStringList message = Message;
        message[1] = u"비밀번호X"_q;
        message[5] = u"본문X"_q;
        EXPECT_EQ(ErrorOfCall(client, u"SendSMS"_q, message), AutomationError);
        const QString told = client.FaultCode() + client.FaultString() + client.Detail();
        EXPECT_NE(told, QString());
        for (const QString& secret : {u"비밀번호X"_q, u"본문X"_q, u"0000"_q, u"1234"_q})
            EXPECT_FALSE(told.contains(secret)) << told.toStdString();
        gateway.BehaveAgain();
    }
}

} // namespace tsms::test

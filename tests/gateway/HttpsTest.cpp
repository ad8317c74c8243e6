#include "gateway/ReplyGateway.h"
#include "gateway/SoapClient30.h"
#include "gateway/SoapFault.h"
#include "gateway/TestAuthority.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QThread>

namespace tsms::test {

namespace {

const QString Here = u"IP:127.0.0.1"_q;
const QString NotTrusted = u"문자메시지 서버의 인증서를 믿을 수 없습니다."_q;

QString NumberedReply(int call)
{
    return u"return_value:true;;;unique_num:%1;;;;error_code:;error_msg:"_q.arg(call);
}

HttpAnswer NumberedAnswer(int call)
{
    return ReplyGateway::Replying(NumberedReply(call));
}

/// The result of a call, or the words of its fault.
QString SendTo(SoapClient30& client)
{
    QStringList message(11);
    message[5] = u"안녕"_q;
    try {
        return client.Call(u"SendSMS"_q, message);
    } catch (const SoapFault& fault) {
        return fault.Description;
    }
}

/// The words of the fault, and "" when the description was read.
QString FaultOfReading(const QString& wsdlUrl, const QString& authorities)
{
    SoapClient30 client(authorities);
    try {
        client.mssoapinit(wsdlUrl, {}, {}, {});
    } catch (const SoapFault& fault) {
        return fault.Description;
    }
    return {};
}

} // namespace

class Https : public ::testing::Test
{
protected:
    static const TestAuthority& Authority()
    {
        static const TestAuthority authority;
        return authority;
    }
    static const QSslConfiguration& Proper()
    {
        static const QSslConfiguration certificate = Authority().Certificate(Here);
        return certificate;
    }

    SoapClient30 client{Authority().File()};
};

class HttpsAnswerNobodyAskedFor : public Https, public ::testing::WithParamInterface<int>
{
};

TEST_F(Https, ManyCallsUseOneConnection)
{
    ReplyGateway gateway(NumberedAnswer, Proper());
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int call = 1; call <= 200; ++call)
        EXPECT_EQ(SendTo(client), NumberedReply(call));
    EXPECT_EQ(gateway.ConnectionCount(), 1); // the session tickets of TLS 1.3 are no answers
}

TEST_F(Https, ACertificateOfAnAuthorityThatOnlyTheEnvironmentNamesIsAFaultAndNothingIsSent)
{
    ReplyGateway gateway(NumberedAnswer, Proper());
    qputenv("SSL_CERT_FILE", Authority().File().toLocal8Bit());
    EXPECT_EQ(FaultOfReading(gateway.WsdlUrl(), {}), NotTrusted);
    qunsetenv("SSL_CERT_FILE");
    EXPECT_EQ(gateway.RequestCount(), 0);
}

TEST_F(Https, AForeignCertificateIsAFaultAndNothingIsSent)
{
    ReplyGateway gateway(NumberedAnswer, TestAuthority().Certificate(Here));
    EXPECT_EQ(FaultOfReading(gateway.WsdlUrl(), Authority().File()), NotTrusted);
    EXPECT_EQ(gateway.RequestCount(), 0);
}

TEST_F(Https, AnExpiredCertificateIsAFaultAndNothingIsSent)
{
    ReplyGateway gateway(NumberedAnswer, Authority().Certificate(Here, -1));
    EXPECT_EQ(FaultOfReading(gateway.WsdlUrl(), Authority().File()), NotTrusted);
    EXPECT_EQ(gateway.RequestCount(), 0);
}

TEST_F(Https, ACertificateOfAnotherNameIsAFaultAndNothingIsSent)
{
    ReplyGateway gateway(NumberedAnswer, Authority().Certificate(u"DNS:elsewhere.test"_q));
    EXPECT_EQ(FaultOfReading(gateway.WsdlUrl(), Authority().File()), NotTrusted);
    EXPECT_EQ(gateway.RequestCount(), 0);
}

TEST_F(Https, AGatewayThatHasNoCertificateIsAFaultAndNothingIsSent)
{
    ReplyGateway gateway(NumberedAnswer, QSslConfiguration());
    EXPECT_EQ(FaultOfReading(gateway.WsdlUrl(), Authority().File()),
              u"문자메시지 서버에 연결하지 못하였습니다."_q);
    EXPECT_EQ(gateway.RequestCount(), 0);
}

TEST_F(Https, ADescriptionThatNamesAPlainAddressIsAFaultAndNothingIsSentThere)
{
    ReplyGateway plain(NumberedAnswer);
    HttpListener listener(
        [&](const HttpRequest&) {
            return WholeAnswer(200, "text/xml",
                               DescriptionOf(ServiceStyle::RpcEncoded, plain.Url() + EndpointPath()));
        },
        Proper());
    ASSERT_TRUE(listener.Listen(0));
    EXPECT_THROW(client.mssoapinit(u"https://127.0.0.1:%1/w"_q.arg(listener.Port()), {}, {}, {}), SoapFault);
    EXPECT_EQ(client.Detail(), u"서비스의 주소가 https가 아닙니다."_q);
    SendTo(client);
    EXPECT_EQ(plain.RequestCount(), 0);
}

TEST_F(Https, AKeptConnectionThatWasClosedInBetweenIsMadeAnew)
{
    ReplyGateway gateway(
        [](int call) {
            HttpAnswer answer = NumberedAnswer(call);
            answer.After = HttpAnswer::Then::Close;
            return answer;
        },
        Proper());
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int call = 1; call <= 3; ++call) {
        EXPECT_EQ(SendTo(client), NumberedReply(call));
        QThread::msleep(300); // for the other side's close to arrive
    }
    EXPECT_EQ(gateway.CallCount(), 3);
    EXPECT_EQ(gateway.ConnectionCount(), 3);
}

TEST_F(Https, AKeptConnectionThatDiesUnderACallIsAFaultAndNothingIsSentAgain)
{
    for (const HttpAnswer::Then death : {HttpAnswer::Then::Close, HttpAnswer::Then::Reset}) {
        const auto answer = [&](int call) {
            if (call == 3)
                return HttpAnswer{{}, death};
            return NumberedAnswer(call);
        };
        ReplyGateway gateway(answer, Proper());
        client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
        EXPECT_EQ(SendTo(client), NumberedReply(1));
        EXPECT_EQ(SendTo(client), NumberedReply(2));
        EXPECT_EQ(gateway.ConnectionCount(), 1);
        EXPECT_EQ(SendTo(client), u"문자메시지 서버와의 통신이 끊어졌습니다."_q);
        EXPECT_EQ(gateway.CallCount(), 3);
        EXPECT_EQ(SendTo(client), NumberedReply(4));
        EXPECT_EQ(gateway.CallCount(), 4);
    }
}

TEST_P(HttpsAnswerNobodyAskedFor, IsNotTakenForThatOfTheNextCall)
{
    ReplyGateway gateway(
        [](int call) {
            HttpAnswer answer = NumberedAnswer(call);
            answer.AgainMilliseconds = GetParam();
            return answer;
        },
        Proper());
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int call = 1; call <= 200; ++call)
        EXPECT_EQ(SendTo(client), NumberedReply(call));
    EXPECT_EQ(gateway.CallCount(), 200);
}

INSTANTIATE_TEST_SUITE_P(Milliseconds, HttpsAnswerNobodyAskedFor, ::testing::Values(0, 1, 5, 20));

} // namespace tsms::test

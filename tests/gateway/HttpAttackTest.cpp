#include "gateway/HttpLink.h"
#include "gateway/ReplyGateway.h"
#include "gateway/SoapClient30.h"
#include "gateway/SoapFault.h"
#include "support/gateway/TestGateway.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>

#include <atomic>

namespace tsms::test {

namespace {

const QStringList ShortMessage = {
    u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"02-1234-5678"_q, u"010-0000-0001"_q, u"안녕"_q,
    QString(), QString(), QString(),           QString(),         QString()};
const QString Accepted = u"return_value:true;;;unique_num:1;;;;error_code:;error_msg:"_q;

/// A good reply with the number of its call.
QString Numbered(int call)
{
    return u"return_value:true;;;unique_num:%1;;;;error_code:;error_msg:"_q.arg(call);
}

/// "" for a fault, else the result.
QString ResultOf(SoapClient30& client)
{
    try {
        return client.Call(u"SendSMS"_q, ShortMessage);
    } catch (const SoapFault&) {
        return {};
    }
}

HttpAnswer Silence(HttpAnswer::Then then)
{
    return {{}, then};
}

} // namespace

class LostConnection : public ::testing::TestWithParam<HttpAnswer::Then>
{
};

INSTANTIATE_TEST_SUITE_P(Ways, LostConnection,
                         ::testing::Values(HttpAnswer::Then::Close, HttpAnswer::Then::Reset));

TEST_P(LostConnection, AfterTheFirstRequestIsAFaultAndNothingIsSentAgain)
{
    ReplyGateway gateway([](int) { return Silence(GetParam()); });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ResultOf(client), QString());
    EXPECT_EQ(client.FaultString(), u"문자메시지 서버와의 통신이 끊어졌습니다."_q);
    EXPECT_EQ(gateway.CallCount(), 1);
}

TEST_P(LostConnection, OnAKeptConnectionIsAFaultAndNothingIsSentAgain)
{
    ReplyGateway gateway(
        [](int call) { return call < 4 ? ReplyGateway::Replying(Accepted) : Silence(GetParam()); });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(ResultOf(client), Accepted);
    EXPECT_EQ(gateway.ConnectionCount(), 1);
    EXPECT_EQ(ResultOf(client), QString());
    EXPECT_EQ(gateway.CallCount(), 4);
}

TEST_P(LostConnection, DoesNotHinderTheNextCall)
{
    ReplyGateway gateway(
        [](int call) { return call == 2 ? Silence(GetParam()) : ReplyGateway::Replying(Accepted); });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ResultOf(client), Accepted);
    EXPECT_EQ(ResultOf(client), QString());
    EXPECT_EQ(ResultOf(client), Accepted);
    EXPECT_EQ(gateway.CallCount(), 3);
}

TEST_P(LostConnection, AfterALongMessageIsAFaultAndNothingIsSentAgain)
{
    ReplyGateway gateway(
        [](int call) { return call == 1 ? ReplyGateway::Replying(Accepted) : Silence(GetParam()); });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    QStringList message = ShortMessage;
    message[5] = QString(300000, u'가');
    client.Call(u"SendSMS"_q, message);
    EXPECT_THROW(client.Call(u"SendSMS"_q, message), SoapFault);
    EXPECT_EQ(gateway.CallCount(), 2);
}

class AnswerNobodyAskedFor : public ::testing::TestWithParam<int>
{
};

INSTANTIATE_TEST_SUITE_P(Milliseconds, AnswerNobodyAskedFor, ::testing::Values(0, 1, 2, 5, 10, 20));

TEST_P(AnswerNobodyAskedFor, IsNotTakenForThatOfTheNextCall)
{
    ReplyGateway gateway([](int call) {
        HttpAnswer answer = ReplyGateway::Replying(Numbered(call));
        answer.AgainMilliseconds = GetParam();
        return answer;
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int call = 1; call <= 400; ++call) // longer than the second answers are late
        EXPECT_EQ(ResultOf(client), Numbered(call));
    EXPECT_EQ(gateway.CallCount(), 400);
}

TEST_P(AnswerNobodyAskedFor, OfACallInTheMiddleIsNotTakenForThatOfTheNextCall)
{
    ReplyGateway gateway([](int call) {
        HttpAnswer answer = ReplyGateway::Replying(Numbered(call));
        if (call == 10)
            answer.AgainMilliseconds = GetParam();
        return answer;
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int call = 1; call <= 20; ++call) {
        EXPECT_EQ(ResultOf(client), Numbered(call));
        if (call == 10)
            QThread::msleep(GetParam() + 20); // what the next row waits for
    }
    EXPECT_EQ(gateway.CallCount(), 20);
}

TEST(HttpAttack, TwoAnswersInOneGoAreTheOneAndNoneForTheNextCall)
{
    const auto chunked = [](HttpAnswer answer) {
        const qsizetype body = answer.Bytes.indexOf("\r\n\r\n") + 4;
        const QByteArray size = QByteArray::number(answer.Bytes.size() - body, 16);
        answer.Bytes.insert(body, size + "\r\n").append("\r\n0\r\n\r\n");
        const qsizetype field = answer.Bytes.indexOf("Content-Length");
        answer.Bytes.replace(field, answer.Bytes.indexOf("\r\n", field) - field,
                             "Transfer-Encoding: chunked");
        return answer;
    };
    for (const bool isChunked : {false, true}) {
        ReplyGateway gateway([&](int call) {
            HttpAnswer answer = ReplyGateway::Replying(Numbered(call));
            if (isChunked)
                answer = chunked(answer);
            answer.Bytes += answer.Bytes;
            return answer;
        });
        SoapClient30 client;
        client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
        for (int call = 1; call <= 10; ++call)
            EXPECT_EQ(ResultOf(client), Numbered(call)) << isChunked;
        EXPECT_EQ(gateway.CallCount(), 10);
    }
}

TEST(HttpAttack, ASecondAnswerBeforeTheConnectionClosesIsNotTakenForThatOfACallThatNeverArrives)
{
    ReplyGateway gateway([](int call) {
        HttpAnswer answer = ReplyGateway::Replying(Numbered(call));
        answer.Bytes += answer.Bytes;
        answer.After = HttpAnswer::Then::Close;
        return answer;
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int call = 1; call <= 10; ++call) {
        EXPECT_EQ(ResultOf(client), Numbered(call));
        EXPECT_EQ(gateway.CallCount(), call);
    }
}

TEST(HttpAttack, AConnectionThatHasBeenQuietOnceIsListenedToNoMore)
{
    ReplyGateway gateway([](int call) { return ReplyGateway::Replying(Numbered(call)); });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    QElapsedTimer time;
    time.start();
    for (int call = 1; call <= 1000; ++call)
        ASSERT_EQ(ResultOf(client), Numbered(call));
    EXPECT_LT(time.elapsed(), 1000 * HttpLink::ListeningMilliseconds / 2);
    EXPECT_EQ(gateway.ConnectionCount(), 1);
}

TEST(HttpAttack, WhatThereIsToDoMeanwhileIsDoneWhileTheAnswerIsOnItsWay)
{
    QSemaphore arrived;
    QSemaphore done;
    std::atomic<bool> wasDoneInTime = false;
    ReplyGateway gateway([&](int call) {
        if (call == 3) {
            arrived.release();
            wasDoneInTime = done.tryAcquire(1, 5000);
        }
        return ReplyGateway::Replying(Numbered(call));
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int call = 1; call < 3; ++call)
        ResultOf(client);
    int times = 0;
    client.Call(u"SendSMS"_q, ShortMessage, [&] {
        ++times;
        EXPECT_TRUE(arrived.tryAcquire(1, 5000)); // the call is with the gateway before its work is done here
        done.release();
    });
    EXPECT_TRUE(wasDoneInTime);
    EXPECT_EQ(times, 1);
}

TEST(HttpAttack, WhatThereIsToDoMeanwhileDoesNotWaitForAConnectionThatIsListenedTo)
{
    ReplyGateway gateway([](int call) { return ReplyGateway::Replying(Numbered(call)); });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    ResultOf(client);
    int before = 0;
    client.Call(u"SendSMS"_q, ShortMessage, [&] { before = gateway.CallCount(); });
    EXPECT_EQ(before, 1);
}

TEST(HttpAttack, WhatThereIsToDoMeanwhileIsDoneAlsoWhenNobodyAnswers)
{
    HttpLink link;
    int times = 0;
    EXPECT_THROW(link.Post(u"http://127.0.0.1:1/"_q, {}, "x", [&] { ++times; }), SoapFault);
    EXPECT_EQ(times, 1);
}

TEST(HttpAttack, AKeptConnectionThatWasClosedInBetweenIsMadeAnew)
{
    ReplyGateway gateway([](int) {
        HttpAnswer answer = ReplyGateway::Replying(Accepted);
        answer.After = HttpAnswer::Then::Close;
        return answer;
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(ResultOf(client), Accepted);
        QThread::msleep(300); // for the other side's close to arrive
    }
    EXPECT_EQ(gateway.CallCount(), 3);
    EXPECT_EQ(gateway.ConnectionCount(), 3);
}

TEST(HttpAttack, AnAnswerCutAtAnyByteIsAFaultAndNothingIsSentAgain)
{
    const QByteArray whole = ReplyGateway::Replying(Accepted).Bytes;
    std::atomic<qsizetype> length = 0;
    ReplyGateway gateway([&](int) { return HttpAnswer{whole.first(length), HttpAnswer::Then::Close}; });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (length = 0; length < whole.size(); ++length)
        EXPECT_EQ(ResultOf(client), QString()) << length;
    EXPECT_EQ(gateway.CallCount(), whole.size());
    length = whole.size();
    EXPECT_EQ(ResultOf(client), Accepted);
}

TEST(HttpAttack, AnAnswerWithoutALengthCutAtAnyByteIsAFaultOrTheWholeResult)
{
    QByteArray whole = ReplyGateway::Replying(Accepted).Bytes;
    const qsizetype field = whole.indexOf("Content-Length");
    whole.remove(field, whole.indexOf("\r\n", field) + 2 - field);
    std::atomic<qsizetype> length = 0;
    ReplyGateway gateway([&](int) { return HttpAnswer{whole.first(length), HttpAnswer::Then::Close}; });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    for (length = 0; length < whole.size() - 1; ++length) // the last byte is a line break behind the envelope
        EXPECT_EQ(ResultOf(client), QString()) << length;
    EXPECT_EQ(ResultOf(client), Accepted);
    EXPECT_EQ(gateway.CallCount(), whole.size());
}

TEST(HttpAttack, AnAnswerOverOneMebibyteIsAFault)
{
    ReplyGateway gateway([](int call) {
        const QByteArray padding = "<!--" + QByteArray(call == 1 ? 900 * 1024 : 1024 * 1024, ' ') + "-->";
        return WholeAnswer(200, "text/xml",
                           ServiceAnswer(u"SendSMS"_q, ServiceStyle::RpcEncoded, Accepted) + padding);
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ResultOf(client), Accepted);
    EXPECT_EQ(ResultOf(client), QString());
    EXPECT_EQ(client.FaultString(), u"문자메시지 서버의 응답이 너무 깁니다."_q);
}

TEST(HttpAttack, AnEndlessHeadIsAFault)
{
    ReplyGateway gateway([](int) {
        return HttpAnswer{"HTTP/1.1 200 OK\r\n" + QByteArray("X-A: b\r\n").repeated(200000),
                          HttpAnswer::Then::Keep};
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ResultOf(client), QString());
}

TEST(HttpAttack, ARedirectionIsNotFollowed)
{
    for (const char* status : {"301 Moved", "302 Found", "307 Temporary", "308 Permanent"}) {
        ReplyGateway gateway([&](int) {
            return HttpAnswer{QByteArray("HTTP/1.1 ") + status +
                                  "\r\nLocation: /elsewhere\r\nContent-Length: 0\r\n\r\n",
                              HttpAnswer::Then::Keep};
        });
        SoapClient30 client;
        client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
        EXPECT_EQ(ResultOf(client), QString());
        EXPECT_EQ(gateway.CallCount(), 1) << status;
        EXPECT_EQ(client.Detail(), u"HTTP "_q + QString::fromLatin1(status).left(3));
    }
}

TEST(HttpAttack, AChallengeOrARefusedExpectationIsNotAnsweredWithASecondRequest)
{
    for (const char* status : {"401 No", "407 No", "417 No", "408 Late", "503 Busy"}) {
        ReplyGateway gateway([&](int) {
            return HttpAnswer{QByteArray("HTTP/1.1 ") + status +
                                  "\r\nWWW-Authenticate: Basic realm=\"a\"\r\nProxy-Authenticate: NTLM\r\n"
                                  "Retry-After: 0\r\nContent-Length: 0\r\n\r\n",
                              HttpAnswer::Then::Keep};
        });
        SoapClient30 client;
        client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
        EXPECT_EQ(ResultOf(client), QString());
        EXPECT_EQ(gateway.CallCount(), 1) << status;
    }
}

TEST(HttpAttack, ACallGoesOutWholeAtOnceInPlainHttp11)
{
    std::atomic<bool> isRight = false;
    HttpListener* self = nullptr;
    HttpListener listener([&](const HttpRequest& request) {
        const QString endpoint = u"http://127.0.0.1:%1/s"_q.arg(self->Port());
        if (request.Method == "GET")
            return WholeAnswer(200, "text/xml", DescriptionOf(ServiceStyle::RpcEncoded, endpoint));
        isRight = !request.Headers.contains("expect") && request.Path == "/s" &&
                  request.Headers.value("content-type") == "text/xml; charset=utf-8" &&
                  request.Headers.value("soapaction") == "\"urn:SendSMS\"" &&
                  request.Headers.value("content-length").toLongLong() == request.Body.size();
        return ReplyGateway::Replying(Accepted);
    });
    self = &listener;
    ASSERT_TRUE(listener.Listen(0));
    SoapClient30 client;
    client.mssoapinit(u"http://127.0.0.1:%1/w"_q.arg(listener.Port()), {}, {}, {});
    QStringList message = ShortMessage;
    message[5] = QString(1200000, u'x'); // long enough for a library to ask first
    EXPECT_EQ(client.Call(u"SendSMS"_q, message), Accepted);
    EXPECT_TRUE(isRight);
}

TEST(HttpAttack, AProxyOfTheEnvironmentIsNotUsed)
{
    for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
        qputenv(name, "http://127.0.0.1:1");
    ReplyGateway gateway([](int) { return ReplyGateway::Replying(Accepted); });
    SoapClient30 client;
    EXPECT_NO_THROW(client.mssoapinit(gateway.WsdlUrl(), {}, {}, {}));
    EXPECT_EQ(ResultOf(client), Accepted);
    for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
        qunsetenv(name);
}

TEST(HttpAttack, NothingExternalIsFetchedForAnAnswer)
{
    std::atomic<int> fetches = 0;
    HttpListener trap([&](const HttpRequest&) {
        ++fetches;
        return WholeAnswer(200, "text/xml", "<!ENTITY x 'y'>");
    });
    ASSERT_TRUE(trap.Listen(0));
    const QByteArray address = "http://127.0.0.1:" + QByteArray::number(trap.Port()) + "/x.dtd";
    ReplyGateway gateway([&](int) {
        return WholeAnswer(200, "text/xml",
                           "<!DOCTYPE a SYSTEM '" + address + "'>" +
                               ServiceAnswer(u"SendSMS"_q, ServiceStyle::RpcEncoded, Accepted)
                                   .replace("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n", ""));
    });
    SoapClient30 client;
    client.mssoapinit(gateway.WsdlUrl(), {}, {}, {});
    EXPECT_EQ(ResultOf(client), QString());
    EXPECT_EQ(fetches, 0);
}

} // namespace tsms::test

#include "tsms-gateway/SimulatedGateway.h"

#include "support/FixedClock.h"
#include "support/Words.h"
#include "tsms-gateway/GatewayPages.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

namespace tsms::test {

namespace {

QStringList SendArguments(const QString& content, const QString& sendTime = {})
{
    return {u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"02-1234-5678"_q, u"010-0000-0001"_q, content,
            QString(), sendTime,  QString(),           QString(),         QString()};
}

QStringList DeleteArguments(const QString& number)
{
    return {u"demo"_q, u"demo"_q, u"sms.example.kr"_q, number, QString(), QString(), QString()};
}

/// A reservation of an earlier run.
GatewayMessage Held(int number, const QString& sendTime)
{
    GatewayMessage message;
    message.Number = number;
    message.SenderTelNo = u"02-1234-5678"_q;
    message.RecvTelNo = u"010-0000-0002"_q;
    message.Content = u"지난 글"_q;
    message.SendTime = sendTime;
    return message;
}

/// The value of one item of a reply.
QString Item(const QString& reply, int position)
{
    return reply.split(u';').value(position).section(u':', 1);
}

/// What comes back for a request on a connection of its own, until the other side closes or falls silent.
QByteArray Exchange(quint16 port, const QByteArray& request)
{
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_q, port);
    if (!socket.waitForConnected(5000))
        return "(no connection)";
    socket.write(request);
    QByteArray bytes;
    while (socket.waitForReadyRead(300))
        bytes += socket.readAll();
    return bytes;
}

} // namespace

TEST(MessageBook, AReplyHasNineItems)
{
    FixedClock clock;
    MessageBook book(clock);
    const QString reply = book.SendSMS(SendArguments(u"안녕"_q));
    EXPECT_EQ(reply.split(u';').size(), 9);
    EXPECT_TRUE(reply.startsWith(u"return_value:true;"));
    EXPECT_EQ(reply.split(u';')[3], u"unique_num:100001"_q);
    EXPECT_TRUE(reply.endsWith(u";error_code:;error_msg:"));
}

TEST(MessageBook, NumbersRun)
{
    FixedClock clock;
    MessageBook book(clock);
    book.SendSMS(SendArguments(u"하나"_q));
    EXPECT_EQ(Item(book.SendSMS(SendArguments(u"둘"_q)), 3), u"100002"_q);
}

TEST(MessageBook, AWrongAccountIsRefused)
{
    FixedClock clock;
    MessageBook book(clock);
    for (int position = 0; position < 3; ++position) {
        QStringList arguments = SendArguments(u"안녕"_q);
        arguments[position] = u"x"_q;
        EXPECT_EQ(Item(book.SendSMS(arguments), 7), u"E01"_q) << position;
    }
    EXPECT_TRUE(book.Messages().isEmpty());
}

TEST(MessageBook, AMessageWithoutNumberOrContentIsRefused)
{
    FixedClock clock;
    MessageBook book(clock);
    EXPECT_EQ(Item(book.SendSMS(SendArguments(u"  "_q)), 7), u"E03"_q);
    QStringList arguments = SendArguments(u"안녕"_q);
    arguments[4].clear();
    EXPECT_EQ(Item(book.SendSMS(arguments), 7), u"E02"_q);
}

TEST(MessageBook, AReservationCanBeWithdrawnUntilItsTime)
{
    FixedClock clock;
    MessageBook book(clock);
    book.SendSMS(SendArguments(u"하나"_q, u"2012:05:30:14:10"_q));
    book.SendSMS(SendArguments(u"둘"_q, u"2012:05:30:14:10"_q));
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"100001"_q)), 7), QString());
    EXPECT_TRUE(book.Messages().first().Withdrawn);
    clock.Set(QDateTime(QDate(2012, 5, 30), QTime(14, 10)));
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"100002"_q)), 7), u"E13"_q);
}

TEST(MessageBook, WhatCannotBeWithdrawnIsRefused)
{
    FixedClock clock;
    MessageBook book(clock);
    book.SendSMS(SendArguments(u"바로"_q));
    book.SendSMS(SendArguments(u"예약"_q, u"2012:05:30:15:00"_q));
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"7"_q)), 7), u"E11"_q);
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(QString())), 7), u"E11"_q);
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"100001"_q)), 7), u"E13"_q);
    book.DeleteSMS(DeleteArguments(u"100002"_q));
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"100002"_q)), 7), u"E12"_q);
}

TEST(MessageBook, AReservationInThePastIsDeliveredAtOnce)
{
    FixedClock clock;
    MessageBook book(clock);
    EXPECT_EQ(Item(book.SendSMS(SendArguments(u"늦음"_q, u"2012:05:30:14:05"_q)), 7), QString());
    EXPECT_EQ(book.Messages().first().Due, clock.Now());
}

TEST(MessageBook, AReservationThatIsNoTimeIsRefused)
{
    FixedClock clock;
    MessageBook book(clock);
    for (const QString& time : {u"2012-05-30 14:05"_q, u"2012:13:01:00:00"_q, u"2012:05:30:24:05"_q, u"x"_q})
        EXPECT_EQ(Item(book.SendSMS(SendArguments(u"예약"_q, time)), 7), u"E04"_q) << time.toStdString();
}

TEST(MessageBook, AHeldMessageCanBeWithdrawnUntilItsTime)
{
    FixedClock clock;
    MessageBook book(clock);
    book.Hold({0, {Held(730001, u"2012:05:30:14:10"_q), Held(730002, u"2012:05:30:14:10"_q)}});
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"730001"_q)), 7), QString());
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"730001"_q)), 7), u"E12"_q);
    EXPECT_TRUE(book.Messages().first().Withdrawn);
    EXPECT_FALSE(book.Messages().last().Withdrawn);
    clock.Set(QDateTime(QDate(2012, 5, 30), QTime(14, 10)));
    EXPECT_EQ(Item(book.DeleteSMS(DeleteArguments(u"730002"_q)), 7), u"E13"_q);
}

TEST(MessageBook, AHeldMessageIsWithdrawnByTheRightAccountOnly)
{
    FixedClock clock;
    MessageBook book(clock);
    book.Hold({0, {Held(730001, u"2012:05:30:15:00"_q)}});
    QStringList arguments = DeleteArguments(u"730001"_q);
    arguments[1] = u"x"_q;
    EXPECT_EQ(Item(book.DeleteSMS(arguments), 7), u"E01"_q);
    EXPECT_FALSE(book.Messages().first().Withdrawn);
}

struct NumberRow
{
    int lastNumber;
    QList<int> held;
    const char16_t* next;
};

class NumberBehindTheHeld : public ::testing::TestWithParam<NumberRow>
{
};

TEST_P(NumberBehindTheHeld, IsTheNextOne)
{
    FixedClock clock;
    MessageBook book(clock);
    HeldMessages held{GetParam().lastNumber, {}};
    for (const int number : GetParam().held)
        held.Messages += Held(number, u"2012:05:30:15:00"_q);
    book.Hold(held);
    EXPECT_EQ(Item(book.SendSMS(SendArguments(u"새 글"_q)), 3), QString::fromUtf16(GetParam().next));
}

INSTANTIATE_TEST_SUITE_P(Numbers, NumberBehindTheHeld,
                         ::testing::Values(NumberRow{0, {}, u"100001"}, NumberRow{0, {7}, u"100001"},
                                           NumberRow{100000, {}, u"100001"}, NumberRow{100001, {}, u"100002"},
                                           NumberRow{0, {100001}, u"100002"},
                                           NumberRow{0, {730009, 730002}, u"730010"},
                                           NumberRow{730020, {730009}, u"730021"},
                                           NumberRow{730005, {730009}, u"730010"},
                                           NumberRow{0, {HighestNumber}, u"1000000000"}));

TEST(HeldMessages, AreReadAsTheyAreWritten)
{
    GatewayMessage message = Held(730001, u"2012:05:30:24:00"_q);
    message.Content = u"\"안녕\"\r\n하세요"_q;
    const auto held = ReadHeldMessages(HeldMessagesJson({730005, {message, Held(7, u"2012:05:31:09:00"_q)}}));
    ASSERT_TRUE(held);
    EXPECT_EQ(held->LastNumber, 730005);
    ASSERT_EQ(held->Messages.size(), 2);
    const GatewayMessage& first = held->Messages.first();
    EXPECT_EQ(first.Number, 730001);
    EXPECT_EQ(first.SenderTelNo, message.SenderTelNo);
    EXPECT_EQ(first.RecvTelNo, message.RecvTelNo);
    EXPECT_EQ(first.Content, message.Content);
    EXPECT_EQ(first.SendTime, message.SendTime);
    EXPECT_EQ(held->Messages.last().Number, 7);
}

TEST(HeldMessages, NoneAreAFileToo)
{
    const auto held = ReadHeldMessages(HeldMessagesJson({}));
    ASSERT_TRUE(held);
    EXPECT_TRUE(held->Messages.isEmpty());
}

TEST(HeldMessages, OtherFilesAreNone)
{
    const QByteArray right = R"({"lastNumber":5,"messages":[{"number":5,"sender":"02","receiver":"010",)"
                             R"("content":"글","sendTime":"2012:05:30:15:00","state":"waiting"}]})";
    ASSERT_TRUE(ReadHeldMessages(right));
    const QList<std::pair<QByteArray, QByteArray>> broken = {
        {R"("lastNumber":5)", R"("lastNumber":-1)"},
        {R"("lastNumber":5)", R"("lastNumber":"5")"},
        {R"("lastNumber":5)", R"("lastNumber":1000000000)"},
        {R"("lastNumber":5,)", ""},
        {R"("messages")", R"("else")"},
        {R"("number":5)", R"("number":0)"},
        {R"("number":5)", R"("number":1.5)"},
        {R"("number":5)", R"("number":1000000000)"},
        {R"("number":5)", R"("number":"5")"},
        {R"("sender":"02")", R"("sender":2)"},
        {R"("receiver":"010",)", ""},
        {R"("content":"글")", R"("content":null)"},
        {"2012:05:30:15:00", "2012-05-30-15-00"},
        {"2012:05:30:15:00", ""},
        {"[{", "[7,{"},
        {"}]}", "}]"},
    };
    for (const auto& [part, instead] : broken) {
        const QByteArray json = QByteArray(right).replace(part, instead);
        EXPECT_NE(json, right) << part.toStdString();
        EXPECT_FALSE(ReadHeldMessages(json)) << json.toStdString();
    }
    for (const char* text : {"", "x", "[]", "7", "{}"})
        EXPECT_FALSE(ReadHeldMessages(text)) << text;
}

TEST(ReservationMoment, HourTwentyFourIsTheNextDay)
{
    EXPECT_EQ(ReservationMoment(u"2012:12:31:24:00"_q), QDateTime(QDate(2013, 1, 1), QTime(0, 0)));
}

TEST(GatewayFault, AreReadFromTheirWords)
{
    const auto refuse = ReadGatewayFault(u"refuse@4"_q);
    ASSERT_TRUE(refuse);
    EXPECT_EQ(refuse->Kind, FaultKind::Refuse);
    EXPECT_EQ(refuse->Call, 4);
    const auto late = ReadGatewayFault(u"late=1500@2"_q);
    ASSERT_TRUE(late);
    EXPECT_EQ(late->Milliseconds, 1500);
    EXPECT_EQ(late->Call, 2);
    EXPECT_EQ(ReadGatewayFault(u"wsdl-missing"_q)->Kind, FaultKind::WsdlMissing);
    EXPECT_EQ(ReadGatewayFault(u"drop"_q)->Call, 0);
    EXPECT_EQ(ReadGatewayFault(u"leave@2"_q)->Kind, FaultKind::Leave);
    EXPECT_EQ(ReadGatewayFault(u"twice=5"_q)->Kind, FaultKind::Twice);
    EXPECT_EQ(ReadGatewayFault(u"wsdl-late=20"_q)->Milliseconds, 20);
}

TEST(GatewayFault, OtherWordsAreNone)
{
    for (const QString& text : {u""_q, u"nonsense"_q, u"refuse@"_q, u"refuse@0"_q, u"late"_q, u"refuse=5"_q,
                                u"wsdl-missing@2"_q, u"drop@x"_q, u"wsdl-late"_q, u"wsdl-drop=5"_q})
        EXPECT_FALSE(ReadGatewayFault(text)) << text.toStdString();
}

TEST(GatewayPages, AMessageIsShownEscaped)
{
    GatewayMessage message;
    message.Content = u"<script>alert(\"1\")</script> & %1 %2"_q;
    message.RecvTelNo = u"<b>010"_q;
    message.SenderTelNo = u"02\"'"_q;
    const QString page =
        QString::fromUtf8(PhonesPage({message}, QDateTime(QDate(2012, 5, 30), QTime(14, 7))));
    EXPECT_FALSE(page.contains(u"<script"));
    EXPECT_FALSE(page.contains(u"<b>"));
    EXPECT_TRUE(page.contains(u"&lt;script&gt;alert(&quot;1&quot;)&lt;/script&gt; &amp; %1 %2"));
}

TEST(GatewayPages, AReservationIsTold)
{
    FixedClock clock;
    MessageBook book(clock);
    book.SendSMS(SendArguments(u"예약"_q, u"2012:05:30:15:00"_q));
    EXPECT_TRUE(
        QString::fromUtf8(PhonesPage(book.Messages(), book.Now())).contains(u"2012-05-30 15:00 예약<"));
    book.DeleteSMS(DeleteArguments(u"100001"_q));
    EXPECT_TRUE(QString::fromUtf8(PhonesPage(book.Messages(), book.Now())).contains(u"예약 취소됨"));
    EXPECT_EQ(MessageLine(book.Messages().first()),
              u"문자 100001 (예약 2012-05-30 15:00): 02-1234-5678 → 010-0000-0001: 예약"_q);
}

TEST(GatewayPages, ALineOfAMessageIsOneLine)
{
    GatewayMessage message;
    message.Content = u"하나\r\n둘\n셋\u001B[31m"_q;
    EXPECT_TRUE(MessageLine(message).endsWith(u": 하나 / 둘 셋 [31m"));
}

TEST(SimulatedGateway, ServesPagesAndMessages)
{
    FixedClock clock;
    SimulatedGateway gateway(clock, {});
    ASSERT_TRUE(gateway.Start());
    for (const char* path :
         {"/", "/join", "/charge", "/messages.json", "/SMSWS/webservice/xSMSWebService.wsdl"})
        EXPECT_TRUE(Exchange(gateway.Port(), QByteArray("GET ") + path + " HTTP/1.1\r\nHost: x\r\n\r\n")
                        .startsWith("HTTP/1.1 200 "))
            << path;
    EXPECT_TRUE(
        Exchange(gateway.Port(), "GET /none HTTP/1.1\r\nHost: x\r\n\r\n").startsWith("HTTP/1.1 404 "));
    EXPECT_TRUE(Exchange(gateway.Port(), "PUT / HTTP/1.1\r\nHost: x\r\n\r\n").startsWith("HTTP/1.1 405 "));
}

TEST(SimulatedGateway, ListsTheMessagesAsJson)
{
    FixedClock clock;
    MessageBook book(clock);
    book.SendSMS(SendArguments(u"\"안녕\""_q, u"2012:05:30:15:00"_q));
    const QJsonArray list = QJsonDocument::fromJson(MessagesJson(book.Messages(), book.Now())).array();
    ASSERT_EQ(list.size(), 1);
    const QJsonObject message = list.first().toObject();
    EXPECT_EQ(message[u"content"].toString(), u"\"안녕\""_q);
    EXPECT_EQ(message[u"receiver"].toString(), u"010-0000-0001"_q);
    EXPECT_EQ(message[u"state"].toString(), u"waiting"_q);
}

TEST(SimulatedGateway, ShowsWhatItHoldsLikeItsOwnReservations)
{
    FixedClock clock;
    SimulatedGateway gateway(clock, {});
    gateway.Hold({0, {Held(730001, u"2012:05:31:09:30"_q)}});
    ASSERT_TRUE(gateway.Start());
    const QString page = QString::fromUtf8(Exchange(gateway.Port(), "GET / HTTP/1.1\r\nHost: x\r\n\r\n"));
    EXPECT_TRUE(page.contains(u"모두 1건"));
    EXPECT_TRUE(page.contains(u"2012-05-31 09:30 예약<"));
    EXPECT_TRUE(page.contains(u"지난 글"));
    const QByteArray list = Exchange(gateway.Port(), "GET /messages.json HTTP/1.1\r\nHost: x\r\n\r\n");
    const QJsonObject message =
        QJsonDocument::fromJson(list.mid(list.indexOf("\r\n\r\n") + 4)).array().first().toObject();
    EXPECT_EQ(message[u"number"].toInt(), 730001);
    EXPECT_EQ(message[u"due"].toString(), u"2012-05-31T09:30:00"_q);
    EXPECT_EQ(message[u"state"].toString(), u"waiting"_q);
}

TEST(SimulatedGateway, ATakenPortIsTold)
{
    FixedClock clock;
    SimulatedGateway first(clock, {});
    ASSERT_TRUE(first.Start());
    SimulatedGateway::Settings settings;
    settings.Port = first.Port();
    SimulatedGateway second(clock, settings);
    EXPECT_FALSE(second.Start());
}

TEST(SimulatedGateway, AMalformedRequestClosesTheConnection)
{
    FixedClock clock;
    SimulatedGateway gateway(clock, {});
    ASSERT_TRUE(gateway.Start());
    EXPECT_EQ(Exchange(gateway.Port(), "nonsense\r\n\r\n"), QByteArray());
    EXPECT_EQ(Exchange(gateway.Port(), "POST / HTTP/1.1\r\nContent-Length: -1\r\n\r\n"), QByteArray());
    EXPECT_EQ(Exchange(gateway.Port(), "POST / HTTP/1.1\r\nContent-Length: 99999999999\r\n\r\n"),
              QByteArray());
    EXPECT_EQ(gateway.RequestCount(), 0);
}

TEST(SimulatedGateway, ACallThatIsNotAsDescribedIsAFault)
{
    FixedClock clock;
    SimulatedGateway gateway(clock, {});
    ASSERT_TRUE(gateway.Start());
    const QByteArray body = "<a/>";
    const QByteArray answer = Exchange(
        gateway.Port(), "POST /SMSWS/webservice/xSMSWebService HTTP/1.1\r\nContent-Length: 4\r\n\r\n" + body);
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 500 "));
    EXPECT_TRUE(answer.contains("<faultcode>soapenv:Client</faultcode>"));
    EXPECT_TRUE(gateway.Calls().isEmpty());
}

} // namespace tsms::test

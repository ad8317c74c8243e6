#include "server/ServerFixture.h"
#include "support/server/TdsBytes.h"

#include <QTcpSocket>

namespace tsms::test {

namespace {

/// A client without a driver: it sends bytes.
class RawClient : public ServerFixture
{
protected:
    RawClient()
    {
        socket_.connectToHost(u"127.0.0.1"_q, server_.Port());
        EXPECT_TRUE(socket_.waitForConnected());
        EXPECT_TRUE(server_.WaitForOpenConnections(1));
    }

    void Send(const QByteArray& bytes)
    {
        socket_.write(bytes);
        while (socket_.bytesToWrite() > 0 && socket_.waitForBytesWritten()) {
        }
    }

    /// A message of one packet.
    void SendMessage(int type, const QByteArray& data)
    {
        const auto size = static_cast<int>(data.size() + 8);
        const QByteArray length{1, static_cast<char>(size >> 8)};
        Send(ByteWriter().Byte(type).Byte(1).Bytes(length).Byte(size).DWord(0).Bytes(data).Data());
    }

    void SendBatch(const QString& sql) { SendMessage(0x01, ByteWriter().DWord(4).Text(sql).Data()); }

    /// User, password and the size of packets alone.
    void SendLogIn(int packetSize)
    {
        const QString user = u"sms"_q;
        const QByteArray disguised = QByteArray::fromHex("92a5f3a593a582a5f3a5e2a5"); // "secret"
        constexpr int textsFrom = 94;
        ByteWriter logIn;
        logIn.DWord(static_cast<quint32>(textsFrom + 6 + disguised.size())).DWord(0x74000004);
        logIn.DWord(static_cast<quint32>(packetSize)).Bytes(QByteArray(24, '\0')); // up to the offsets
        logIn.Word(textsFrom).Word(0).Word(textsFrom).Word(3).Word(textsFrom + 6).Word(6);
        logIn.Bytes(QByteArray(textsFrom - 48, '\0')).Text(user).Bytes(disguised);
        SendMessage(0x10, logIn.Data());
    }

    /// One answer, packet by packet, with their headers.
    QList<QByteArray> Answer()
    {
        QList<QByteArray> packets;
        bool isLast = false;
        while (!isLast) {
            const QByteArray header = Take(8);
            if (header.size() < 8)
                return packets;
            const int size = (static_cast<quint8>(header[2]) << 8) + static_cast<quint8>(header[3]);
            packets += header + Take(size - 8);
            isLast = (header[1] & 1) != 0;
        }
        return packets;
    }

    QByteArray Take(int size)
    {
        while (socket_.bytesAvailable() < size)
            if (!socket_.waitForReadyRead())
                break;
        return socket_.read(size);
    }

    QTcpSocket socket_;
};

} // namespace

TEST_F(RawClient, IsToldThatThereIsNoEncryption)
{
    SendMessage(0x12, "\xFF");
    const QByteArray answer = Answer().value(0);
    ASSERT_EQ(answer.size(), 8 + 0x1E);
    EXPECT_EQ(answer.mid(8 + 5, 5), QByteArray("\x01\x00\x1B\x00\x01", 5));
    EXPECT_EQ(answer[8 + 0x1B], '\x02');
}

TEST_F(RawClient, HasPacketsOfTheSizeThatItAsksFor)
{
    SendLogIn(600);
    ASSERT_EQ(Answer().size(), 1);
    SendBatch(u"SELECT '%1'"_q.arg(u"가"_q.repeated(700)));
    const QList<QByteArray> packets = Answer();
    ASSERT_EQ(packets.size(), 3);
    for (int at = 0; at < 3; ++at)
        EXPECT_EQ(packets[at][6], at + 1);
    EXPECT_EQ(packets[0].size(), 600);
    EXPECT_EQ(packets[1].size(), 600);
}

TEST_F(RawClient, HasPacketsOfTheServersSizeWhenItsWishIsNone)
{
    SendLogIn(0);
    Answer();
    SendBatch(u"SELECT '%1'"_q.arg(u"가"_q.repeated(3000)));
    EXPECT_EQ(Answer().value(0).size(), 4096);
}

TEST_F(RawClient, IsToldAnErrorWithItsStateAndClass)
{
    SendLogIn(0);
    Answer();
    server_.Fail({50001, 11, 7, u"뜻"_q});
    SendBatch(u"SELECT 1"_q);
    const QByteArray token = ByteWriter()
                                 .Byte(0xAA)
                                 .Word(36)
                                 .DWord(50001)
                                 .Byte(7)
                                 .Byte(11)
                                 .LongText(u"뜻")
                                 .ShortText(u"TESTSERVER")
                                 .Byte(0)
                                 .DWord(1)
                                 .Data();
    EXPECT_EQ(Answer().value(0).mid(8, token.size()).toHex(' '), token.toHex(' '));
}

TEST_F(RawClient, ThatSendsNoPacketsIsCut)
{
    Send("GET / HTTP/1.1\r\n\r\n" + QByteArray(70'000, '\0'));
    EXPECT_TRUE(server_.WaitForOpenConnections(0));
}

TEST_F(RawClient, ThatHasNotLoggedInIsCutAtItsFirstStatement)
{
    SendBatch(u"SELECT 1"_q);
    EXPECT_TRUE(server_.WaitForOpenConnections(0));
    EXPECT_EQ(server_.Statements(), QStringList());
}

TEST_F(RawClient, ThatCancelsNothingIsToldSo)
{
    SendMessage(0x06, {});
    EXPECT_EQ(Answer().value(0).sliced(8), QByteArray("\xFD\x20\x00\x00\x00", 5) + QByteArray(8, '\0'));
}

TEST_F(RawClient, ThatBreaksOffInTheMiddleOfAPacketIsForgotten)
{
    Send(QByteArray("\x10\x01\x01\x00\x00\x00\x00\x00 half", 13));
    socket_.abort();
    EXPECT_TRUE(server_.WaitForOpenConnections(0));
    Connect();
    EXPECT_EQ(Value(u"SELECT 1"_q), u"1"_q);
}

} // namespace tsms::test

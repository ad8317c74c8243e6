#include "support/server/TdsPackets.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// A packet as a client sends it.
QByteArray Packet(char type, bool isLast, const QByteArray& data)
{
    const auto size = static_cast<int>(data.size() + 8);
    QByteArray packet;
    packet += type;
    packet += static_cast<char>(isLast ? 1 : 0);
    packet += static_cast<char>(size >> 8);
    packet += static_cast<char>(size & 0xFF);
    return packet + QByteArray(4, '\0') + data;
}

} // namespace

TEST(PacketReader, GivesAMessageWhenItsLastByteIsThere)
{
    const QByteArray bytes = Packet(0x01, false, "first ") + Packet(0x01, true, "second");
    PacketReader reader;
    for (qsizetype at = 0; at + 1 < bytes.size(); ++at) {
        reader.Take(bytes.mid(at, 1));
        ASSERT_FALSE(reader.Next()) << at;
    }
    reader.Take(bytes.last(1));
    const std::optional<TdsMessage> message = reader.Next();
    ASSERT_TRUE(message);
    EXPECT_EQ(message->type, MessageType::Batch);
    EXPECT_EQ(message->data, "first second");
    EXPECT_FALSE(reader.Next());
}

TEST(PacketReader, TakesMessagesThatArriveTogetherApart)
{
    PacketReader reader;
    reader.Take(Packet(0x01, true, "a") + Packet(0x06, true, ""));
    EXPECT_EQ(reader.Next()->data, "a");
    EXPECT_EQ(reader.Next()->type, MessageType::Attention);
    EXPECT_FALSE(reader.Next());
}

TEST(PacketReader, KnowsWhatIsNoPacket)
{
    PacketReader reader;
    reader.Take(QByteArray("\x01\x01\x00\x07\x00\x00\x00\x00", 8));
    EXPECT_FALSE(reader.Next());
    EXPECT_TRUE(reader.IsBroken());
}

TEST(AnswerPackets, HaveTheirHeaders)
{
    EXPECT_EQ(AnswerPackets("abc", 512), QByteArray("\x04\x01\x00\x0B\x00\x33\x01\x00"
                                                    "abc",
                                                    11));
}

TEST(AnswerPackets, AreAsManyAsItTakes)
{
    const QByteArray data(1000, 'x');
    const QByteArray packets = AnswerPackets(data, 512);
    ASSERT_EQ(packets.size(), 1000 + 2 * 8);
    EXPECT_EQ(packets.mid(0, 4), QByteArray("\x04\x00\x02\x00", 4));
    EXPECT_EQ(packets.mid(512, 4), QByteArray("\x04\x01\x01\xF8", 4));
    EXPECT_EQ(packets[512 + 6], '\x02');
    EXPECT_EQ(packets.mid(8, 504) + packets.mid(520), data);
}

TEST(AnswerPackets, ThatAreJustFullEndTheMessage)
{
    EXPECT_EQ(AnswerPackets(QByteArray(504, 'x'), 512).first(4), QByteArray("\x04\x01\x02\x00", 4));
}

TEST(AnswerPackets, AreOneForAnEmptyAnswer)
{
    EXPECT_EQ(AnswerPackets({}, 512).size(), 8);
}

} // namespace tsms::test

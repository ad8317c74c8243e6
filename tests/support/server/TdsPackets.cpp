#include "support/server/TdsPackets.h"

#include <QtEndian>

#include <utility>

namespace tsms::test {

namespace {

constexpr qsizetype HeaderSize = 8;
constexpr quint8 EndOfMessage = 0x01;
constexpr int ProcessNumber = 51; // the lowest of a person's connection

} // namespace

std::optional<TdsMessage> PacketReader::Next()
{
    while (buffer_.size() >= HeaderSize) {
        const auto type = static_cast<MessageType>(buffer_[0]);
        const bool isLast = (static_cast<quint8>(buffer_[1]) & EndOfMessage) != 0;
        const qsizetype length = qFromBigEndian<quint16>(buffer_.constData() + 2);
        isBroken_ = isBroken_ || length < HeaderSize;
        if (isBroken_ || buffer_.size() < length)
            return std::nullopt;
        data_ += buffer_.sliced(HeaderSize, length - HeaderSize);
        buffer_.remove(0, length);
        if (isLast)
            return TdsMessage{type, std::exchange(data_, {})};
    }
    return std::nullopt;
}

QByteArray AnswerPackets(const QByteArray& data, int packetSize)
{
    const qsizetype room = packetSize - HeaderSize;
    QByteArray packets;
    for (qsizetype from = 0, number = 1; from == 0 || from < data.size(); from += room, ++number) {
        const QByteArray piece = data.mid(from, room);
        const bool isLast = from + room >= data.size();
        const auto length = qToBigEndian(static_cast<quint16>(HeaderSize + piece.size()));
        const auto process = qToBigEndian(static_cast<quint16>(ProcessNumber));
        packets += static_cast<char>(MessageType::Answer);
        packets += static_cast<char>(isLast ? EndOfMessage : 0);
        packets.append(reinterpret_cast<const char*>(&length), sizeof length);
        packets.append(reinterpret_cast<const char*>(&process), sizeof process);
        packets += static_cast<char>(number & 0xFF);
        packets += '\0';
        packets += piece;
    }
    return packets;
}

} // namespace tsms::test

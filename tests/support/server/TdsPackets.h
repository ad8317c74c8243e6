#pragma once

#include <QByteArray>

#include <optional>

namespace tsms::test {

// Packets of TDS 7.4 (MS-TDS, 2.2.3): 8 bytes of header (type, status, length with the header and process
// number big-endian, number of the packet, window), then the data. A message is as many of them as it takes,
// the last with bit 0 of its status set.

enum class MessageType : quint8 {
    Batch = 0x01,
    Call = 0x03,
    Answer = 0x04,
    Attention = 0x06,
    Transaction = 0x0E,
    LogIn = 0x10,
    PreLogIn = 0x12,
};

/// A whole message of the client.
struct TdsMessage
{
    MessageType type;
    QByteArray data;
};

/// Collects the bytes of one connection into messages.
class PacketReader
{
public:
    void Take(const QByteArray& bytes) { buffer_ += bytes; }

    /// The next whole message; none as long as bytes are missing.
    std::optional<TdsMessage> Next();

    /// True when these bytes are no packets.
    bool IsBroken() const { return isBroken_; }

private:
    QByteArray buffer_;
    QByteArray data_; ///< of the message that has begun
    bool isBroken_ = false;
};

inline constexpr int DefaultPacketSize = 4096;

/// An answer in packets of at most `packetSize` bytes, their headers included.
QByteArray AnswerPackets(const QByteArray& data, int packetSize);

} // namespace tsms::test

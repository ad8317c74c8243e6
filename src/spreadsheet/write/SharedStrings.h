#pragma once

#include <QStringView>
#include <QtGlobal>

#include <memory>
#include <vector>

namespace tsms {

class BiffStream;

/// The texts of a workbook, each kept once: the shared string table of [MS-XLS] 2.4.265. A text is kept as it
/// goes out, with 8 bits a character where Latin-1 holds it.
class SharedStrings
{
public:
    /// The number of a text of at most 65,535 units in the table, from 0. Raises 6 when the table would be
    /// larger than a file can be.
    quint32 Add(QStringView text);

    quint32 Count() const { return static_cast<quint32>(places_.size()); } ///< different texts

    /// The table, over as many records as it takes, and the index of its parts behind it.
    void Write(BiffStream& stream) const;

private:
    /// The texts stand one behind the other in pieces of this size, none of them over an edge.
    static constexpr int PieceBits = 20;
    static constexpr quint32 PieceSize = 1u << PieceBits;

    struct Slot
    {
        quint32 hash = 0;
        quint32 number = 0; ///< of a text, from 1; 0: free
    };

    char* RoomFor(std::size_t bytes);
    const char* Entry(quint32 number) const;
    Slot& FindSlot(quint32 hash, const char* entry, std::size_t size);
    void GrowSlots();

    std::vector<std::unique_ptr<char[]>> pieces_;
    quint32 used_ = PieceSize;    ///< of the last piece
    std::vector<quint32> places_; ///< of each text: its piece, and where in it
    std::vector<Slot> slots_;     ///< by hash, with open addressing
    quint32 uses_ = 0;            ///< calls of Add
};

} // namespace tsms

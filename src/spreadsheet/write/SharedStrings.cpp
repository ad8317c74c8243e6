#include "spreadsheet/write/SharedStrings.h"

#include "runtime/RuntimeError.h"
#include "spreadsheet/write/BiffStream.h"
#include "spreadsheet/write/CompoundFile.h"

#include <QHashFunctions>
#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace tsms {

namespace {

// An entry is a head and the characters: [MS-XLS] 2.5.293 without formats and phonetic text.
constexpr std::size_t EntryHead = 3;     // a length of 16 bits, and the flags
constexpr int LeastRoom = EntryHead + 4; // for a head and a character, which may be a surrogate pair
constexpr char WideFlag = 1;             // the flag for 16 bits a character

std::size_t LengthOf(const char* entry)
{
    return qFromLittleEndian<quint16>(entry);
}

std::size_t UnitOf(const char* entry)
{
    return entry[2] == WideFlag ? 2 : 1;
}

std::size_t SizeOf(const char* entry)
{
    return EntryHead + LengthOf(entry) * UnitOf(entry);
}

bool IsLatin1(QStringView text)
{
    char16_t all = 0;
    for (const QChar c : text)
        all |= c.unicode();
    return all <= 0xFF;
}

void Encode(QStringView text, char* entry)
{
    qToLittleEndian(static_cast<quint16>(text.size()), entry);
    char* characters = entry + EntryHead;
    if (IsLatin1(text)) {
        entry[2] = 0;
        for (const QChar c : text)
            *characters++ = static_cast<char>(c.unicode());
    } else {
        entry[2] = WideFlag;
        qToLittleEndian<quint16>(text.utf16(), text.size(), characters);
    }
}

void Continue(BiffStream& stream)
{
    stream.End();
    stream.Begin(BiffRecord::Continue);
}

/// How many of `left` bytes of characters a record with that room takes. A surrogate pair is not divided:
/// the format does not mind, readers do.
std::size_t FittingBytes(const char* characters, std::size_t left, std::size_t room, std::size_t unit)
{
    if (left <= room)
        return left;
    const std::size_t fitting = room / unit * unit;
    const bool dividesPair =
        unit == 2 && QChar::isHighSurrogate(qFromLittleEndian<quint16>(characters + fitting - 2));
    return dividesPair ? fitting - 2 : fitting;
}

/// The head and the first character share a record; the others may go on in the next, which then begins with
/// the flags once more.
void WriteEntry(BiffStream& stream, const char* entry)
{
    const std::size_t unit = UnitOf(entry);
    const char* characters = entry + EntryHead;
    std::size_t left = LengthOf(entry) * unit;
    stream.Bytes(entry, EntryHead);
    for (;;) {
        const std::size_t part =
            FittingBytes(characters, left, static_cast<std::size_t>(stream.Room()), unit);
        stream.Bytes(characters, static_cast<qsizetype>(part));
        characters += part;
        left -= part;
        if (left == 0)
            return;
        Continue(stream);
        stream.U8(static_cast<quint8>(entry[2]));
    }
}

/// Where a part of the table begins: [MS-XLS] 2.5.167.
struct Part
{
    quint32 position;
    quint16 recordOffset;
};

/// At most 128 parts of at least 8 texts; parts cannot be larger than 65,535 texts, so a huge table has more.
quint32 TextsInPart(quint32 texts)
{
    return std::clamp<quint32>((texts + 127) / 128, 8, 0xFFFF);
}

void WriteIndex(BiffStream& stream, quint32 textsInPart, const std::vector<Part>& parts)
{
    stream.Begin(BiffRecord::ExtSST);
    stream.U16(static_cast<quint16>(textsInPart));
    for (const Part& part : parts) {
        stream.U32(part.position);
        stream.U16(part.recordOffset);
        stream.U16(0);
    }
    stream.End();
}

} // namespace

quint32 SharedStrings::Add(QStringView text)
{
    ++uses_;
    if (4 * (places_.size() + 1) > 3 * slots_.size())
        GrowSlots();
    char* entry = RoomFor(EntryHead + 2 * static_cast<std::size_t>(text.size()));
    Encode(text, entry);
    const std::size_t size = SizeOf(entry);
    const auto hash = static_cast<quint32>(qHashBits(entry, size));
    Slot& slot = FindSlot(hash, entry, size);
    if (slot.number != 0)
        return slot.number - 1;
    places_.push_back((static_cast<quint32>(pieces_.size() - 1) << PieceBits) | used_);
    used_ += static_cast<quint32>(size);
    slot = {hash, Count()};
    return Count() - 1;
}

char* SharedStrings::RoomFor(std::size_t bytes)
{
    if (used_ + bytes > PieceSize) {
        if (pieces_.size() == CompoundFile::MaxStream >> PieceBits)
            throw FileTooLarge();
        pieces_.emplace_back(new char[PieceSize]);
        used_ = 0;
    }
    return pieces_.back().get() + used_;
}

const char* SharedStrings::Entry(quint32 number) const
{
    const quint32 place = places_[number];
    return pieces_[place >> PieceBits].get() + (place & (PieceSize - 1));
}

SharedStrings::Slot& SharedStrings::FindSlot(quint32 hash, const char* entry, std::size_t size)
{
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        Slot& slot = slots_[at];
        if (slot.number == 0)
            return slot;
        const char* other = Entry(slot.number - 1);
        if (slot.hash == hash && SizeOf(other) == size && std::memcmp(other, entry, size) == 0)
            return slot;
    }
}

void SharedStrings::GrowSlots()
{
    std::vector<Slot> former(std::max<std::size_t>(1024, 2 * slots_.size()));
    former.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : former) {
        if (slot.number == 0)
            continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].number != 0)
            at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

void SharedStrings::Write(BiffStream& stream) const
{
    const quint32 textsInPart = TextsInPart(Count());
    std::vector<Part> parts;
    stream.Begin(BiffRecord::SST);
    stream.U32(uses_);
    stream.U32(Count());
    for (quint32 number = 0; number < Count(); ++number) {
        const char* entry = Entry(number);
        if (stream.Room() < LeastRoom)
            Continue(stream);
        if (number % textsInPart == 0)
            parts.push_back({stream.Position(), static_cast<quint16>(stream.RecordOffset())});
        WriteEntry(stream, entry);
    }
    stream.End();
    WriteIndex(stream, textsInPart, parts);
}

} // namespace tsms

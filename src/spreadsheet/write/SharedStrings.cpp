#include "spreadsheet/write/SharedStrings.h"

#include "spreadsheet/write/BiffStream.h"
#include "spreadsheet/write/CompoundFile.h"

#include <QtEndian>

#include <algorithm>

namespace tsms {

namespace {

// An entry is a head and the characters: [MS-XLS] 2.5.293 without formats and phonetic text.
constexpr std::size_t EntryHead = 3;     // a length of 16 bits, and the flags
constexpr int LeastRoom = EntryHead + 4; // for a head and a character, which may be a surrogate pair
constexpr char WideFlag = 1;             // the flag for 16 bits a character

bool IsLatin1(QStringView text)
{
    char16_t all = 0;
    for (const QChar c : text)
        all |= c.unicode();
    return all <= 0xFF;
}

/// Lays the entry of a text into `entry`, which grows to what it needs.
std::string_view Encode(QStringView text, std::vector<char>& entry)
{
    const bool wide = !IsLatin1(text);
    const std::size_t size = EntryHead + (wide ? 2U : 1U) * static_cast<std::size_t>(text.size());
    if (entry.size() < size)
        entry.resize(size);
    qToLittleEndian(static_cast<quint16>(text.size()), entry.data());
    entry[2] = wide ? WideFlag : 0;
    char* characters = entry.data() + EntryHead;
    if (wide)
        qToLittleEndian<quint16>(text.utf16(), text.size(), characters);
    else
        for (const QChar c : text)
            *characters++ = static_cast<char>(c.unicode());
    return {entry.data(), size};
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
void WriteEntry(BiffStream& stream, std::string_view entry)
{
    const std::size_t unit = entry[2] == WideFlag ? 2 : 1;
    const char* characters = entry.data() + EntryHead;
    std::size_t left = entry.size() - EntryHead;
    stream.Bytes(entry.data(), EntryHead);
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
    const Entry entry{Encode(text, entry_)};
    if (const auto known = numbers_.constFind(entry); known != numbers_.cend())
        return *known;
    bytes_ += entry.bytes.size();
    if (bytes_ > CompoundFile::MaxStream)
        throw FileTooLarge();
    char* place = static_cast<char*>(memory_.allocate(entry.bytes.size(), 1));
    entry.bytes.copy(place, entry.bytes.size());
    texts_.push_back({{place, entry.bytes.size()}});
    numbers_.insert(texts_.back(), Count() - 1);
    return Count() - 1;
}

void SharedStrings::Write(BiffStream& stream) const
{
    const quint32 textsInPart = TextsInPart(Count());
    std::vector<Part> parts;
    stream.Begin(BiffRecord::SST);
    stream.U32(uses_);
    stream.U32(Count());
    for (quint32 number = 0; number < Count(); ++number) {
        const std::string_view entry = texts_[number].bytes;
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

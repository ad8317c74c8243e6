#include "runtime/CodePage949.h"

#include "runtime/CodePageConverter.h"
#include "runtime/CodePages.h"
#include "runtime/Text.h"

#include <algorithm>
#include <array>

namespace tsms {

namespace {

CodePageConverter& Encoder()
{
    thread_local CodePageConverter encoder(CodePageConverter::Direction::Encode, KoreanCodePage);
    return encoder;
}

CodePageConverter& Decoder()
{
    thread_local CodePageConverter decoder(CodePageConverter::Direction::Decode, KoreanCodePage);
    return decoder;
}

/// Decodes up to the first byte that begins no character, or all, and gives the number of characters.
qsizetype Decode(const char* from, const char* end, char16_t* to)
{
    std::size_t inLeft = static_cast<std::size_t>(end - from);
    char* out = reinterpret_cast<char*>(to);
    std::size_t outLeft = inLeft * sizeof(char16_t);
    Decoder().Convert(from, inLeft, out, outLeft);
    return reinterpret_cast<char16_t*>(out) - to;
}

/// Where so many characters end: one is of two bytes unless it is ASCII. The decoder itself cannot be asked
/// for that: glibc's takes both bytes of A2 E8 before it refuses them, and none of other bytes that it
/// refuses.
const char* Behind(qsizetype characters, const char* from)
{
    for (; characters > 0; --characters)
        from += (*from & 0x80) != 0 ? 2 : 1;
    return from;
}

/// How many of the bytes one U+FFFD stands for where no character begins.
qsizetype ReplacedBytes(const char* from, const char* end)
{
    return QByteArrayView(from, end).startsWith("\xA2\xE8") ? 2 : 1;
}

/// How many bytes one UTF-16 unit takes.
int UnitBytes(char16_t unit)
{
    if (unit < 0x80)
        return 1;
    const char* in = reinterpret_cast<const char*>(&unit);
    std::size_t inLeft = sizeof unit;
    std::array<char, 8> buffer{};
    char* out = buffer.data();
    std::size_t outLeft = buffer.size();
    if (!Encoder().Convert(in, inLeft, out, outLeft))
        return 1; // the "?"
    return static_cast<int>(buffer.size() - outLeft);
}

bool IsBreakPair(QStringView text, qsizetype at)
{
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

bool IsSurrogatePair(QStringView text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
}

bool IsSurrogate(QChar unit)
{
    return unit.isSurrogate();
}

bool IsAscii(QChar unit)
{
    return unit < u'\x80';
}

} // namespace

QByteArray ToCodePage949(QStringView text)
{
    if (std::all_of(text.begin(), text.end(), IsAscii))
        return text.toLatin1(); // the platform's table, several files of it, is not even loaded
    if (std::any_of(text.begin(), text.end(), IsSurrogate)) {
        // Nothing outside the basic plane has a code; glibc's encoder drops the tags there without a word.
        QString plain = text.toString();
        std::replace_if(plain.begin(), plain.end(), IsSurrogate, u'?');
        return ToCodePage949(plain);
    }
    QByteArray bytes(2 * text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    std::size_t outLeft = static_cast<std::size_t>(bytes.size());
    const char* in = reinterpret_cast<const char*>(text.utf16());
    std::size_t inLeft = static_cast<std::size_t>(text.size()) * sizeof(char16_t);
    while (inLeft > 0 && !Encoder().Convert(in, inLeft, out, outLeft)) {
        *out++ = '?';
        --outLeft;
        in += sizeof(char16_t);
        inLeft -= sizeof(char16_t);
    }
    bytes.truncate(out - bytes.data());
    return bytes;
}

QString FromCodePage949(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized); // no character has more units than bytes
    char16_t* const begin = reinterpret_cast<char16_t*>(text.data());
    char16_t* to = begin;
    const char* const end = bytes.constData() + bytes.size();
    const char* from = std::find_if(bytes.constData(), end, [](char byte) { return (byte & 0x80) != 0; });
    to = std::copy(bytes.constData(), from, to); // ASCII, as many texts are altogether
    while (from < end) {
        const qsizetype characters = Decode(from, end, to);
        from = Behind(characters, from);
        to += characters; // one unit each
        if (from < end) {
            *to++ = u'\xFFFD';
            from += ReplacedBytes(from, end);
        }
    }
    text.truncate(to - begin);
    return text;
}

int MessageBytes(QStringView text)
{
    qsizetype breaks = 0;
    for (qsizetype i = 0; i < text.size(); ++i)
        if (IsBreakPair(text, i))
            ++breaks;
    return static_cast<int>(ToCodePage949(text).size() - breaks);
}

int ByteCount(QStringView text)
{
    return IsBlank(text) ? 0 : MessageBytes(text);
}

qsizetype FittingLength(QStringView text, int limit)
{
    int used = 0;
    for (qsizetype i = 0; i < text.size();) {
        int bytes = 0;
        qsizetype units = 1;
        if (IsBreakPair(text, i)) {
            bytes = 1;
            units = 2;
        } else if (IsSurrogatePair(text, i)) {
            bytes = 2;
            units = 2;
        } else {
            bytes = UnitBytes(text[i].unicode());
        }
        if (used + bytes > limit)
            return i;
        used += bytes;
        i += units;
    }
    return text.size();
}

} // namespace tsms

#include "store/embedded/KoreanCollation.h"

#include <QChar>

#include <cstdint>

namespace tsms {

namespace {

constexpr char32_t BrokenByte = 0xFFFD;
constexpr std::uint32_t EndWeight = 0; ///< below that of every character but U+0000

/// Takes one character off the front of a UTF-8 text that is not empty.
char32_t TakeCharacter(std::string_view& text)
{
    const auto byte = [&text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) {
        text.remove_prefix(1);
        return lead;
    }
    const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < size) {
        text.remove_prefix(1);
        return BrokenByte;
    }
    char32_t code = lead & (0xFFU >> (size + 1));
    for (std::size_t at = 1; at < size; ++at) {
        if ((byte(at) & 0xC0) != 0x80) {
            text.remove_prefix(1);
            return BrokenByte;
        }
        code = (code << 6) | (byte(at) & 0x3FU);
    }
    text.remove_prefix(size);
    return code;
}

/// The one form of the characters that differ by case or width only.
char32_t Folded(char32_t code)
{
    if (code >= 0xFF01 && code <= 0xFF5E)
        code -= 0xFEE0;
    else if (code == 0x3000)
        code = U' ';
    if (code < 0x80)
        return code >= U'a' && code <= U'z' ? code - 0x20 : code;
    return code < 0x3000 ? QChar::toUpper(code) : code;
}

/// The characters that count only where texts are otherwise the same.
bool IsMinor(char32_t code)
{
    return code == U'-' || code == U'\'';
}

std::uint32_t ClassOf(char32_t code)
{
    if (code < 0x80)
        return code >= U'A' && code <= U'Z' ? 2 : code >= U'0' && code <= U'9' ? 1 : 0;
    return QChar::isLetterOrNumber(code) ? 3 : 0;
}

std::uint32_t Weight(char32_t code)
{
    return ClassOf(code) << 24 | static_cast<std::uint32_t>(code);
}

std::string_view WithoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// The weight of the next character that is not minor, EndWeight at the end.
std::uint32_t TakeWeight(std::string_view& text)
{
    while (!text.empty()) {
        const char32_t code = Folded(TakeCharacter(text));
        if (!IsMinor(code))
            return Weight(code);
    }
    return EndWeight;
}

/// Takes the minor characters in front of the next plain one, and that one.
std::u32string TakeMinors(std::string_view& text)
{
    std::u32string minors;
    while (!text.empty()) {
        const char32_t code = Folded(TakeCharacter(text));
        if (!IsMinor(code))
            break;
        minors += code;
    }
    return minors;
}

/// Compares texts that are the same but for their minor characters.
int CompareMinors(std::string_view a, std::string_view b)
{
    while (!a.empty() || !b.empty())
        if (const int order = TakeMinors(a).compare(TakeMinors(b)); order != 0)
            return order;
    return 0;
}

void Decode(std::string_view text, std::u32string& into)
{
    into.clear();
    while (!text.empty())
        into += Folded(TakeCharacter(text));
}

/// A set of LIKE, "[a-z]" or "[^a-z]", from behind its bracket. Moves `at` behind it.
bool IsInSet(std::u32string_view pattern, std::size_t& at, char32_t code)
{
    const bool inverted = at < pattern.size() && pattern[at] == U'^';
    if (inverted)
        ++at;
    bool found = false;
    for (bool first = true; at < pattern.size() && (first || pattern[at] != U']'); first = false) {
        const char32_t from = pattern[at++];
        char32_t to = from;
        if (at + 1 < pattern.size() && pattern[at] == U'-' && pattern[at + 1] != U']') {
            to = pattern[at + 1];
            at += 2;
        }
        found = found || (Weight(code) >= Weight(from) && Weight(code) <= Weight(to));
    }
    ++at;
    return found != inverted;
}

/// One step of LIKE: does the character fit the pattern at `at`? Moves `at` behind what it read.
bool Fits(std::u32string_view pattern, std::size_t& at, char32_t code)
{
    const char32_t sign = pattern[at++];
    if (sign == U'_')
        return true;
    if (sign == U'[')
        return IsInSet(pattern, at, code);
    return sign == code;
}

} // namespace

int CompareKorean(std::string_view a, std::string_view b)
{
    if (a == b)
        return 0; // as most texts of a column are that are grouped or looked up
    a = WithoutTrailingBlanks(a);
    b = WithoutTrailingBlanks(b);
    std::string_view restA = a;
    std::string_view restB = b;
    while (true) {
        const std::uint32_t weightA = TakeWeight(restA);
        const std::uint32_t weightB = TakeWeight(restB);
        if (weightA != weightB)
            return weightA < weightB ? -1 : 1;
        if (weightA == EndWeight)
            return CompareMinors(a, b);
    }
}

bool LikeKorean(std::string_view text, std::string_view pattern)
{
    constexpr std::size_t none = std::u32string::npos;
    thread_local std::u32string characters;
    thread_local std::u32string signs;
    Decode(text, characters);
    Decode(pattern, signs);
    std::size_t retrySign = none;
    std::size_t retryText = 0;
    std::size_t sign = 0;
    std::size_t at = 0;
    while (at < characters.size()) {
        if (sign < signs.size() && signs[sign] == U'%') {
            retrySign = ++sign;
            retryText = at;
        } else if (sign < signs.size() && Fits(signs, sign, characters[at])) {
            ++at;
        } else if (retrySign != none) {
            sign = retrySign;
            at = ++retryText;
        } else {
            return false;
        }
    }
    while (sign < signs.size() && signs[sign] == U'%')
        ++sign;
    return sign == signs.size();
}

} // namespace tsms

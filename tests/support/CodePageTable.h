#pragma once

#include <QByteArray>
#include <QString>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <iconv.h>
#endif

#include <array>
#include <optional>

namespace tsms::test {

/// One character in another encoding, by the platform's own table: each by a conversion that begins afresh,
/// ends with it and has room to spare. Nothing where the platform refuses it.
#ifdef Q_OS_WIN
inline std::optional<QByteArray> OneConverted(const char* to, const char*, QByteArray character)
{
    constexpr UINT page = 949;
    const auto byte = [&character](int at) {
        return static_cast<wchar_t>(static_cast<unsigned char>(character[at]));
    };
    // Its C1 controls and characters of private use are single bytes that mean nothing.
    const auto meansNothing = [](wchar_t unit) { return (unit >= 0x80 && unit < 0xA0) || unit >= 0xE000; };
    if (qstrcmp(to, "CP949") == 0) {
        const wchar_t unit = static_cast<wchar_t>(byte(0) << 8 | byte(1));
        std::array<char, 2> bytes{};
        BOOL isReplaced = FALSE;
        const int size =
            WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes.data(), 2, nullptr, &isReplaced);
        const bool isTaken = size > 0 && !isReplaced && !(size == 1 && meansNothing(unit));
        return isTaken ? std::optional(QByteArray(bytes.data(), size)) : std::nullopt;
    }
    wchar_t unit = 0;
    const int size = static_cast<int>(character.size());
    const bool isTaken =
        MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, character.constData(), size, &unit, 1) == 1 &&
        !(size == 1 && meansNothing(unit));
    const char units[] = {static_cast<char>(unit >> 8), static_cast<char>(unit)};
    return isTaken ? std::optional(QByteArray(units, 2)) : std::nullopt;
}
#else
inline std::optional<QByteArray> OneConverted(const char* to, const char* from, QByteArray character)
{
    const iconv_t handle = iconv_open(to, from);
    std::array<char, 64> room{};
    char* in = character.data();
    char* out = room.data();
    std::size_t inLeft = static_cast<std::size_t>(character.size());
    std::size_t outLeft = room.size();
    const bool isTaken = iconv(handle, &in, &inLeft, &out, &outLeft) == 0 && inLeft == 0;
    iconv_close(handle);
    return isTaken ? std::optional(QByteArray(room.data(), out - room.data())) : std::nullopt;
}
#endif

/// What each byte and each pair of bytes of code page 949 stands for, and a decoder by that table.
class CodePageTable
{
public:
    static const CodePageTable& Get()
    {
        static const CodePageTable table;
        return table;
    }

    int Pairs() const { return pairCount_; }

    /// A byte that begins no character becomes one U+FFFD, and so does the pair A2 E8 if it has no character.
    QString TextOf(const QByteArray& bytes) const
    {
        QString text;
        for (qsizetype at = 0; at < bytes.size();) {
            const unsigned int lead = static_cast<unsigned char>(bytes[at]);
            const unsigned int next = at + 1 < bytes.size() ? static_cast<unsigned char>(bytes[at + 1]) : 0;
            const unsigned int pair = lead << 8 | next;
            const char16_t unit = bytes_[lead] != None ? bytes_[lead] : pairs_[pair];
            text += QChar(unit);
            at += bytes_[lead] == None && (unit != None || pair == 0xA2E8) ? 2 : 1;
        }
        return text;
    }

private:
    static constexpr char16_t None = u'\xFFFD';

    CodePageTable()
    {
        pairs_.fill(None);
        for (unsigned int value = 0; value < 0x100; ++value)
            bytes_[value] = UnitOf(QByteArray(1, static_cast<char>(value)));
        for (unsigned int value = 0x8000; value < 0x10000; ++value) {
            pairs_[value] = UnitOf(QByteArray(1, static_cast<char>(value >> 8)) + static_cast<char>(value));
            pairCount_ += pairs_[value] != None ? 1 : 0;
        }
    }

    static char16_t UnitOf(const QByteArray& bytes)
    {
        const std::optional<QByteArray> unit = OneConverted("UTF-16BE", "CP949", bytes);
        if (!unit || unit->size() != 2)
            return None;
        return static_cast<char16_t>(static_cast<unsigned char>(unit->at(0)) << 8 |
                                     static_cast<unsigned char>(unit->at(1)));
    }

    std::array<char16_t, 0x100> bytes_{};
    std::array<char16_t, 0x10000> pairs_{};
    int pairCount_ = 0;
};

} // namespace tsms::test

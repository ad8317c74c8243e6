#include "runtime/CodePages.h"

#include "runtime/CodePage949.h"
#include "runtime/CodePageConverter.h"

#include <array>
#include <map>
#include <memory>
#include <utility>

namespace tsms {

namespace {

constexpr char16_t NoCharacter = 0xFFFF;

/// The characters of a code page. The platform is asked for each of them once and alone, so that it does not
/// matter what its decoder takes of bytes that are none.
class CodePageTable
{
public:
    explicit CodePageTable(int number)
    {
        CodePageConverter decoder(CodePageConverter::Direction::Decode, number);
        for (std::size_t first = 0; first < singles_.size(); ++first) {
            singles_[first] = Character(decoder, QByteArray(1, static_cast<char>(first)));
            if (singles_[first] == NoCharacter)
                AddPairs(decoder, first);
        }
    }

    QString Text(QByteArrayView bytes) const
    {
        QString text(bytes.size(), Qt::Uninitialized); // no character has more units than bytes
        qsizetype units = 0;
        for (qsizetype at = 0; at < bytes.size();) {
            const auto first = static_cast<quint8>(bytes[at++]);
            char16_t character = singles_[first];
            if (character == NoCharacter && pairs_[first] && at < bytes.size()) {
                character = (*pairs_[first])[static_cast<quint8>(bytes[at])];
                if (character != NoCharacter)
                    ++at;
            }
            text[units++] = character != NoCharacter ? QChar(character) : QChar(QChar::ReplacementCharacter);
        }
        text.truncate(units);
        return text;
    }

private:
    using Row = std::array<char16_t, 256>;

    /// The one character that these bytes are.
    static char16_t Character(CodePageConverter& decoder, const QByteArray& bytes)
    {
        const QByteArray closed = bytes + '\0'; // some decoders keep a letter back until another one comes
        std::array<char16_t, 4> units{};
        const char* in = closed.constData();
        auto inLeft = static_cast<std::size_t>(closed.size());
        char* out = reinterpret_cast<char*>(units.data());
        std::size_t outLeft = sizeof units;
        const bool isWhole = decoder.Convert(in, inLeft, out, outLeft);
        const bool isOne = sizeof units - outLeft == 2 * sizeof(char16_t) && units[1] == 0;
        return isWhole && isOne ? units[0] : NoCharacter;
    }

    void AddPairs(CodePageConverter& decoder, std::size_t first)
    {
        auto row = std::make_unique<Row>();
        bool hasOne = false;
        for (std::size_t second = 0; second < row->size(); ++second) {
            const char pair[] = {static_cast<char>(first), static_cast<char>(second)};
            (*row)[second] = Character(decoder, QByteArray(pair, sizeof pair));
            hasOne = hasOne || (*row)[second] != NoCharacter;
        }
        if (hasOne)
            pairs_[first] = std::move(row);
    }

    Row singles_{};
    std::array<std::unique_ptr<Row>, 256> pairs_; // of the bytes that begin pairs
};

} // namespace

bool IsCodePage(int number)
{
    switch (number) {
    case 874:
    case 932:
    case 936:
    case KoreanCodePage:
    case 950:
    case 1361:
        return true;
    default:
        return number >= 1250 && number <= 1258;
    }
}

QString FromCodePage(QByteArrayView bytes, int number)
{
    if (number == KoreanCodePage)
        return FromCodePage949(bytes.toByteArray());
    thread_local std::map<int, CodePageTable> tables; // made when they are first needed
    return tables.try_emplace(number, number).first->second.Text(bytes);
}

} // namespace tsms

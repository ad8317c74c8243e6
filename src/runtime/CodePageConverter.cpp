#include "runtime/CodePageConverter.h"

#include <QByteArray>

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <cstring>
#endif

namespace tsms {

#ifdef Q_OS_WIN

namespace {

/// What one step of a conversion has taken and given; nothing where no character begins.
struct Step
{
    std::size_t taken = 0;
    std::size_t given = 0;
};

/// Windows gives single bytes that stand for nothing a control character or one of private use.
bool StandsForNothing(char16_t unit)
{
    return (unit >= 0x80 && unit < 0xA0) || (unit >= 0xE000 && unit < 0xF900);
}

Step DecodeOne(unsigned int codePage, const char* in, std::size_t inLeft, char* out, std::size_t outLeft)
{
    const std::size_t size = IsDBCSLeadByteEx(codePage, static_cast<BYTE>(*in)) ? 2 : 1;
    wchar_t units[2] = {};
    if (size > inLeft || outLeft < sizeof units[0] ||
        MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, in, static_cast<int>(size), units, 2) != 1 ||
        (size == 1 && StandsForNothing(units[0])))
        return {};
    std::memcpy(out, units, sizeof units[0]);
    return {size, sizeof units[0]};
}

Step EncodeOne(unsigned int codePage, const char* in, std::size_t inLeft, char* out, std::size_t outLeft)
{
    wchar_t unit = 0;
    if (inLeft < sizeof unit)
        return {};
    std::memcpy(&unit, in, sizeof unit);
    char bytes[2] = {};
    BOOL replaced = FALSE;
    const int size = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, sizeof bytes,
                                         nullptr, &replaced);
    if (size < 1 || replaced || static_cast<std::size_t>(size) > outLeft ||
        (size == 1 && StandsForNothing(unit)))
        return {};
    std::memcpy(out, bytes, static_cast<std::size_t>(size));
    return {sizeof unit, static_cast<std::size_t>(size)};
}

} // namespace

CodePageConverter::CodePageConverter(Direction direction, int codePage)
    : direction_(direction), codePage_(static_cast<unsigned int>(codePage))
{
}

CodePageConverter::~CodePageConverter() = default;

bool CodePageConverter::Convert(const char*& in, std::size_t& inLeft, char*& out, std::size_t& outLeft)
{
    const auto convertOne = direction_ == Direction::Decode ? DecodeOne : EncodeOne;
    while (inLeft > 0) {
        const Step step = convertOne(codePage_, in, inLeft, out, outLeft);
        if (step.taken == 0)
            return false;
        in += step.taken;
        inLeft -= step.taken;
        out += step.given;
        outLeft -= step.given;
    }
    return true;
}

#else

namespace {

iconv_t OpenIconv(CodePageConverter::Direction direction, int codePage)
{
    const QByteArray page = "CP" + QByteArray::number(codePage);
    const char* const utf16 = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE";
    return direction == CodePageConverter::Direction::Decode ? iconv_open(utf16, page.constData())
                                                             : iconv_open(page.constData(), utf16);
}

} // namespace

CodePageConverter::CodePageConverter(Direction direction, int codePage)
    : handle_(OpenIconv(direction, codePage))
{
}

CodePageConverter::~CodePageConverter()
{
    if (handle_ != reinterpret_cast<iconv_t>(-1)) // NOLINT(performance-no-int-to-ptr): iconv's own sign
        iconv_close(handle_);
}

bool CodePageConverter::Convert(const char*& in, std::size_t& inLeft, char*& out, std::size_t& outLeft)
{
    char* source = const_cast<char*>(in); // iconv takes a pointer to char but does not write through it
    const std::size_t result = iconv(handle_, &source, &inLeft, &out, &outLeft);
    in = source;
    return result != static_cast<std::size_t>(-1);
}

#endif

} // namespace tsms

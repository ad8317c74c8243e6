#pragma once

#include <QtGlobal>

#include <cstddef>

#ifndef Q_OS_WIN
#include <iconv.h>
#endif

namespace tsms {

/// One direction of the platform's conversion between a code page, by its number in Windows, and UTF-16 in
/// the machine's byte order. To be made once and kept. With a code page that the platform does not know it
/// converts nothing.
class CodePageConverter
{
public:
    enum class Direction { Decode, Encode }; ///< to UTF-16, and from it

    CodePageConverter(Direction direction, int codePage);
    ~CodePageConverter();
    CodePageConverter(const CodePageConverter&) = delete;
    CodePageConverter& operator=(const CodePageConverter&) = delete;

    /// Converts as much as it can. On return `in` stands behind what was taken; true when all of it was.
    bool Convert(const char*& in, std::size_t& inLeft, char*& out, std::size_t& outLeft);

private:
#ifdef Q_OS_WIN
    Direction direction_;
    unsigned int codePage_;
#else
    iconv_t handle_;
#endif
};

} // namespace tsms

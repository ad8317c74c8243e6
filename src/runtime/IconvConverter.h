#pragma once

#include <QtGlobal>

#include <iconv.h>

#include <cstddef>

namespace tsms {

inline constexpr const char* NativeUtf16 = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE";

/// One direction of the platform's conversion, by the names of iconv. To be opened once and kept.
class IconvConverter
{
public:
    IconvConverter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~IconvConverter()
    {
        if (IsOpen())
            iconv_close(handle_);
    }
    IconvConverter(const IconvConverter&) = delete;
    IconvConverter& operator=(const IconvConverter&) = delete;

    bool IsOpen() const
    {
        return handle_ !=
               reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr): iconv's own sign
    }

    /// Converts as much as it can. On return `in` stands behind what was taken; true when all of it was.
    bool Convert(const char*& in, std::size_t& inLeft, char*& out, std::size_t& outLeft)
    {
        char* source = const_cast<char*>(in); // iconv takes a pointer to char but does not write through it
        const std::size_t result = iconv(handle_, &source, &inLeft, &out, &outLeft);
        in = source;
        return result != static_cast<std::size_t>(-1);
    }

private:
    iconv_t handle_;
};

} // namespace tsms

// Hands what libFuzzer makes up to the one target of this program.
#include "fuzz/Target.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tsms::test::Target::All().front().Read(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}

#include "runtime/WideRegisters.h"

#if defined(__GNUC__) && defined(__x86_64__)
#include <immintrin.h>
#endif

namespace tsms {

#if defined(__GNUC__) && defined(__x86_64__)

namespace {

__attribute__((target("avx"))) void ZeroUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace

void ReleaseWideRegisters()
{
    static const bool hasThem = __builtin_cpu_supports("avx");
    if (hasThem)
        ZeroUpperHalves();
}

#else

void ReleaseWideRegisters() {}

#endif

} // namespace tsms

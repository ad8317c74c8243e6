#include "runtime/VectorRegisters.h"

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace tsms {

#ifdef __x86_64__
namespace {

[[gnu::target("avx")]] void ClearUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace

void ReleaseVectorRegisters()
{
    if (__builtin_cpu_supports("avx"))
        ClearUpperHalves();
}
#else
void ReleaseVectorRegisters() {}
#endif

} // namespace tsms

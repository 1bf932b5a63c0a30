#include "stripchart/logic/tcWideRegisters.h"

#if defined(__GNUC__) && defined(__x86_64__)
#include <immintrin.h>

namespace
{

/// Compiled for processors with AVX, whatever the rest is compiled for.
__attribute__((target("avx"))) void zeroUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace

void tcWideRegisters::release()
{
    if (__builtin_cpu_supports("avx"))
        zeroUpperHalves();
}
#else
void tcWideRegisters::release() { }
#endif

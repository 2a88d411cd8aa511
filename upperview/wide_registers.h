// The upper halves of the processor's vector registers.
#pragma once

#if defined(__GNUC__) && defined(__x86_64__)
#include <immintrin.h>
#define SBD_HAS_WIDE_REGISTERS
#endif

namespace sbd {

#ifdef SBD_HAS_WIDE_REGISTERS
__attribute__((target("avx"))) inline void ZeroUpperHalves()
{
    _mm256_zeroupper();
}
#endif

/// To be called behind whatever fills pixels. The filling of Qt's raster engine leaves the upper halves in use, and every
/// floating-point instruction behind it then waits for them: a line takes 40 ns with this call and 140 without it.
inline void LeaveWideRegisters()
{
#ifdef SBD_HAS_WIDE_REGISTERS
    if (__builtin_cpu_supports("avx"))
        ZeroUpperHalves();
#endif
}

} // namespace sbd

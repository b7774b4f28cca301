#include "dsp/InstructionSet.h"

#include <atomic>

#if defined(_MSC_VER) && defined(_M_X64)
#include <immintrin.h>
#include <intrin.h>
#endif

namespace {

#if defined(__x86_64__)
bool hasAvx2()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
}
#elif defined(_MSC_VER) && defined(_M_X64)
bool hasAvx2()
{
    int words[4];
    __cpuid(words, 1);
    const bool fma = (words[2] & (1 << 12)) != 0;
    const bool saves = (words[2] & (1 << 27)) != 0 && (words[2] & (1 << 28)) != 0;
    // The operating system has to keep the upper register halves too.
    if (!fma || !saves || (_xgetbv(0) & 6) != 6)
        return false;
    __cpuidex(words, 7, 0);
    return (words[1] & (1 << 5)) != 0;
}
#endif

InstructionSet detect()
{
#if defined(__x86_64__) || (defined(_MSC_VER) && defined(_M_X64))
    return hasAvx2() ? InstructionSet::Avx2 : InstructionSet::Sse2;
#else
    return InstructionSet::Portable;
#endif
}

std::atomic<InstructionSet>& active()
{
    static std::atomic<InstructionSet> set{bestInstructionSet()};
    return set;
}

} // namespace

InstructionSet bestInstructionSet()
{
    static const InstructionSet best = detect();
    return best;
}

InstructionSet activeInstructionSet()
{
    return active().load(std::memory_order_relaxed);
}

void useInstructionSet(InstructionSet set)
{
    const InstructionSet best = bestInstructionSet();
    const bool lacking = static_cast<int>(set) > static_cast<int>(best);
    active().store(lacking ? best : set, std::memory_order_relaxed);
}

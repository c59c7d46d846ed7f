#include "regex/CacheSpinLock.h"

#include "regex/Bookkeeping.h"

#include <thread>

namespace zolt {

namespace {

constexpr int spinsBeforeYield = 64;

inline void pauseSpinning()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

} // namespace

void CacheSpinLock::spin()
{
    RKL_REQUIRE(!isHeldByCaller());
    for (int spins = 1; isHeld() || !tryLock(); ++spins) {
        // With more threads than cores the holder may be waiting for this very core.
        spins % spinsBeforeYield == 0 ? std::this_thread::yield() : pauseSpinning();
    }
}

} // namespace zolt

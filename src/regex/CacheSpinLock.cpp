#include "regex/CacheSpinLock.h"

#include "regex/Bookkeeping.h"

#include <thread>

namespace zolt {

namespace {

constexpr int spinsBeforeYield = 64;

/// An address that no other living thread has.
const void* markOfThisThread()
{
    static thread_local char mark;
    return &mark;
}

inline void pauseSpinning()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

} // namespace

void CacheSpinLock::lock()
{
    const void* mark = markOfThisThread();
    for (int spins = 1;; ++spins) {
        const void* holder = nullptr;
        if (holder_.compare_exchange_weak(holder, mark, std::memory_order_acquire, std::memory_order_relaxed)) return;
        RKL_REQUIRE(holder != mark);
        // With more threads than cores the holder may be waiting for this very core.
        spins % spinsBeforeYield == 0 ? std::this_thread::yield() : pauseSpinning();
    }
}

bool CacheSpinLock::unlock()
{
    const void* mark = markOfThisThread();
    return holder_.compare_exchange_strong(mark, nullptr, std::memory_order_release, std::memory_order_relaxed);
}

bool CacheSpinLock::isHeldByCaller() const
{
    return holder_.load(std::memory_order_relaxed) == markOfThisThread();
}

} // namespace zolt

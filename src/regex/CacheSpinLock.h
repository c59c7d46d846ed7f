// The one lock of the regular-expression layer.
#pragma once

#include <atomic>

namespace zolt {

/// A spin lock that knows its holder, so that an unlock by another thread frees nobody's hold. Not recursive.
class CacheSpinLock
{
public:
    /// Spins until the lock is the caller's. Taking it twice is a fault of the bookkeeping.
    void lock();
    /// @return false, and nothing done, if the caller does not hold the lock
    bool unlock();
    bool isHeldByCaller() const;
    bool isHeld() const { return holder_.load(std::memory_order_relaxed) != nullptr; }

private:
    static const void* markOfThisThread() { return &mark_; }
    bool tryLock();
    void spin();

    static inline constinit thread_local char mark_ = 0; // its address is one that no other living thread has
    /// The mark of the thread that holds the lock, null while it is free.
    std::atomic<const void*> holder_ = nullptr;
};

inline bool CacheSpinLock::tryLock()
{
    const void* nobody = nullptr;
    return holder_.compare_exchange_strong(nobody, markOfThisThread(), std::memory_order_acquire,
                                           std::memory_order_relaxed);
}

inline void CacheSpinLock::lock()
{
    if (!tryLock()) spin();
}

inline bool CacheSpinLock::isHeldByCaller() const
{
    return holder_.load(std::memory_order_relaxed) == markOfThisThread();
}

inline bool CacheSpinLock::unlock()
{
    // Nobody else writes while the caller holds the lock.
    const bool isCallers = isHeldByCaller();
    if (isCallers) holder_.store(nullptr, std::memory_order_release);
    return isCallers;
}

} // namespace zolt

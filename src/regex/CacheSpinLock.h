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
    /// A mark of the thread that holds the lock, null while it is free.
    std::atomic<const void*> holder_ = nullptr;
};

} // namespace zolt

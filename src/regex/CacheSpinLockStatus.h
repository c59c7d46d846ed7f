// What one operation knows of its hold on the lock.
#pragma once

#include "regex/CacheSpinLock.h"

namespace zolt {

/// Warnings that are worth saying once, not once a piece of console text.
struct LockWarnings
{
    std::atomic_flag stillHeld;
    std::atomic_flag strangelyFree;
};

/// The word of one operation: bit 0 once it has locked, bit 1 once it has unlocked. Its clean-up runs also when an
/// exception passes, so the lock is never left behind. Lives on the stack of one thread.
class CacheSpinLockStatus
{
public:
    static constexpr unsigned locked = 1U << 0;
    static constexpr unsigned unlocked = 1U << 1;

    /// Takes the lock.
    CacheSpinLockStatus(CacheSpinLock& rkl_cacheSpinLock, LockWarnings& warnings);
    ~CacheSpinLockStatus() { rkl_cleanup_cacheSpinLockStatus(); }
    CacheSpinLockStatus(const CacheSpinLockStatus&) = delete;
    CacheSpinLockStatus& operator=(const CacheSpinLockStatus&) = delete;

    void unlock();
    unsigned word() const { return word_; }

private:
    /// A word that has bit 0 alone means that the operation ended without its unlock: warns once and unlocks.
    void rkl_cleanup_cacheSpinLockStatus() noexcept;
    void warn(bool wasHeld);

    CacheSpinLock& rkl_cacheSpinLock_;
    LockWarnings& warnings_;
    unsigned word_ = 0;
};

} // namespace zolt

#include "regex/CacheSpinLockStatus.h"

#include "regex/Log.h"

namespace zolt {

CacheSpinLockStatus::CacheSpinLockStatus(CacheSpinLock& rkl_cacheSpinLock, LockWarnings& warnings)
    : rkl_cacheSpinLock_(rkl_cacheSpinLock), warnings_(warnings)
{
    rkl_cacheSpinLock_.lock();
    word_ |= locked;
}

void CacheSpinLockStatus::unlock()
{
    rkl_cacheSpinLock_.unlock();
    word_ |= unlocked;
}

void CacheSpinLockStatus::rkl_cleanup_cacheSpinLockStatus() noexcept
{
    if (word_ != locked) return;
    // Unlocked before the warning: who listens to the log may search texts too.
    const bool wasHeld = rkl_cacheSpinLock_.isHeldByCaller();
    unlock();
    try {
        warn(wasHeld);
    } catch (...) {
        // The exception that passes already is the one to tell; the log has no memory left, perhaps.
    }
}

void CacheSpinLockStatus::warn(bool wasHeld)
{
    if (wasHeld && !warnings_.stillHeld.test_and_set()) {
        qCWarning(regexLog, "The lock of the cached expressions was found still held; it has been unlocked.");
    } else if (!wasHeld && !warnings_.strangelyFree.test_and_set()) {
        qCWarning(regexLog, "The lock of the cached expressions should have been held, but was strangely free.");
    }
}

} // namespace zolt

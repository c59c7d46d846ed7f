#include "platform/threads/Lock.h"

namespace zolt {

void Lock::lock()
{
    std::unique_lock guard(mutex_);
    freed_.wait(guard, [this] { return !held(); });
    holder_ = std::this_thread::get_id();
}

bool Lock::tryLock()
{
    const std::lock_guard guard(mutex_);
    if (held()) return false;
    holder_ = std::this_thread::get_id();
    return true;
}

void Lock::unlock()
{
    {
        const std::lock_guard guard(mutex_);
        if (holder_ != std::this_thread::get_id()) return;
        holder_ = std::thread::id();
    }
    freed_.notify_one();
}

bool Lock::isHeld() const
{
    const std::lock_guard guard(mutex_);
    return held();
}

bool Lock::isHeldByThisThread() const
{
    const std::lock_guard guard(mutex_);
    return holder_ == std::this_thread::get_id();
}

} // namespace zolt

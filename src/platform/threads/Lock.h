// A lock that is not recursive and that may be released by who does not hold it, without harm.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

namespace zolt {

/// Unlike std::mutex: a second lock() of the holder waits for ever (as a hold that an exception left behind makes every
/// later taker wait), and unlock() by a thread that does not hold the lock changes nothing, nobody else's hold
/// included.
class Lock
{
public:
    /// Waits until the lock is free and takes it. Any thread.
    void lock();
    /// Takes the lock if it is free. Any thread. @return true if taken
    bool tryLock();
    /// Releases the lock if the calling thread holds it; otherwise does nothing.
    void unlock();
    /// True while any thread holds the lock; for tests and logs, as the answer may be old when it is read.
    bool isHeld() const;
    bool isHeldByThisThread() const;

private:
    bool held() const { return holder_ != std::thread::id(); }

    mutable std::mutex mutex_;
    std::condition_variable freed_;
    std::thread::id holder_;
};

} // namespace zolt

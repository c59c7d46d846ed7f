// Holds a walk of files halfway.
#pragma once

#include <QString>

#include <condition_variable>
#include <mutex>

namespace zolt::test {

/// What walks is held at its second file until it is let go.
class Gate
{
public:
    /// Called with each file on the thread that walks. @return true
    bool pass(const QString&)
    {
        std::unique_lock lock(mutex_);
        if (++seen_ > 1) opened_.wait(lock, [this] { return open_; });
        return true;
    }
    void open()
    {
        const std::lock_guard guard(mutex_);
        open_ = true;
        opened_.notify_all();
    }
    /// How many files have come to it.
    int seen() const
    {
        const std::lock_guard guard(mutex_);
        return seen_;
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable opened_;
    int seen_ = 0;
    bool open_ = false;
};

} // namespace zolt::test

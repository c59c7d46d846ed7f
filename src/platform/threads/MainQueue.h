// Hand-over of work to the main thread. The list is ours, under a std::mutex; Qt is used for the wake-up alone
// (an eventfd that the main thread's event loop watches), so that thread checkers see every hand-over.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

class QSocketNotifier;

namespace zolt {

class MainQueue
{
public:
    using Work = std::function<void()>;

    /// The one queue of the program. First called on the main thread, after the application object was made:
    /// that thread becomes the one that runs the work.
    static MainQueue& instance();

    /// Appends work; the main thread's event loop runs it, in order, each piece guarded. Any thread; never waits.
    void post(Work work);

    /// True on the thread that runs the work.
    bool isMainThread() const;

    /// Runs what is posted until nothing is left, work posted by that work included. Main thread.
    void drain();

    /// True if nothing waits. Any thread.
    bool isEmpty() const;

    MainQueue(const MainQueue&) = delete;
    MainQueue& operator=(const MainQueue&) = delete;

private:
    MainQueue();
    ~MainQueue();
    void wake();
    void runOne();
    bool take(Work& work);

    mutable std::mutex mutex_;
    std::deque<Work> pending_;
    int eventFd_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

/// Shorthand for MainQueue::instance().post().
void postToMain(std::function<void()> work);

/// Shorthand for MainQueue::instance().isMainThread().
bool isMainThread();

} // namespace zolt

// A descriptor in the main thread's event loop.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zolt {

/// Owns a descriptor, which the main thread's event loop watches for reading while it is asked to. May go on any
/// thread: the event loop then lets go of the descriptor before it is closed.
class WatchedDescriptor
{
public:
    explicit WatchedDescriptor(int descriptor);
    ~WatchedDescriptor();
    WatchedDescriptor(const WatchedDescriptor&) = delete;
    WatchedDescriptor& operator=(const WatchedDescriptor&) = delete;

    int number() const { return descriptor_; }

    /// From now on `readable` runs whenever the descriptor can be read from. It has to bear that the object, and what
    /// owns it, goes at that very moment on another thread. Main thread.
    void watch(std::function<void()> readable);

    /// Stops that until the next `watch`, whose work stays that of the first. Main thread.
    void rest();

private:
    const int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_; // met on the main thread only
};

} // namespace zolt

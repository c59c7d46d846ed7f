// Work off the main thread of which only the newest matters.
#pragma once

#include <atomic>
#include <functional>
#include <memory>

namespace zolt {

/// One piece of work runs at a time and at most one waits: asking again stops the running one and replaces the waiting
/// one. Main thread.
class LatestJob
{
public:
    /// Called on the main thread with what the work found.
    using Delivery = std::function<void()>;
    /// Runs on a thread of its own. It should end early once `stop` is set; its delivery is then thrown away.
    using Work = std::function<Delivery(const std::atomic<bool>& stop)>;

    LatestJob();
    /// Stops what runs; nothing is delivered any more.
    ~LatestJob();
    LatestJob(const LatestJob&) = delete;
    LatestJob& operator=(const LatestJob&) = delete;

    void start(Work work);
    /// Stops what runs and drops what waits.
    void cancel();
    bool isIdle() const;

private:
    struct State;
    static void run(const std::shared_ptr<State>& state, Work work);
    static void ended(const std::shared_ptr<State>& state, const std::atomic<bool>& stop, const Delivery& delivery);

    std::shared_ptr<State> state_;
};

} // namespace zolt

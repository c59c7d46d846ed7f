#include "ui/LatestJob.h"

#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"

namespace zolt {

/// Touched on the main thread alone, but for the stop flag.
struct LatestJob::State
{
    std::shared_ptr<std::atomic<bool>> running; ///< the stop flag of the work under way; none while idle
    Work waiting;
};

LatestJob::LatestJob() : state_(std::make_shared<State>()) {}

LatestJob::~LatestJob()
{
    cancel();
}

bool LatestJob::isIdle() const
{
    return !state_->running;
}

void LatestJob::cancel()
{
    state_->waiting = nullptr;
    if (state_->running) *state_->running = true;
}

void LatestJob::start(Work work)
{
    if (!state_->running) return run(state_, std::move(work));
    *state_->running = true;
    state_->waiting = std::move(work);
}

void LatestJob::run(const std::shared_ptr<State>& state, Work work)
{
    const auto stop = std::make_shared<std::atomic<bool>>(false);
    detachThread([state, stop, job = std::move(work)]() mutable {
        Delivery delivery;
        guarded("background look-up", [&] { delivery = job(*stop); });
        job = nullptr;
        postToMain([state = std::move(state), stop, delivery = std::move(delivery)] { ended(state, *stop, delivery); });
    });
    state->running = stop; // last: nothing runs where no thread was to be had
}

void LatestJob::ended(const std::shared_ptr<State>& state, const std::atomic<bool>& stop, const Delivery& delivery)
{
    state->running = nullptr;
    if (Work next = std::exchange(state->waiting, nullptr)) run(state, std::move(next));
    if (!stop && delivery) delivery();
}

} // namespace zolt

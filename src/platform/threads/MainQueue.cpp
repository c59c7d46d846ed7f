#include "platform/threads/MainQueue.h"

#include "platform/errors/Exceptions.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <sys/eventfd.h>
#include <unistd.h>

namespace zolt {

namespace {

std::thread::id mainThreadId;

} // namespace

MainQueue& MainQueue::instance()
{
    // Never destroyed: detached threads may still post while the program leaves main().
    static MainQueue* const queue = new MainQueue;
    return *queue;
}

MainQueue::MainQueue() : eventFd_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    mainThreadId = std::this_thread::get_id();
    notifier_ = std::make_unique<QSocketNotifier>(eventFd_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { runOne(); });
    // The notifier needs the dispatcher of the application it was made under.
    QObject::connect(QCoreApplication::instance(), &QObject::destroyed, QCoreApplication::instance(),
                     [this] { notifier_.reset(); });
}

MainQueue::~MainQueue() = default;

void MainQueue::post(Work work)
{
    {
        const std::lock_guard guard(mutex_);
        pending_.push_back(std::move(work));
        if (pending_.size() > 1) return; // the wake-up for the first is still under way
    }
    wake();
}

void MainQueue::wake()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(eventFd_, &one, sizeof one);
}

bool MainQueue::isMainThread() const
{
    return std::this_thread::get_id() == mainThreadId;
}

bool MainQueue::take(Work& work)
{
    const std::lock_guard guard(mutex_);
    if (pending_.empty()) return false;
    work = std::move(pending_.front());
    pending_.pop_front();
    // Signalled again before the work runs: it may wait in an event loop of its own, which must go on with the rest.
    if (!pending_.empty()) wake();
    return true;
}

void MainQueue::runOne()
{
    std::uint64_t count = 0;
    [[maybe_unused]] const auto got = ::read(eventFd_, &count, sizeof count);
    if (Work work; take(work)) guarded("posted work", work);
}

void MainQueue::drain()
{
    for (Work work; take(work);)
        guarded("posted work", work);
}

bool MainQueue::isEmpty() const
{
    const std::lock_guard guard(mutex_);
    return pending_.empty();
}

void postToMain(std::function<void()> work)
{
    MainQueue::instance().post(std::move(work));
}

bool isMainThread()
{
    return MainQueue::instance().isMainThread();
}

} // namespace zolt

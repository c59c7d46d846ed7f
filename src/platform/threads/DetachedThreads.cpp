#include "platform/threads/DetachedThreads.h"

#include "platform/errors/Exceptions.h"
#include "platform/threads/MainQueue.h"

#include <QEventLoop>

#include <condition_variable>
#include <system_error>

namespace zolt {

namespace {

struct Running
{
    std::mutex mutex;
    std::condition_variable ended;
    int count = 0;
};

Running& running()
{
    static Running* const state = new Running; // outlives every detached thread
    return *state;
}

void threadEnded()
{
    Running& state = running();
    // Under one hold, so that a main thread woken by the post finds this thread no longer counted.
    const std::lock_guard guard(state.mutex);
    --state.count;
    state.ended.notify_all();
    postToMain([] {});
}

void threadStarts(int change)
{
    const std::lock_guard guard(running().mutex);
    running().count += change;
}

} // namespace

void detachThread(std::function<void()> work)
{
    threadStarts(1);
    try {
        std::thread([task = std::move(work)]() mutable {
            guarded("detached thread", task);
            task = nullptr; // what the work owns goes before the thread stops counting
            threadEnded();
        }).detach();
    } catch (const std::system_error& fault) {
        threadStarts(-1);
        throw PlatformException(QStringLiteral("ThreadException"), QString::fromLocal8Bit(fault.what()));
    }
}

int detachedThreadCount()
{
    const std::lock_guard guard(running().mutex);
    return running().count;
}

void waitForDetachedThreads()
{
    if (isMainThread()) {
        QEventLoop loop;
        while (detachedThreadCount() > 0)
            loop.processEvents(QEventLoop::WaitForMoreEvents);
        return;
    }
    std::unique_lock guard(running().mutex);
    running().ended.wait(guard, [] { return running().count == 0; });
}

} // namespace zolt

#include "support/EventLoop.h"

#include "platform/threads/MainQueue.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace zolt::test {

bool runUntil(const std::function<bool()>& happened)
{
    QEventLoop loop;
    QTimer tick; // the predicate may also become true without an event
    tick.start(5);
    const QDeadlineTimer deadline(60000);
    while (!happened()) {
        if (deadline.hasExpired()) return false;
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void runPosted()
{
    MainQueue::instance().drain();
}

} // namespace zolt::test

#include "Clock.h"

#include "platform/threads/MainQueue.h"

#include <QElapsedTimer>
#include <QFile>

#include <malloc.h>
#include <unistd.h>

namespace zolt::bench {

double millisecondsOf(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    MainQueue::instance().drain();
    return double(timer.nsecsElapsed()) / 1e6;
}

double residentMebibytes()
{
    ::malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) return 0.0;
    return file.readAll().split(' ').at(1).toDouble() * double(::sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

} // namespace zolt::bench

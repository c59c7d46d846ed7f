#include "Heartbeat.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>

namespace zolt::bench {

namespace {

qint64 now()
{
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

} // namespace

Heartbeat::Heartbeat() : asking_([this] { ask(); }) {}

Heartbeat::~Heartbeat()
{
    ends_ = true;
    asking_.join();
}

void Heartbeat::ask()
{
    while (!ends_) {
        if (askedAt_ == 0) {
            askedAt_ = now();
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

bool Heartbeat::event(QEvent* event)
{
    if (event->type() != QEvent::User) return QObject::event(event);
    longest_ = std::max(longest_, now() - askedAt_);
    askedAt_ = 0;
    return true;
}

double Heartbeat::takeLongest()
{
    QCoreApplication::processEvents();
    return double(std::exchange(longest_, 0)) / 1e6;
}

} // namespace zolt::bench

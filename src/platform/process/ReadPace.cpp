#include "platform/process/ReadPace.h"

#include "platform/process/FileHandle.h"

#include <QCoreApplication>

namespace zolt {

ReadPace& ReadPace::instance()
{
    static ReadPace* const pace = new ReadPace; // handles may be left until the very end
    return *pace;
}

ReadPace::ReadPace() : timer_(std::make_unique<QTimer>())
{
    timer_->setSingleShot(true);
    QObject::connect(timer_.get(), &QTimer::timeout, timer_.get(), [this] { endMoment(); });
    QObject::connect(QCoreApplication::instance(), &QObject::destroyed, QCoreApplication::instance(),
                     [this] { timer_.reset(); });
}

void ReadPace::await(std::weak_ptr<FileHandle> handle)
{
    waiting_.push_back(std::move(handle));
    if (timer_ && !timer_->isActive()) timer_->start(moment_);
}

void ReadPace::endMoment()
{
    if (timer_) timer_->stop();
    for (const auto& each : std::exchange(waiting_, {}))
        if (const auto handle = each.lock()) handle->momentIsOver();
}

} // namespace zolt

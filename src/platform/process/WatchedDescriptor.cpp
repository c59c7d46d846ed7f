#include "platform/process/WatchedDescriptor.h"

#include "platform/threads/MainQueue.h"

#include <QSocketNotifier>

#include <unistd.h>

namespace zolt {

WatchedDescriptor::WatchedDescriptor(int descriptor) : descriptor_(descriptor) {}

WatchedDescriptor::~WatchedDescriptor()
{
    if (!notifier_ || isMainThread()) {
        notifier_.reset();
        ::close(descriptor_);
        return;
    }
    // The notifier belongs to the main thread's event loop and must go before its descriptor does.
    postToMain([notifier = std::shared_ptr<QSocketNotifier>(std::move(notifier_)), fd = descriptor_]() mutable {
        notifier.reset();
        ::close(fd);
    });
}

void WatchedDescriptor::watch(std::function<void()> readable)
{
    if (notifier_) {
        if (!notifier_->isEnabled()) notifier_->setEnabled(true);
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), std::move(readable));
}

void WatchedDescriptor::rest()
{
    if (notifier_ && notifier_->isEnabled()) notifier_->setEnabled(false);
}

} // namespace zolt

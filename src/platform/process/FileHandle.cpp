#include "platform/process/FileHandle.h"

#include "platform/errors/Exceptions.h"
#include "platform/threads/MainQueue.h"
#include "platform/threads/NotificationCenter.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace zolt {

const QString FileHandleReadCompletionNotification = QStringLiteral("FileHandleReadCompletionNotification");

namespace {

constexpr std::size_t pieceBytes = 65536; // a Linux pipe holds no more

} // namespace

FileHandle::FileHandle(int descriptor) : descriptor_(descriptor) {}

FileHandle::~FileHandle()
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

void FileHandle::readInBackgroundAndNotify()
{
    if (isMainThread()) return arm();
    postToMain([weak = weak_from_this()] {
        if (const auto handle = weak.lock()) handle->arm();
    });
}

void FileHandle::arm()
{
    asked_ = true;
    if (notifier_) {
        if (!notifier_->isEnabled()) notifier_->setEnabled(true);
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    // The last reference may go on another thread at this very moment.
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [weak = weak_from_this()] {
        if (const auto handle = weak.lock()) handle->readable();
    });
}

void FileHandle::readable()
{
    if (!std::exchange(asked_, false)) return notifier_->setEnabled(false); // nobody wants it yet
    guarded("read notification", [this] {
        NotificationCenter::standard().post({FileHandleReadCompletionNotification, this, readOnce()});
    });
}

bool FileHandle::notifyNow()
{
    pollfd waiting{descriptor_, POLLIN, 0};
    if (!asked_ || ::poll(&waiting, 1, 0) <= 0) return false;
    readable();
    return true;
}

QByteArray FileHandle::readOnce()
{
    std::array<char, pieceBytes> buffer;
    ssize_t count = 0;
    do {
        count = ::read(descriptor_, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    return count > 0 ? QByteArray(buffer.data(), count) : QByteArray();
}

QByteArray FileHandle::availableData()
{
    return readOnce();
}

QByteArray FileHandle::readDataToEndOfFile()
{
    QByteArray all;
    for (QByteArray piece = readOnce(); !piece.isEmpty(); piece = readOnce())
        all += piece;
    return all;
}

} // namespace zolt

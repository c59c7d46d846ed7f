#include "platform/process/FileHandle.h"

#include "platform/errors/Exceptions.h"
#include "platform/process/ReadPace.h"
#include "platform/threads/MainQueue.h"
#include "platform/threads/NotificationCenter.h"

#include <array>
#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace zolt {

const QString FileHandleReadCompletionNotification = QStringLiteral("FileHandleReadCompletionNotification");

namespace {

constexpr std::size_t pieceBytes = 65536;       // a Linux pipe holds no more
constexpr qsizetype muchBytes = pieceBytes / 4; // a writer that would soon have to wait for the reader

} // namespace

FileHandle::FileHandle(int descriptor) : pipe_(descriptor) {}

void FileHandle::readInBackgroundAndNotify()
{
    inBackground_ = true;
    if (isMainThread()) return arm();
    postToMain([weak = weak_from_this()] {
        if (const auto handle = weak.lock()) handle->arm();
    });
}

void FileHandle::arm()
{
    asked_ = true;
    if (handsOver_) return;
    if (ended_ || much_) return watch();
    pipe_.rest();
    if (!std::exchange(awaits_, true)) ReadPace::instance().await(weak_from_this());
}

void FileHandle::momentIsOver()
{
    awaits_ = false;
    if (asked_) watch();
}

void FileHandle::watch()
{
    pipe_.watch([weak = weak_from_this()] {
        if (const auto handle = weak.lock()) handle->readable();
    });
}

void FileHandle::watchForEnd(int descriptor)
{
    const auto begin = [weak = weak_from_this(), end = std::make_shared<WatchedDescriptor>(descriptor)] {
        const auto handle = weak.lock();
        if (!handle) return;
        handle->end_ = end;
        end->watch([weak] {
            if (const auto ended = weak.lock()) ended->writerEnded();
        });
    };
    isMainThread() ? begin() : postToMain(begin);
}

void FileHandle::writerEnded()
{
    end_->rest();
    handsOver_ = true; // what is left, without a look of the event loop at each piece
    while (notifyNow())
        continue;
    handsOver_ = false;
    ended_ = true;
    if (asked_) watch(); // another process writes on
}

void FileHandle::readable()
{
    if (!std::exchange(asked_, false)) return pipe_.rest(); // nobody wants it yet
    guarded("read notification", [this] {
        const QByteArray piece = readOnce();
        much_ = piece.size() >= muchBytes;
        NotificationCenter::standard().post({FileHandleReadCompletionNotification, this, piece});
    });
}

bool FileHandle::notifyNow()
{
    pollfd waiting{descriptor(), POLLIN, 0};
    if (!asked_ || ::poll(&waiting, 1, 0) <= 0) return false;
    readable();
    return true;
}

QByteArray FileHandle::readOnce()
{
    std::array<char, pieceBytes> buffer;
    ssize_t count = 0;
    do {
        count = ::read(descriptor(), buffer.data(), buffer.size());
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

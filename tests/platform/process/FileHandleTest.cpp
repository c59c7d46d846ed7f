#include "platform/process/FileHandle.h"

#include "platform/errors/Exceptions.h"
#include "platform/process/Pipe.h"
#include "platform/threads/MainQueue.h"
#include "platform/threads/NotificationCenter.h"
#include "support/EndlessMoment.h"
#include "support/EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

#include <fcntl.h>
#include <unistd.h>

using namespace zolt;

namespace {

/// Keeps what a handle's notifications bring.
class Reader
{
public:
    explicit Reader(const FileHandle* handle) : handle_(handle)
    {
        NotificationCenter::standard().addObserver(this, FileHandleReadCompletionNotification, handle,
                                                   [this](const Notification& note) { take(note); });
    }
    ~Reader() { NotificationCenter::standard().removeObserver(this, FileHandleReadCompletionNotification, handle_); }

    std::vector<QByteArray> pieces;
    bool onMain = true;

private:
    void take(const Notification& note)
    {
        onMain = onMain && isMainThread();
        pieces.push_back(std::any_cast<QByteArray>(note.object));
    }
    const FileHandle* handle_;
};

void put(const Pipe& pipe, const QByteArray& bytes)
{
    ASSERT_EQ(::write(pipe.writeDescriptor(), bytes.data(), std::size_t(bytes.size())), bytes.size());
}

/// Has the event loop watch the handle, and everything on its way delivered.
void watched(const Pipe& pipe)
{
    const auto& handle = pipe.fileHandleForReading();
    const Reader reader(handle.get());
    handle->readInBackgroundAndNotify();
    put(pipe, "first");
    ASSERT_TRUE(test::runUntil([&] { return !reader.pieces.empty(); }));
}

/// Counts how often the event loop wakes while it lives.
class Wakes
{
public:
    Wakes()
        : counting_(QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                                     [this] { ++count; }))
    {
    }
    ~Wakes() { QObject::disconnect(counting_); }
    int count = 0;

private:
    const QMetaObject::Connection counting_;
};

} // namespace

TEST(FileHandle, BytesThatNobodyAsksForDoNotKeepTheEventLoopAwake)
{
    const Pipe pipe;
    const auto& handle = pipe.fileHandleForReading();
    const Reader reader(handle.get());
    handle->readInBackgroundAndNotify();
    put(pipe, "one");
    ASSERT_TRUE(test::runUntil([&] { return reader.pieces.size() == 1; }));
    put(pipe, "two");
    bool over = false;
    QTimer::singleShot(100, [&] { over = true; });
    const Wakes wakes;
    EXPECT_TRUE(test::runUntil([&] { return over; }));
    EXPECT_LT(wakes.count, 100) << "a loop that spins wakes many thousand times";
    EXPECT_EQ(reader.pieces.size(), 1U);
}

TEST(FileHandle, OneAskingBringsOnePieceAndNoMore)
{
    const Pipe pipe;
    const auto& handle = pipe.fileHandleForReading();
    Reader reader(handle.get());
    handle->readInBackgroundAndNotify();
    put(pipe, "one");
    ASSERT_TRUE(test::runUntil([&] { return reader.pieces.size() == 1; }));
    put(pipe, "two");
    test::runPosted();
    QCoreApplication::processEvents();
    EXPECT_EQ(reader.pieces, std::vector<QByteArray>({"one"}));
    handle->readInBackgroundAndNotify();
    ASSERT_TRUE(test::runUntil([&] { return reader.pieces.size() == 2; }));
    EXPECT_EQ(reader.pieces[1], "two");
}

TEST(FileHandle, EndOfFileIsAnEmptyPiece)
{
    Pipe pipe;
    Reader reader(pipe.fileHandleForReading().get());
    pipe.fileHandleForReading()->readInBackgroundAndNotify();
    pipe.closeWriteEnd();
    ASSERT_TRUE(test::runUntil([&] { return !reader.pieces.empty(); }));
    EXPECT_TRUE(reader.pieces[0].isEmpty());
}

TEST(FileHandle, PiecesAskedForOnATaskThreadArriveOnTheMainThread)
{
    const Pipe pipe;
    const auto& handle = pipe.fileHandleForReading();
    Reader reader(handle.get());
    std::thread([&] { handle->readInBackgroundAndNotify(); }).join();
    put(pipe, "x");
    ASSERT_TRUE(test::runUntil([&] { return !reader.pieces.empty(); }));
    EXPECT_TRUE(reader.onMain);
}

TEST(FileHandle, HandleGoneOnAnotherThreadClosesItsPipe)
{
    auto pipe = std::make_unique<Pipe>();
    auto handle = pipe->fileHandleForReading();
    const int descriptor = handle->descriptor();
    watched(*pipe);
    std::thread([&] {
        pipe.reset();
        handle.reset();
    }).join();
    EXPECT_NE(::fcntl(descriptor, F_GETFD), -1) << "its watcher would meet another file under this number";
    test::runPosted();
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1);
}

namespace {

/// Finds the watcher of a descriptor by the first event that it gets.
class WatcherOf : public QObject
{
public:
    explicit WatcherOf(int descriptor) : descriptor_(descriptor) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const notifier = qobject_cast<QSocketNotifier*>(watched);
        if (notifier && event->type() == QEvent::SockAct && notifier->socket() == descriptor_) found = notifier;
        return false;
    }
    QPointer<QSocketNotifier> found;

private:
    const int descriptor_;
};

} // namespace

TEST(FileHandle, HandleGoneWhileItsBytesAreOnTheirWayDeliversNothing)
{
    auto pipe = std::make_unique<Pipe>();
    auto handle = pipe->fileHandleForReading();
    const Reader reader(handle.get());
    const WatcherOf watcher(handle->descriptor());
    handle->readInBackgroundAndNotify();
    put(*pipe, "x");
    ASSERT_TRUE(test::runUntil([&] { return reader.pieces.size() == 1; }));
    handle->readInBackgroundAndNotify();
    put(*pipe, "y");
    std::thread([&] {
        pipe.reset();
        handle.reset();
    }).join();
    ASSERT_TRUE(watcher.found) << "it goes on the main thread";
    QEvent bytes(QEvent::SockAct); // as the event loop sends it that has looked before
    QCoreApplication::sendEvent(watcher.found, &bytes);
    EXPECT_EQ(reader.pieces.size(), 1U);
    test::runPosted();
    EXPECT_FALSE(watcher.found);
}

TEST(FileHandle, BlockingReadsGiveWhatIsThereAndThenTheEnd)
{
    Pipe pipe;
    put(pipe, "abc");
    EXPECT_EQ(pipe.fileHandleForReading()->availableData(), "abc");
    put(pipe, "def");
    pipe.closeWriteEnd();
    EXPECT_EQ(pipe.fileHandleForReading()->readDataToEndOfFile(), "def");
    EXPECT_TRUE(pipe.fileHandleForReading()->availableData().isEmpty());
}

TEST(FileHandle, SmallPiecesGatherUntilTheirMomentIsOver)
{
    const Pipe pipe;
    const auto& handle = pipe.fileHandleForReading();
    const Reader reader(handle.get());
    {
        const test::EndlessMoment moment;
        handle->readInBackgroundAndNotify();
        put(pipe, "one ");
        for (int turn = 0; turn < 10; ++turn)
            QCoreApplication::processEvents();
        EXPECT_TRUE(reader.pieces.empty());
        put(pipe, "two");
        handle->momentIsOver();
    }
    ASSERT_TRUE(test::runUntil([&] { return !reader.pieces.empty(); }));
    EXPECT_EQ(reader.pieces, std::vector<QByteArray>({"one two"}));
}

TEST(FileHandle, WhereMuchIsWrittenTheNextReadWaitsForNoMoment)
{
    const Pipe pipe;
    const auto& handle = pipe.fileHandleForReading();
    const Reader reader(handle.get());
    const test::EndlessMoment moment;
    handle->readInBackgroundAndNotify();
    put(pipe, QByteArray(20000, 'x'));
    handle->momentIsOver();
    ASSERT_TRUE(test::runUntil([&] { return reader.pieces.size() == 1; }));
    handle->readInBackgroundAndNotify();
    put(pipe, "small");
    ASSERT_TRUE(test::runUntil([&] { return reader.pieces.size() == 2; }));
    handle->readInBackgroundAndNotify();
    put(pipe, "again");
    QCoreApplication::processEvents();
    EXPECT_EQ(reader.pieces.size(), 2U) << "behind a small piece it does again";
}

#include "platform/process/FileHandle.h"

#include "platform/errors/Exceptions.h"
#include "platform/process/Pipe.h"
#include "platform/threads/MainQueue.h"
#include "platform/threads/NotificationCenter.h"
#include "support/EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
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
    handle->readInBackgroundAndNotify();
    std::thread([&] {
        pipe.reset();
        handle.reset();
    }).join();
    EXPECT_NE(::fcntl(descriptor, F_GETFD), -1) << "its watcher would meet another file under this number";
    test::runPosted();
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1);
}

TEST(FileHandle, HandleGoneWhileItsBytesAreOnTheirWayDeliversNothing)
{
    auto pipe = std::make_unique<Pipe>();
    auto handle = pipe->fileHandleForReading();
    const Reader reader(handle.get());
    handle->readInBackgroundAndNotify();
    put(*pipe, "x");
    std::thread([&] {
        pipe.reset();
        handle.reset();
    }).join();
    QCoreApplication::processEvents(); // its watcher is still there and sees the bytes
    test::runPosted();
    EXPECT_TRUE(reader.pieces.empty());
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

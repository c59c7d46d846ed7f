// The read end of a pipe.
#pragma once

#include "platform/process/WatchedDescriptor.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <memory>

namespace zolt {

/// Posted on the main thread with the handle as sender and the bytes of one read as its object (a QByteArray);
/// empty bytes mean end of file.
extern const QString FileHandleReadCompletionNotification;

class FileHandle : public std::enable_shared_from_this<FileHandle>
{
public:
    /// Takes over the descriptor and closes it with the object.
    explicit FileHandle(int descriptor);
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    int descriptor() const { return pipe_.number(); }

    /// Asks for one read in the background. Its notification is delivered on the main thread, whichever thread asked,
    /// so that an event-driven task started on a task thread gets its output. It comes within some milliseconds
    /// (ReadPace), at once where much is written or the writer has ended. Any thread; returns at once.
    void readInBackgroundAndNotify();

    /// Whether that was ever asked for. Any thread.
    bool readsInBackground() const { return inBackground_; }

    /// Takes over a descriptor that can be read from when the writer has ended (a pidfd), so that nothing waits for its
    /// moment from then on. Any thread.
    void watchForEnd(int descriptor);

    /// Delivers now what was asked for in the background, if it can be read without waiting. Main thread.
    /// @return whether there was any, the end of file included
    bool notifyNow();

    /// The moment that a read was to wait for is over. Main thread.
    void momentIsOver();

    /// Waits until there are bytes and gives what one read returned; empty at end of file. Any thread.
    QByteArray availableData();

    /// Reads until end of file. Any thread; waits.
    QByteArray readDataToEndOfFile();

private:
    void arm();
    void watch();
    void readable(); // whoever calls holds the handle, which the observer may drop
    void writerEnded();
    QByteArray readOnce();

    WatchedDescriptor pipe_;
    std::atomic<bool> inBackground_ = false;
    // Met on the main thread only.
    std::shared_ptr<WatchedDescriptor> end_;
    bool asked_ = false;
    bool awaits_ = false; // its moment
    bool handsOver_ = false;
    bool ended_ = false;
    bool much_ = false; // came with the last read
};

} // namespace zolt

// The read end of a pipe.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QSocketNotifier;

namespace zolt {

/// Posted on the main thread with the handle as sender and the bytes of one read as its object (a QByteArray);
/// empty bytes mean end of file.
extern const QString FileHandleReadCompletionNotification;

class FileHandle : public std::enable_shared_from_this<FileHandle>
{
public:
    /// Takes over the descriptor and closes it with the object.
    explicit FileHandle(int descriptor);
    ~FileHandle();
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    int descriptor() const { return descriptor_; }

    /// Asks for one read in the background. Its notification is delivered on the main thread, whichever thread asked,
    /// so that an event-driven task started on a task thread gets its output. Any thread; returns at once.
    void readInBackgroundAndNotify();

    /// Delivers now what was asked for in the background, if it can be read without waiting. Main thread.
    /// @return whether there was any, the end of file included
    bool notifyNow();

    /// Waits until there are bytes and gives what one read returned; empty at end of file. Any thread.
    QByteArray availableData();

    /// Reads until end of file. Any thread; waits.
    QByteArray readDataToEndOfFile();

private:
    void arm();
    void readable(); // whoever calls holds the handle, which the observer may drop
    QByteArray readOnce();

    const int descriptor_;
    // Met on the main thread only. Mostly the observer asks for the next piece at once, so the notifier stays enabled
    // behind a delivery: to switch it off and on wakes the event loop each time.
    std::unique_ptr<QSocketNotifier> notifier_;
    bool asked_ = false;
};

} // namespace zolt

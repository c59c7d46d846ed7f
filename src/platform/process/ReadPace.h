// How often what tools write is looked at.
#pragma once

#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

namespace zolt {

class FileHandle;

/// Lets what tools write gather for a moment before it is read. Most write a few bytes at a time, and to wake this
/// program for each takes the processor away from the tool. One timer serves all handles. Main thread.
class ReadPace
{
public:
    static ReadPace& instance();

    /// Once the moment is over the handle is told so, if it is still there.
    void await(std::weak_ptr<FileHandle> handle);

    /// How long one is, from the next on; tests make it endless.
    void setMoment(std::chrono::milliseconds moment) { moment_ = moment; }
    std::chrono::milliseconds moment() const { return moment_; }
    /// Ends the present one: whoever waits is told.
    void endMoment();

private:
    ReadPace();

    std::chrono::milliseconds moment_{10}; // a window draws less often
    std::unique_ptr<QTimer> timer_;
    std::vector<std::weak_ptr<FileHandle>> waiting_;
};

} // namespace zolt

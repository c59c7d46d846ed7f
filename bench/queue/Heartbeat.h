// How long the main thread of this process takes to answer.
#pragma once

#include <QObject>

#include <atomic>
#include <thread>

namespace zolt::bench {

/// From its making to its end another thread asks the event loop for an answer every millisecond. What a person presses
/// is answered as late. Main thread.
class Heartbeat : public QObject
{
public:
    Heartbeat();
    ~Heartbeat() override;

    /// The longest that the event loop took to answer since the last call, in milliseconds. Answers what is still asked
    /// first.
    double takeLongest();

protected:
    bool event(QEvent* event) override;

private:
    void ask();

    std::atomic<qint64> askedAt_ = 0; ///< nanoseconds; 0 while nothing is asked
    std::atomic<bool> ends_ = false;
    qint64 longest_ = 0;
    std::thread asking_;
};

} // namespace zolt::bench

// Signals that ask the program to stop, taken up in the event loop.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zolt::batch {

/// One object at a time, on the main thread. While it lives, SIGINT, SIGTERM and SIGHUP end nothing by themselves;
/// SIGPIPE is ignored, so that a reader of the output who goes away does not end the work.
class Interrupts
{
public:
    /// @param handler  runs in the event loop, once for each signal that comes
    explicit Interrupts(std::function<void(int signal)> handler);
    ~Interrupts();
    Interrupts(const Interrupts&) = delete;
    Interrupts& operator=(const Interrupts&) = delete;

    /// Becomes readable when a signal has come that no handler has seen yet.
    int descriptor() const;
    /// From now on these signals end the program at once.
    void letGo();

private:
    void takeUp();

    std::function<void(int)> handler_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace zolt::batch

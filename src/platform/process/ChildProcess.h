// One run of an external tool.
#pragma once

#include "platform/process/Environment.h"
#include "platform/process/Pipe.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <mutex>

#include <sys/types.h>

namespace zolt {

/// Set up, launched once, waited for by any number of threads. Wraps posix_spawn; the child gets standard input from
/// /dev/null, no descriptors but 0 to 2, default signal handling and a process group of its own, so that Ctrl-C at a
/// terminal reaches this program alone.
class ChildProcess
{
public:
    ChildProcess();
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// A tool ready for its launch, as every task and helper runs one: both streams go to one new pipe, and
    /// "NSUnbufferedIO" is set in the environment, the caller's too.
    /// @param directory  the child's working directory; empty for this program's own
    static std::shared_ptr<ChildProcess> withPipe(const QString& launchPath, const QStringList& arguments,
                                                  Environment& environment, const QString& directory = {});

    void setLaunchPath(const QString& path) { launchPath_ = path; }
    void setArguments(const QStringList& arguments) { arguments_ = arguments; }
    void setEnvironment(const Environment& environment) { environment_ = environment; }
    /// Working directory of the child; an empty text means this program's own.
    void setCurrentDirectoryPath(const QString& path) { directory_ = path; }
    /// The pipe that takes standard output and standard error together, in the order they are written.
    void setStandardOutputAndError(std::shared_ptr<Pipe> pipe) { pipe_ = std::move(pipe); }
    const std::shared_ptr<Pipe>& standardOutput() const { return pipe_; }

    /// Starts the tool. @throws PlatformException naming the tool if it cannot be started
    void launch();

    /// Returns when the child has ended, at once if it was never launched. Any thread, several at a time. On the main
    /// thread the event loop goes on during the wait, so that output is still read; all that the child has written, and
    /// the end of it, has then reached whoever asked for it in the background.
    /// @return false if it was never launched
    bool waitUntilExit();

    /// From now on waitUntilExit reads what the child still writes and throws it away, so that a child whose output
    /// nobody wants any more does not block on a full pipe. Any thread.
    void discardRemainingOutput();

    /// As waitUntilExit, and then for the processes that the child has left behind. Any thread but the main one.
    void waitForAll();

    /// Asks the child and the processes that it has started to end (SIGTERM); nothing happens if the child has ended
    /// and was waited for, or was never launched. Any thread.
    void terminate();

    /// True from launch to the child's end. Any thread.
    bool isRunning();

    /// The exit status, or the number of the signal that ended the child; not 0 before its end. Any thread.
    int terminationStatus();

    enum class TerminationReason { Exit, UncaughtSignal };
    /// How the child ended. Any thread.
    TerminationReason terminationReason();

    /// Ends every running child's process group with SIGTERM; for a program that is told to stop at once. Any thread.
    static void terminateAll();
    /// Once, at the program's start: whoever started it may have had children collected by the system (SIGCHLD
    /// ignored), and then no tool's status would ever be known.
    static void takeSignalsBack();

private:
    void spawn();
    void tellReaderOfEnd() const;
    bool reap();
    bool exited(int timeoutMilliseconds);
    void waitInEventLoop();
    void handOverRest() const;
    void waitBlocking();
    bool throwAwayOutput();

    QString launchPath_;
    QStringList arguments_;
    Environment environment_;
    QString directory_;
    std::shared_ptr<Pipe> pipe_;

    std::mutex drain_; // held by the one waiter that throws output away
    std::mutex mutex_; // guards what follows
    pid_t pid_ = -1;
    int pidFd_ = -1;
    bool ended_ = false;
    bool discarding_ = false;
    int waitStatus_ = 0;
};

} // namespace zolt

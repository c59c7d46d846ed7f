#include "platform/process/ChildProcess.h"

#include "platform/errors/Exceptions.h"
#include "platform/process/ChildRegistry.h"
#include "platform/process/ProcessGroup.h"
#include "platform/process/SpawnPlan.h"
#include "platform/threads/MainQueue.h"

#include <QEventLoop>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zolt {

namespace {

constexpr int neverEnded = -1;
constexpr int lostStatus = 127 << 8;     // somebody else collected the child: count it as failed
constexpr int shortWaitMilliseconds = 2; // a tool that has closed its output is nearly always gone within this

[[noreturn]] void throwCannotStart(const QString& tool, int fault)
{
    throw PlatformException(
        QStringLiteral("InvalidArgumentException"),
        QStringLiteral("cannot start \"%1\": %2").arg(tool, QString::fromLocal8Bit(std::strerror(fault))));
}

} // namespace

ChildProcess::ChildProcess() = default;

ChildProcess::~ChildProcess()
{
    if (pid_ > 0 && !reap()) childRegistry().adoptOrphan(pid_);
    if (pidFd_ >= 0) ::close(pidFd_);
}

std::shared_ptr<ChildProcess> ChildProcess::withPipe(const QString& launchPath, const QStringList& arguments,
                                                     Environment& environment, const QString& directory)
{
    auto process = std::make_shared<ChildProcess>();
    setUnbufferedIO(environment);
    process->setLaunchPath(launchPath);
    process->setArguments(arguments);
    process->setEnvironment(environment);
    process->setCurrentDirectoryPath(directory);
    process->setStandardOutputAndError(std::make_shared<Pipe>());
    return process;
}

void ChildProcess::launch()
{
    childRegistry().reapOrphans();
    spawn();
    if (!pipe_) return;
    pipe_->closeWriteEnd();
    tellReaderOfEnd();
}

void ChildProcess::tellReaderOfEnd() const
{
    const auto& reader = pipe_->fileHandleForReading();
    if (!reader->readsInBackground()) return;
    // Of its own: an event loop takes one watcher for each descriptor.
    if (const int end = ::fcntl(pidFd_, F_DUPFD_CLOEXEC, 0); end >= 0) reader->watchForEnd(end);
}

void ChildProcess::spawn()
{
    const std::lock_guard guard(mutex_);
    SpawnPlan plan(launchPath_, arguments_, environment_);
    if (pipe_) plan.sendOutputTo(pipe_->writeDescriptor());
    if (!directory_.isEmpty()) plan.startIn(directory_);
    pid_t child = -1;
    if (const int fault = plan.spawn(&child); fault != 0) throwCannotStart(launchPath_, fault);
    pidFd_ = int(::syscall(SYS_pidfd_open, child, 0));
    if (pidFd_ < 0) {
        const int fault = errno; // out of descriptors: nothing could ever wait for this child
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        throwCannotStart(launchPath_, fault);
    }
    pid_ = child;
    childRegistry().add(child);
}

bool ChildProcess::reap()
{
    const std::lock_guard guard(mutex_);
    if (ended_ || pid_ <= 0) return true;
    int status = 0;
    const pid_t collected = ::waitpid(pid_, &status, WNOHANG);
    if (collected == 0) return false;
    waitStatus_ = collected > 0 ? status : lostStatus;
    ended_ = true;
    childRegistry().remove(pid_);
    return true;
}

bool ChildProcess::exited(int timeoutMilliseconds)
{
    pollfd waited{pidFd_, POLLIN, 0};
    return ::poll(&waited, 1, timeoutMilliseconds) > 0 && reap();
}

bool ChildProcess::waitUntilExit()
{
    {
        const std::lock_guard guard(mutex_);
        if (pid_ <= 0) return false;
        if (ended_) return true;
    }
    if (!isMainThread()) {
        waitBlocking();
        return true;
    }
    if (!exited(shortWaitMilliseconds)) waitInEventLoop();
    handOverRest();
    return true;
}

/// The end may be seen before the event loop has met the last output.
void ChildProcess::handOverRest() const
{
    if (!pipe_) return;
    constexpr int most = 2; // what the pipe holds is one piece, and then comes the end if no other process writes on
    const auto handle = pipe_->fileHandleForReading();
    for (int piece = 0; piece < most; ++piece) {
        if (!handle->notifyNow()) return;
    }
}

void ChildProcess::waitInEventLoop()
{
    QEventLoop loop;
    // A descriptor of its own: waits nest, and an event loop takes one watcher for each descriptor.
    const int watched = ::fcntl(pidFd_, F_DUPFD_CLOEXEC, 0);
    if (watched < 0) { // out of descriptors: look now and then
        while (!exited(shortWaitMilliseconds))
            loop.processEvents();
        return;
    }
    {
        QSocketNotifier end(watched, QSocketNotifier::Read);
        // It tells once: while a wait inside this one goes on, an ended child must not keep the loop awake.
        QObject::connect(&end, &QSocketNotifier::activated, &end, [&end] { end.setEnabled(false); });
        while (!exited(0))
            loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    ::close(watched);
}

bool ChildProcess::throwAwayOutput()
{
    const std::lock_guard guard(drain_);
    const auto& handle = pipe_->fileHandleForReading();
    pollfd readable{handle->descriptor(), POLLIN, 0};
    if (::poll(&readable, 1, 0) <= 0) return true; // another waiter was quicker
    return !handle->availableData().isEmpty();
}

void ChildProcess::waitBlocking()
{
    bool outputOpen = true;
    for (bool done = false; !done;) {
        bool discarding = false;
        {
            const std::lock_guard guard(mutex_);
            discarding = discarding_ && pipe_ && outputOpen;
        }
        pollfd waited[2] = {{pidFd_, POLLIN, 0},
                            {discarding ? pipe_->fileHandleForReading()->descriptor() : -1, POLLIN, 0}};
        if (::poll(waited, 2, -1) < 0) continue;
        if (waited[1].revents) outputOpen = throwAwayOutput();
        done = waited[0].revents && reap();
    }
}

void ChildProcess::discardRemainingOutput()
{
    const std::lock_guard guard(mutex_);
    discarding_ = true;
}

void ChildProcess::terminate()
{
    const std::lock_guard guard(mutex_); // nobody collects the child meanwhile, so the number is its own
    if (pid_ > 0 && !ended_) ::kill(-pid_, SIGTERM);
}

void ChildProcess::waitForAll()
{
    if (waitUntilExit()) waitForProcessGroup(pid_);
}

bool ChildProcess::isRunning()
{
    {
        const std::lock_guard guard(mutex_);
        if (pid_ <= 0) return false;
    }
    return !reap();
}

int ChildProcess::terminationStatus()
{
    const std::lock_guard guard(mutex_);
    if (!ended_) return neverEnded;
    return WIFEXITED(waitStatus_) ? WEXITSTATUS(waitStatus_) : WTERMSIG(waitStatus_);
}

ChildProcess::TerminationReason ChildProcess::terminationReason()
{
    const std::lock_guard guard(mutex_);
    return ended_ && WIFSIGNALED(waitStatus_) ? TerminationReason::UncaughtSignal : TerminationReason::Exit;
}

void ChildProcess::takeSignalsBack()
{
    ::signal(SIGCHLD, SIG_DFL);
}

void ChildProcess::terminateAll()
{
    childRegistry().terminateGroups();
}

} // namespace zolt

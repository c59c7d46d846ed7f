#include "platform/process/ChildProcess.h"

#include "platform/errors/Exceptions.h"
#include "platform/process/ChildRegistry.h"
#include "platform/text/Text.h"
#include "platform/threads/MainQueue.h"
#include "platform/threads/NotificationCenter.h"
#include "support/EndlessMoment.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/HeldMutex.h"

#include <QAbstractEventDispatcher>
#include <QFile>
#include <QTimer>

#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace zolt::test {
std::mutex& mutexOf(const ChildProcess&);
template struct OpenMutex<ChildProcess, &ChildProcess::drain_>;
} // namespace zolt::test

namespace {

std::shared_ptr<ChildProcess> fakeProcess(const QStringList& arguments)
{
    auto process = std::make_shared<ChildProcess>();
    process->setLaunchPath(test::fakeTool());
    process->setArguments(arguments);
    process->setEnvironment({{u"PATH"_s, u"/usr/bin"_s}});
    process->setStandardOutputAndError(std::make_shared<Pipe>());
    return process;
}

QByteArray outputOf(const QStringList& arguments)
{
    const auto process = fakeProcess(arguments);
    process->launch();
    return process->standardOutput()->fileHandleForReading()->readDataToEndOfFile();
}

/// Ends and collects what tests before this one have left behind.
void endLeftChildren()
{
    ChildProcess::terminateAll();
    EXPECT_TRUE(test::runUntil([] {
        childRegistry().reapOrphans();
        return childRegistry().count() == 0;
    }));
}

/// What its handle's notifications bring while it lives, asked for until the end.
class Following
{
public:
    explicit Following(std::shared_ptr<FileHandle> handle) : handle_(std::move(handle))
    {
        NotificationCenter::standard().addObserver(this, FileHandleReadCompletionNotification, handle_.get(),
                                                   [this](const Notification& read) { take(read); });
        handle_->readInBackgroundAndNotify();
    }
    ~Following()
    {
        NotificationCenter::standard().removeObserver(this, FileHandleReadCompletionNotification, handle_.get());
    }
    QByteArrayList pieces;
    bool ended() const { return !pieces.isEmpty() && pieces.last().isEmpty(); }

private:
    void take(const Notification& read)
    {
        pieces += std::any_cast<QByteArray>(read.object);
        if (!ended()) handle_->readInBackgroundAndNotify();
    }
    const std::shared_ptr<FileHandle> handle_;
};

} // namespace

TEST(ChildProcess, BothStreamsArriveInTheOrderWritten)
{
    EXPECT_EQ(outputOf({u"out"_s, u"one "_s, u"err"_s, u"two "_s, u"out"_s, u"three"_s}), "one two three");
}

TEST(ChildProcess, StatusIsTheExitStatusOnceItHasEnded)
{
    endLeftChildren();
    const auto process = fakeProcess({u"exit"_s, u"7"_s});
    EXPECT_NE(process->terminationStatus(), 0);
    process->launch();
    process->waitUntilExit();
    EXPECT_FALSE(process->isRunning());
    EXPECT_EQ(process->terminationStatus(), 7);
    EXPECT_EQ(process->terminationReason(), ChildProcess::TerminationReason::Exit);
    EXPECT_EQ(childRegistry().count(), 0U) << "its number may be another's by now";
}

TEST(ChildProcess, DeathBySignalGivesTheSignalAsStatus)
{
    const auto process = fakeProcess({u"kill"_s, u"9"_s});
    process->launch();
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), 9);
    EXPECT_EQ(process->terminationReason(), ChildProcess::TerminationReason::UncaughtSignal);
}

TEST(ChildProcess, ToolThatCannotBeStartedIsNamed)
{
    const auto process = fakeProcess({});
    process->setLaunchPath(u"/nowhere/flac"_s);
    try {
        process->launch();
        FAIL() << "launched";
    } catch (const PlatformException& fault) {
        EXPECT_TRUE(fault.reason().contains(u"/nowhere/flac"_s)) << fault.what();
    }
    process->waitUntilExit(); // both return at once
    process->terminate();
    EXPECT_NE(process->terminationStatus(), 0);
}

TEST(ChildProcess, ChildHasStandardDescriptorsAloneAndNoInput)
{
    const int open = ::open("/dev/null", O_RDONLY); // inheritable, as a careless library would leave it
    EXPECT_EQ(outputOf({u"descriptors"_s}), "0 1 2 ");
    EXPECT_EQ(outputOf({u"stdin"_s}), "empty");
    ::close(open);
}

TEST(ChildProcess, ChildHasDefaultSignalsWhateverThisProgramDoes)
{
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    sigset_t blocked, old;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &old);
    const QByteArray found = outputOf({u"signals"_s});
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
    std::signal(SIGPIPE, before);
    EXPECT_EQ(found, "open default");
}

TEST(ChildProcess, StartsInTheGivenDirectoryWithTheGivenEnvironment)
{
    const QTemporaryDir directory;
    const auto process = fakeProcess({u"cwd"_s, u"out"_s, u" "_s, u"env"_s, u"ZOLT_MARK"_s});
    process->setCurrentDirectoryPath(directory.path());
    process->setEnvironment({{u"ZOLT_MARK"_s, u"wörd"_s}});
    process->launch();
    EXPECT_EQ(process->standardOutput()->fileHandleForReading()->readDataToEndOfFile(),
              (directory.path() + u" wörd"_s).toUtf8());
}

TEST(ChildProcess, SeveralThreadsWaitForOneChild)
{
    const QTemporaryDir directory;
    const QString go = directory.filePath(u"go"_s);
    const auto process = fakeProcess({u"wait-file"_s, go, u"exit"_s, u"3"_s});
    process->launch();
    std::vector<std::thread> waiters;
    std::atomic<int> statuses = 0;
    for (int i = 0; i < 4; ++i) {
        waiters.emplace_back([&] {
            process->waitUntilExit();
            statuses += process->terminationStatus();
        });
    }
    test::touch(go);
    process->waitUntilExit();
    for (auto& waiter : waiters)
        waiter.join();
    EXPECT_EQ(statuses, 12);
}

TEST(ChildProcess, MainThreadsEventLoopGoesOnDuringTheWait)
{
    const QTemporaryDir directory;
    const QString go = directory.filePath(u"go"_s);
    const auto process = fakeProcess({u"wait-file"_s, go});
    process->launch();
    postToMain([&] { postToMain([&] { test::touch(go); }); });
    process->waitUntilExit(); // would never return if what is posted did not run
    EXPECT_EQ(process->terminationStatus(), 0);
}

TEST(ChildProcess, LastWordsAndTheEndAreHandedOverBeforeAWaitOnTheMainThreadReturns)
{
    const auto process = fakeProcess({u"out"_s, u"last words"_s});
    const auto handle = process->standardOutput()->fileHandleForReading();
    const Following following(handle);
    process->launch();
    for (pollfd pipe{handle->descriptor(), 0, 0}; (pipe.revents & POLLHUP) == 0;)
        ASSERT_EQ(::poll(&pipe, 1, 60000), 1) << "until it has written all, without the event loop";
    process->waitUntilExit();
    EXPECT_EQ(following.pieces, QByteArrayList({"last words", ""}));
}

TEST(ChildProcess, ItsEndIsToldAtOnceWhileItsWordsWouldStillGather)
{
    const test::EndlessMoment moment;
    const auto process = fakeProcess({u"out"_s, u"all"_s});
    const Following following(process->standardOutput()->fileHandleForReading());
    process->launch();
    ASSERT_TRUE(test::runUntil([&] { return following.ended(); }));
    EXPECT_EQ(following.pieces, QByteArrayList({"all", ""}));
}

TEST(ChildProcess, ItsEndIsToldAtOnceWhereAnotherThreadLaunchedIt)
{
    const test::EndlessMoment moment;
    const auto process = fakeProcess({u"out"_s, u"all"_s});
    const Following following(process->standardOutput()->fileHandleForReading());
    std::thread([&] { process->launch(); }).join();
    ASSERT_TRUE(test::runUntil([&] { return following.ended(); }));
    EXPECT_EQ(following.pieces, QByteArrayList({"all", ""}));
}

TEST(ChildProcess, WhatIsWrittenBehindItsEndIsStillFollowed)
{
    const test::EndlessMoment moment;
    const QTemporaryDir directory;
    const QString go = directory.filePath(u"go"_s);
    const auto process = fakeProcess({u"-c"_s, u"(until [ -e '%1' ]; do sleep 0.02; done; echo late) &"_s.arg(go)});
    process->setLaunchPath(u"/bin/sh"_s);
    const Following following(process->standardOutput()->fileHandleForReading());
    process->launch();
    process->waitUntilExit();
    test::touch(go);
    ASSERT_TRUE(test::runUntil([&] { return following.ended(); }));
    EXPECT_EQ(following.pieces, QByteArrayList({"late\n", ""}));
}

TEST(ChildProcess, OneThatIsGoneBeforeTheMainThreadHearsOfItsLaunchIsNotWatched)
{
    auto process = fakeProcess({u"out"_s, u"all"_s});
    process->standardOutput()->fileHandleForReading()->readInBackgroundAndNotify();
    std::thread([&] {
        process->launch();
        process->waitUntilExit();
    }).join();
    process.reset();
    test::runPosted(); // would meet the handle
}

TEST(ChildProcess, WaitsNestOnTheMainThread)
{
    const QTemporaryDir directory;
    const QString go = directory.filePath(u"go"_s);
    const auto process = fakeProcess({u"wait-file"_s, go});
    process->launch();
    bool inner = false;
    postToMain([&] {
        postToMain([&] { test::touch(go); });
        process->waitUntilExit();
        inner = true;
    });
    process->waitUntilExit();
    EXPECT_TRUE(inner);
}

TEST(ChildProcess, ChildThatEndedBehindAnInnerWaitDoesNotKeepTheLoopAwake)
{
    const QTemporaryDir directory;
    const QString go = directory.filePath(u"go"_s);
    const auto outer = fakeProcess({u"wait-file"_s, go}),
               inner = fakeProcess({u"wait-file"_s, directory.filePath(u"later"_s)});
    outer->launch();
    inner->launch();
    int wakes = 0;
    const auto counting =
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, [&] { ++wakes; });
    postToMain([&] {
        test::touch(go);
        QTimer::singleShot(300, [&] { test::touch(directory.filePath(u"later"_s)); });
        inner->waitUntilExit();
    });
    outer->waitUntilExit();
    QObject::disconnect(counting);
    EXPECT_LT(wakes, 200) << "a loop that spins wakes many thousand times";
}

TEST(ChildProcess, TalkativeToolEndsWhenNobodyReadsAnyMore)
{
    const auto process = fakeProcess({u"flood"_s, u"3000000"_s, u"exit"_s, u"5"_s});
    process->launch();
    process->discardRemainingOutput();
    std::thread([&] { process->waitUntilExit(); }).join();
    EXPECT_EQ(process->terminationStatus(), 5);
}

TEST(ChildProcess, TerminateEndsARunningChild)
{
    const auto process = fakeProcess({u"wait-file"_s, u"/nowhere"_s});
    process->launch();
    EXPECT_TRUE(process->isRunning());
    process->terminate();
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), SIGTERM);
}

TEST(ChildProcess, AllRunningChildrenAreToldToEndWithTheirOwn)
{
    const QTemporaryDir directory;
    const QString ready = directory.filePath(u"ready"_s);
    const auto process = fakeProcess({u"child"_s, u"touch"_s, ready, u"wait-file"_s, u"/nowhere"_s});
    const auto other = fakeProcess({u"wait-file"_s, u"/nowhere"_s});
    process->launch();
    other->launch();
    ASSERT_TRUE(test::runUntil([&] { return QFile::exists(ready); }));
    ChildProcess::terminateAll();
    other->waitUntilExit();
    EXPECT_EQ(other->terminationStatus(), SIGTERM);
    // The grandchild holds the pipe open; its end is the end of file.
    EXPECT_EQ(process->standardOutput()->fileHandleForReading()->readDataToEndOfFile(), "");
}

namespace {

/// While it lives, this program gets no descriptor more.
class NoMoreDescriptors
{
public:
    NoMoreDescriptors()
    {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        const int next = ::dup(0);
        ::close(next);
        const rlimit none{rlim_t(next), before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreDescriptors() { ::setrlimit(RLIMIT_NOFILE, &before_); }

private:
    rlimit before_;
};

} // namespace

TEST(ChildProcess, WhatAToolLeftBehindIsWaitedForThoughDescriptorsAreShort)
{
    const QTemporaryDir directory;
    const QByteArray go = directory.filePath(u"go"_s).toLocal8Bit(),
                     ended = directory.filePath(u"ended"_s).toLocal8Bit();
    const auto process = fakeProcess(
        {u"child"_s, u"wait-file"_s, QString::fromLocal8Bit(go), u"touch"_s, QString::fromLocal8Bit(ended)});
    process->launch();
    process->waitUntilExit();
    std::atomic<bool> areShort = false, begun = false;
    bool hadEnded = false;
    std::thread waiter([&] { // started ahead: the sanitizers need a descriptor for that
        while (!areShort)
            std::this_thread::yield();
        begun = true;
        process->waitForAll();
        hadEnded = ::access(ended.constData(), F_OK) == 0;
    });
    {
        const NoMoreDescriptors none;
        areShort = true;
        while (!begun)
            std::this_thread::yield();
        ::mkdir(go.constData(), 0700); // a sign that takes no descriptor to give
    }
    waiter.join();
    EXPECT_TRUE(hadEnded);
}

TEST(ChildProcess, ChildWhoseOwnerIsGoneIsStillToldToEndAndThenCollected)
{
    endLeftChildren();
    {
        const auto process = fakeProcess({u"wait-file"_s, u"/nowhere"_s});
        process->launch();
    }
    EXPECT_EQ(childRegistry().count(), 1U);
    endLeftChildren(); // a number that may be another's by now must not be signalled
}

TEST(ChildProcess, WaitersThatThrowOutputAwayDoNotWaitForMoreOfIt)
{
    constexpr int waiting = 2;
    const QTemporaryDir directory;
    const QString go = directory.filePath(u"go"_s);
    // What it leaves behind holds the pipe open: a read of an empty pipe would wait for that.
    const auto process = fakeProcess({u"out"_s, u"text"_s, u"child"_s, u"wait-file"_s, go});
    process->launch();
    process->discardRemainingOutput();
    pollfd output{process->standardOutput()->fileHandleForReading()->descriptor(), POLLIN, 0};
    ASSERT_EQ(::poll(&output, 1, -1), 1);
    std::atomic<int> returned = 0;
    std::vector<std::thread> waiters;
    {
        // Both see the text before either takes it.
        const std::lock_guard held(test::mutexOf(*process));
        std::atomic<pid_t> ids[waiting] = {};
        for (auto& id : ids) {
            waiters.emplace_back([&] {
                id = gettid();
                process->waitUntilExit();
                ++returned;
            });
        }
        ASSERT_TRUE(test::runUntil(
            [&] { return std::all_of(std::begin(ids), std::end(ids), [](pid_t id) { return test::sleeps(id); }); }));
    }
    EXPECT_TRUE(test::runUntil([&] { return returned == waiting; }));
    test::touch(go);
    for (auto& waiter : waiters)
        waiter.join();
    process->standardOutput()->fileHandleForReading()->readDataToEndOfFile(); // it still looks for the sign
}

namespace {

std::atomic<int> interruptions = 0;

/// While it lives, SIGUSR1 interrupts system calls and is counted.
class Interrupting
{
public:
    Interrupting()
    {
        interruptions = 0;
        struct sigaction action = {};
        action.sa_handler = [](int) { ++interruptions; };
        ::sigaction(SIGUSR1, &action, &before_);
    }
    ~Interrupting() { ::sigaction(SIGUSR1, &before_, nullptr); }

    /// Interrupts the thread some times, so that most of them meet it in a wait.
    static void interrupt(std::thread& thread)
    {
        for (int goal = 1; goal <= 20; ++goal) {
            ::pthread_kill(thread.native_handle(), SIGUSR1);
            ASSERT_TRUE(test::runUntil([goal] { return interruptions >= goal; }));
        }
    }

private:
    struct sigaction before_ = {};
};

} // namespace

TEST(ChildProcess, SignalsDoNotCutAReadShort)
{
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "the thread sanitizer hands signals on only when the read is over";
#endif
    const Interrupting interrupting;
    Pipe pipe;
    QByteArray got;
    std::thread reader([&] { got = pipe.fileHandleForReading()->availableData(); });
    Interrupting::interrupt(reader);
    ASSERT_EQ(::write(pipe.writeDescriptor(), "x", 1), 1);
    reader.join();
    EXPECT_EQ(got, "x");
}

TEST(ChildProcess, SignalsDoNotCutAWaitShort)
{
    const Interrupting interrupting;
    const QTemporaryDir directory;
    const QString go = directory.filePath(u"go"_s);
    const auto process = fakeProcess({u"wait-file"_s, go});
    process->launch();
    std::atomic<bool> returned = false;
    std::thread waiter([&] {
        process->waitUntilExit();
        returned = true;
    });
    Interrupting::interrupt(waiter);
    EXPECT_FALSE(returned);
    test::touch(go);
    waiter.join();
    EXPECT_EQ(process->terminationStatus(), 0);
}

TEST(ChildProcess, StatusIsKnownThoughTheProgramWasStartedWithItsChildrenIgnored)
{
    std::signal(SIGCHLD, SIG_IGN);
    ChildProcess::takeSignalsBack();
    const auto process = fakeProcess({u"exit"_s, u"0"_s});
    process->launch();
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), 0);
}

TEST(ChildProcess, ChildThatNobodyWaitedForLeavesNoZombie)
{
    {
        const auto process = fakeProcess({u"exit"_s, u"0"_s});
        process->launch();
    }
    const auto collected = [] {
        const auto next = fakeProcess({u"exit"_s, u"0"_s}); // a launch collects what has ended
        next->launch();
        next->waitUntilExit();
        return ::waitpid(-1, nullptr, WNOHANG) == -1;
    };
    EXPECT_TRUE(test::runUntil(collected));
}

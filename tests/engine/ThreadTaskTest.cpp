#include "EngineFixture.h"
#include "engine/OutputWindowController.h"
#include "engine/ZOLTThreadTask.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/LogCapture.h"
#include "support/QueueRun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class BlockingTask : public ZOLTThreadTask
{
public:
    static std::shared_ptr<BlockingTask> make(ZOLTTaskQueue* queue, const QStringList& arguments,
                                              const ThreadEnd& end = {})
    {
        std::shared_ptr<BlockingTask> task(new BlockingTask(end));
        task->setUpThreadTask(queue);
        task->arguments_ = arguments;
        task->showTitle(u"blocking"_s);
        return task;
    }
    QString heard() const { return get(heard_); }
    std::atomic<bool> onMain = false;
    QString toolPath = fakeTool();
    std::function<void()> atCleanup = [] {};

    void cleanup() override { atCleanup(); }
    void processTaskOutput(const OptionalText& output) override
    {
        put(heard_, heard() + textOrEmpty(output));
        appendResults(output);
    }

    bool fails = false;

protected:
    explicit BlockingTask(const ThreadEnd& end) : ZOLTThreadTask(end) {}
    void doStartTask() override
    {
        onMain = isMainThread();
        beginRow();
        runTool({.tool = toolPath, .arguments = arguments_});
        if (fails) setError(true);
        stopTask(nullptr);
    }

private:
    QStringList arguments_;
    QString heard_;
};

/// Ends its tool at a cancel, drops its results ahead of the row, and does one thing before the tool starts.
class TerminatingTask : public ZOLTThreadTask
{
public:
    static std::shared_ptr<TerminatingTask> make(ZOLTTaskQueue* queue, const QStringList& arguments)
    {
        std::shared_ptr<TerminatingTask> task(new TerminatingTask);
        task->setUpThreadTask(queue);
        task->arguments_ = arguments;
        task->showTitle(u"terminating"_s);
        return task;
    }
    std::function<void()> first = [] {};

protected:
    TerminatingTask() : ZOLTThreadTask({.waits = ThreadEnd::Waits::Terminate, .drops = ThreadEnd::Drops::AheadOfRow}) {}
    void doStartTask() override
    {
        beginRow();
        first();
        runTool({.tool = fakeTool(), .arguments = arguments_, .afterwards = ToolCall::Afterwards::WaitAndTerminate});
        stopTask(nullptr);
    }

private:
    QStringList arguments_;
};

class ThreadTask : public EngineTest
{
protected:
    void finish() { EXPECT_TRUE(runToEnd(queue_)); }
    QTemporaryDir directory_;
};

} // namespace

TEST_F(ThreadTask, RunsItsToolOnAThreadOfItsOwnAndOpensNoWindowForAGoodEnd)
{
    const QString go = directory_.filePath(u"go"_s);
    const auto task = BlockingTask::make(&queue_, {u"wait-file"_s, go, u"out"_s, u"text"_s});
    queue_.addTask(task);
    EXPECT_TRUE(task->isActive()) << "must not look like a waiting task before its thread runs";
    touch(go);
    finish();
    EXPECT_FALSE(task->onMain);
    EXPECT_EQ(task->heard(), u"text"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(ThreadTask, FailureKeepsTheTextForAWindow)
{
    const LogCapture log;
    const auto task = BlockingTask::make(&queue_, {u"out"_s, u"why"_s, u"exit"_s, u"3"_s});
    queue_.addTask(task);
    finish();
    EXPECT_TRUE(task->error());
    ASSERT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_EQ(queue_.outputWindows()[0]->textField()->string(), u"why\n"_s);
}

TEST_F(ThreadTask, WhatKilledItsToolIsNotedForWhoeverTellsTheCause)
{
    const LogCapture log;
    queue_.addTask(BlockingTask::make(&queue_, {u"kill"_s, u"9"_s}));
    finish();
    EXPECT_EQ(queue_.outputWindows().at(0)->facts().notes.signal, 9);
}

TEST_F(ThreadTask, EndedTasksKeepNoDescriptorsWhileTheirRowsStay)
{
    const LogCapture log;
    for (const ThreadEnd& end : {ThreadEnd(), ThreadEnd{.waits = ThreadEnd::Waits::No, .readsStatus = false}}) {
        const auto runOne = [&] {
            const auto task = BlockingTask::make(&queue_, {}, end);
            task->fails = true;
            queue_.addTask(task);
            finish();
            return QDir(u"/proc/self/fd"_s).count();
        };
        const auto before = runOne();
        EXPECT_EQ(runOne(), before);
        EXPECT_EQ(runOne(), before);
    }
}

TEST_F(ThreadTask, CleanupOfACancelAndOfTheThreadNeverRunAtOnce)
{
    const LogCapture log;
    const auto task = BlockingTask::make(&queue_, {}, {.runsCleanup = true});
    std::atomic<int> inside = 0, runs = 0;
    std::atomic<bool> overlapped = false;
    task->atCleanup = [&] {
        overlapped = overlapped || ++inside > 1;
        ++runs;
        while (!task->cancelled())
            std::this_thread::yield();
        for (int chance = 0; chance < 20000; ++chance) // for the other to come in
            std::this_thread::yield();
        --inside;
    };
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return runs == 1; }));
    task->cancelTask(nullptr);
    finish();
    EXPECT_EQ(runs, 2);
    EXPECT_FALSE(overlapped);
}

TEST_F(ThreadTask, CancelIsSeenAtTheNextPieceWhichIsDroppedAndTheToolRunsToItsEnd)
{
    const LogCapture log;
    const QString go = directory_.filePath(u"go"_s), ended = directory_.filePath(u"ended"_s);
    const auto task = BlockingTask::make(
        &queue_, {u"out"_s, u"first"_s, u"wait-file"_s, go, u"flood"_s, u"500000"_s, u"touch"_s, ended});
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->heard() == u"first"_s; }));
    QMetaObject::invokeMethod(
        qApp, [&] { touch(go); }, Qt::QueuedConnection);
    task->cancelTask(nullptr);
    finish();
    EXPECT_TRUE(QFile::exists(ended)) << "the tool was neither cut short nor left blocked on its pipe";
    EXPECT_EQ(task->heard(), u"first"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_FALSE(task->error());
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted"_s), 1) << "reports from both threads";
    EXPECT_EQ(task->results(), nullptr);
}

TEST_F(ThreadTask, ACancelThatMeetsTheToolBeforeItRunsEndsItAllTheSame)
{
    const auto task = TerminatingTask::make(&queue_, {u"wait-file"_s, directory_.filePath(u"never"_s)});
    task->first = [&] { task->setCancelled(true); };
    queue_.addTask(task);
    finish();
    EXPECT_FALSE(task->error());
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
}

TEST_F(ThreadTask, WhatACancelLeadsToIsNoFailure)
{
    const LogCapture log;
    const auto task = TerminatingTask::make(&queue_, {});
    task->first = [&] {
        task->setCancelled(true);
        throw PlatformException(u"Exception"_s, u"there is no output"_s);
    };
    queue_.addTask(task);
    finish();
    EXPECT_FALSE(task->error());
    EXPECT_TRUE(queue_.panelArray().empty()) << "the row is swept";
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(ThreadTask, AFolderIsAppendedToThePathOfItsTools)
{
    const auto task = BlockingTask::make(&queue_, {u"env"_s, u"PATH"_s});
    task->appendToPATH(u"/more"_s);
    queue_.addTask(task);
    finish();
    EXPECT_TRUE(task->heard().endsWith(u":/more"_s)) << task->heard().toStdString();
}

TEST_F(ThreadTask, CancelledWhileWaitingReportsWithoutRunning)
{
    setLimit(0);
    const QString mark = directory_.filePath(u"ran"_s);
    const auto task = BlockingTask::make(&queue_, {u"touch"_s, mark});
    queue_.addTask(task);
    queue_.cancelAllTasks(nullptr);
    EXPECT_EQ(queue_.taskCount(), 0);
    EXPECT_FALSE(QFile::exists(mark));
}

TEST_F(ThreadTask, CancelledBeforeItsThreadBeginsNeverRuns)
{
    const LogCapture log;
    for (int round = 0; round < 50; ++round) { // the thread may also win: then its tool runs, and both report
        const auto task = BlockingTask::make(&queue_, {});
        queue_.addTask(task);
        task->cancelTask(nullptr);
        finish();
        EXPECT_TRUE(task->isDone());
        EXPECT_FALSE(task->isActive());
        EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    }
}

TEST_F(ThreadTask, SetOfThreadTasksOpensOneWindow)
{
    const LogCapture log;
    for (int round = 0; round < 30; ++round) {
        const auto set = std::make_shared<ZOLTTaskResults>();
        std::vector<std::shared_ptr<BlockingTask>> tasks;
        for (int i = 0; i < 2; ++i) {
            tasks.push_back(BlockingTask::make(&queue_, {u"exit"_s, u"1"_s}));
            tasks.back()->setResults(set);
            set->addTaskInSet(tasks.back());
        }
        const auto before = queue_.outputWindows().size();
        for (const auto& task : tasks)
            queue_.addTask(task);
        finish();
        EXPECT_EQ(queue_.outputWindows().size(), before + 1);
        queue_.removeAllErrors(nullptr);
    }
}

TEST_F(ThreadTask, ToolThatCannotBeStartedEndsTheRowWithTheReason)
{
    const LogCapture log;
    const auto task = BlockingTask::make(&queue_, {});
    task->toolPath = u"/nowhere/tool"_s;
    queue_.addTask(task);
    finish();
    EXPECT_TRUE(task->error());
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
    ASSERT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_TRUE(queue_.outputWindows()[0]->textField()->string().contains(u"/nowhere/tool"_s));
}

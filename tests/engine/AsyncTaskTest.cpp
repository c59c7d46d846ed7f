#include "EngineFixture.h"
#include "engine/OutputWindowController.h"
#include "engine/ZOLTAsyncNSTask.h"
#include "engine/ZOLTAsyncNSTaskFileOutputRedirection.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/FakeTools.h"
#include "support/HeldMutex.h"
#include "support/LogCapture.h"
#include "support/QueueRun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// Remembers its pieces and hooks, and faults where the test says so.
class ToolTask : public ZOLTAsyncNSTask
{
public:
    static std::shared_ptr<ToolTask> make(ZOLTTaskQueue* queue, const QStringList& arguments,
                                          const QString& tool = fakeTool())
    {
        std::shared_ptr<ToolTask> task(new ToolTask);
        task->setUpAsyncTask(queue, tool, arguments);
        task->showTitle(u"tool"_s);
        return task;
    }
    void processTaskOutput(const OptionalText& output) override
    {
        pieces.push_back(output);
        ZOLTAsyncNSTask::processTaskOutput(output);
        if (faultInParser) throw RangeException(u"parser fault"_s);
    }
    void cleanup() override
    {
        order += u"cleanup "_s + (isDone() ? u"done "_s : u""_s) + topTextField()->stringValue() + u';';
        if (faultInCleanup) throw RangeException(u"cleanup fault"_s);
    }
    void finalCleanup() override { order += u"final "_s + topTextField()->stringValue() + u';'; }

    std::vector<OptionalText> pieces;
    QString order;
    bool faultInParser = false;
    bool faultInCleanup = false;
};

class AsyncTask : public EngineTest
{
protected:
    std::shared_ptr<ToolTask> run(const QStringList& arguments)
    {
        auto task = ToolTask::make(&queue_, arguments);
        queue_.addTask(task);
        return finished(task);
    }
    std::shared_ptr<ToolTask> finished(const std::shared_ptr<ToolTask>& task)
    {
        EXPECT_TRUE(runToEnd(queue_));
        return task;
    }
    QTemporaryDir directory_;
};

} // namespace

TEST_F(AsyncTask, SilentToolCompletesWithOneReadOfTheEnd)
{
    const auto task = run({});
    EXPECT_TRUE(task->pieces.empty());
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
}

TEST_F(AsyncTask, ErrorStreamIsReadLikeTheOther)
{
    const auto task = run({u"err"_s, u"said"_s});
    ASSERT_EQ(task->pieces.size(), 1U);
    EXPECT_EQ(task->pieces[0], u"said"_s);
}

TEST_F(AsyncTask, FailureLeavesARowAndAWindowWithTheToolsText)
{
    const LogCapture log;
    const auto task = run({u"out"_s, u"why"_s, u"exit"_s, u"1"_s});
    EXPECT_TRUE(task->error());
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
    EXPECT_EQ(queue_.panelArray().size(), 1U);
    ASSERT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_EQ(queue_.outputWindows()[0]->textField()->string(), u"why\n"_s);
    EXPECT_EQ(queue_.outputWindows()[0]->window()->title(), u"tool"_s);
}

TEST_F(AsyncTask, DeathBySignalIsAFailure)
{
    const LogCapture log;
    const auto task = run({u"kill"_s, u"15"_s}); // one that no sanitizer makes something else of
    EXPECT_TRUE(task->error());
    EXPECT_EQ(queue_.outputWindows().at(0)->facts().notes.signal, 15) << "for whoever tells the cause";
}

TEST_F(AsyncTask, PieceThatEndsInsideACharacterReachesTheHookAsNoText)
{
    const QString go = directory_.filePath(u"go"_s);
    const auto task = ToolTask::make(&queue_, {u"hex"_s, u"41C3"_s, u"wait-file"_s, go, u"hex"_s, u"A9"_s});
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->pieces.size() == 1; }));
    touch(go);
    finished(task);
    EXPECT_EQ(task->pieces, std::vector<OptionalText>({std::nullopt, std::nullopt}));
    EXPECT_FALSE(task->error());
}

TEST_F(AsyncTask, TextsOfASetStandInTheirTasksOwnSlots)
{
    const auto set = std::make_shared<ZOLTTaskResults>();
    for (const QString& said : {u"first"_s, u"second"_s}) {
        const auto task = ToolTask::make(&queue_, {u"out"_s, said});
        task->setResults(set);
        set->addTaskInSet(task);
        queue_.addTask(task);
    }
    ASSERT_TRUE(runToEnd(queue_));
    EXPECT_EQ(set->results(), u"first\nsecond\n"_s);
}

TEST_F(AsyncTask, FloodOfOutputIsReadToTheEnd)
{
    const auto task = run({u"flood"_s, u"5000000"_s});
    qsizetype units = 0;
    for (const auto& piece : task->pieces)
        units += piece->size();
    EXPECT_EQ(units, 5000000);
}

TEST_F(AsyncTask, HooksRunBeforeAndAfterTheOutcomeIsShown)
{
    EXPECT_EQ(run({})->order, u"cleanup done Waiting...;final Complete;"_s);
}

TEST_F(AsyncTask, ParserFaultIsLoggedAndTheRowStillEnds)
{
    const LogCapture log;
    const auto task = ToolTask::make(&queue_, {u"out"_s, u"a"_s});
    task->faultInParser = true;
    queue_.addTask(task);
    finished(task);
    EXPECT_EQ(log.count(u"parser fault"_s), 1);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
}

TEST_F(AsyncTask, CleanupFaultIsLoggedAndCostsTheRowNothing)
{
    const LogCapture log;
    const auto task = ToolTask::make(&queue_, {});
    task->faultInCleanup = true;
    queue_.addTask(task);
    finished(task);
    EXPECT_EQ(log.count(u"cleanup fault"_s), 1);
    EXPECT_EQ(task->order, u"cleanup done Waiting...;final Complete;"_s);
}

TEST_F(AsyncTask, CancelWaitsForTheToolsOwnEndAndReportsTwice)
{
    const LogCapture log;
    const QString go = directory_.filePath(u"go"_s), ended = directory_.filePath(u"ended"_s);
    const auto task = ToolTask::make(&queue_, {u"wait-file"_s, go, u"touch"_s, ended, u"exit"_s, u"1"_s});
    queue_.addTask(task);
    QMetaObject::invokeMethod(
        qApp, [&] { touch(go); }, Qt::QueuedConnection);
    task->cancelButton()->performAction();
    EXPECT_TRUE(QFile::exists(ended)) << "the tool was not cut short";
    EXPECT_TRUE(task->cancelled());
    EXPECT_FALSE(task->error()) << "a cancel never counts as an error";
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_EQ(task->order.count(u"cleanup"_s), 2);
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted"_s), 1);
    EXPECT_EQ(queue_.taskCount(), 0);
    EXPECT_EQ(task->results(), nullptr);
}

TEST_F(AsyncTask, OutputGoesOnBeingReadWhileACancelWaits)
{
    const LogCapture log;
    const QString go = directory_.filePath(u"go"_s);
    const auto task = ToolTask::make(&queue_, {u"wait-file"_s, go, u"flood"_s, u"1000000"_s, u"out"_s, u"last"_s});
    queue_.addTask(task);
    QMetaObject::invokeMethod(
        qApp, [&] { touch(go); }, Qt::QueuedConnection);
    task->cancelTask(nullptr); // the tool would block on a full pipe if nobody read
    ASSERT_FALSE(task->pieces.empty());
}

TEST_F(AsyncTask, WaitingTaskThatIsCancelledRunsNoTool)
{
    setLimit(0);
    const QString mark = directory_.filePath(u"ran"_s);
    const auto task = ToolTask::make(&queue_, {u"touch"_s, mark});
    queue_.addTask(task);
    queue_.cancelAllTasks(nullptr);
    EXPECT_FALSE(QFile::exists(mark));
    EXPECT_EQ(task->order.count(u"cleanup"_s), 1);
    EXPECT_EQ(queue_.taskCount(), 0);
}

TEST_F(AsyncTask, CancelledBetweenItsChoiceAndItsStartRunsNoTool)
{
    const QString mark = directory_.filePath(u"ran"_s);
    const auto task = ToolTask::make(nullptr, {u"touch"_s, mark});
    task->cancelTask(nullptr);
    task->startTask(); // the queue had chosen it before
    task->stopTask(nullptr);
    EXPECT_FALSE(QFile::exists(mark));
    EXPECT_FALSE(task->isActive());
    EXPECT_TRUE(task->isDone());
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_TRUE(task->cancelButton()->isHidden());
    task->setResults(nullptr);
}

TEST_F(AsyncTask, CancelThatMeetsAStartOnAnotherThreadEitherWaitsForTheToolOrKeepsItFromRunning)
{
    const LogCapture log;
    setLimit(1);
    for (int round = 0; round < 30; ++round) {
        const QString begun = directory_.filePath(u"begun%1"_s.arg(round)),
                      ended = directory_.filePath(u"ended%1"_s.arg(round));
        const auto first = TestTask::make(&queue_);
        queue_.addTask(first);
        const auto task = ToolTask::make(&queue_, {u"touch"_s, begun, u"touch"_s, ended});
        queue_.addTask(task);
        detachThread([first] { first->finish(); }); // starts the next on that thread
        task->cancelTask(nullptr);
        waitForDetachedThreads();
        finished(task);
        EXPECT_EQ(QFile::exists(begun), QFile::exists(ended)) << "a tool ran behind a row that had ended";
        EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
        EXPECT_FALSE(task->isActive());
    }
}

namespace {

/// Is cancelled on another thread in the midst of its start.
class OvertakenTask : public ZOLTAsyncNSTask
{
public:
    static std::shared_ptr<OvertakenTask> make(ZOLTTaskQueue* queue, const QStringList& arguments)
    {
        std::shared_ptr<OvertakenTask> task(new OvertakenTask);
        task->setUpAsyncTask(queue, fakeTool(), arguments);
        return task;
    }
    bool endedAtItsStart = false;
    std::thread canceller;

protected:
    void showStart() override
    {
        std::atomic<pid_t> thread = 0;
        canceller = std::thread([&] {
            thread = gettid();
            cancelTask(nullptr);
        });
        while (!isDone() && !(cancelled() && sleeps(thread)))
            std::this_thread::yield();
        endedAtItsStart = isDone();
    }
};

} // namespace

TEST_F(AsyncTask, CancelInTheMidstOfAStartWaitsForItAndForTheTool)
{
    const LogCapture log;
    const QString ended = directory_.filePath(u"ended"_s);
    const auto task = OvertakenTask::make(&queue_, {u"touch"_s, ended});
    queue_.addTask(task);
    EXPECT_FALSE(task->endedAtItsStart);
    task->canceller.join();
    EXPECT_TRUE(QFile::exists(ended));
    EXPECT_TRUE(runToEnd(queue_));
}

TEST_F(AsyncTask, PiecesAreCompletedByTheToolsDialectBeforeTheHookSeesThem)
{
    FakeTools tools;
    const QString go = directory_.filePath(u"go"_s);
    tools.install(u"flac"_s, {u"out"_s, u"a.flac: 1% complete\b"_s, u"wait-file"_s, go, u"out"_s, u"2% complete\b3"_s});
    const auto task = ToolTask::make(&queue_, {u"-d"_s}, toolPath(u"flac"_s));
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->pieces.size() == 1; }));
    touch(go);
    finished(task);
    EXPECT_EQ(task->pieces, std::vector<OptionalText>({u"a.flac: 1% complete\b"_s, u"a.flac: 2% complete\b"_s, u"3"_s}))
        << "what waited for more is handed out at the end";
}

TEST_F(AsyncTask, ResultsOutliveTheirTasksPlaceForAsLongAsSomebodyIsInside)
{
    const auto task = ToolTask::make(&queue_, {});
    {
        const ZOLTTask::Hold hold(task);
        queue_.addTask(task);
        finished(task);
        EXPECT_NE(task->results(), nullptr) << "swept, but somebody is inside";
    }
    EXPECT_EQ(task->results(), nullptr);
}

TEST_F(AsyncTask, HookThatRunsBehindTheReportStillHasItsResults)
{
    class Late : public ToolTask
    {
    public:
        static std::shared_ptr<Late> make(ZOLTTaskQueue* queue)
        {
            std::shared_ptr<Late> task(new Late);
            task->setUpAsyncTask(queue, fakeTool(), {});
            return task;
        }
        void stopTask(Sender sender) override
        {
            ToolTask::stopTask(sender);
            hadResults = results() != nullptr;
        }
        bool hadResults = false;
    };
    const auto ended = Late::make(&queue_);
    queue_.addTask(ended);
    ASSERT_TRUE(runToEnd(queue_));
    EXPECT_TRUE(ended->hadResults) << "at the end of output";
    setLimit(0);
    const auto cancelled = Late::make(&queue_);
    queue_.addTask(cancelled);
    cancelled->cancelTask(nullptr);
    EXPECT_TRUE(cancelled->hadResults) << "at a cancel";
}

TEST_F(AsyncTask, StageBeginsWithTheTool)
{
    const auto task = ToolTask::make(&queue_, {});
    EXPECT_EQ(task->stage(), 0);
    EXPECT_EQ(task->stageCount(), 1);
    queue_.addTask(task);
    EXPECT_EQ(task->stage(), 1);
    finished(task);
}

TEST_F(AsyncTask, ErrorSetByAParserStaysThoughTheToolExitsWithZero)
{
    const LogCapture log;
    const QString go = directory_.filePath(u"go"_s);
    const auto task = ToolTask::make(&queue_, {u"wait-file"_s, go});
    queue_.addTask(task);
    task->setError(true);
    touch(go);
    finished(task);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
}

TEST_F(AsyncTask, TaskStartedOnATaskThreadGetsItsOutput)
{
    setLimit(1);
    const auto first = TestTask::make(&queue_);
    queue_.addTask(first);
    const auto task = ToolTask::make(&queue_, {u"out"_s, u"heard"_s});
    queue_.addTask(task);
    detachThread([first] { first->finish(); }); // starts the next on this thread, which then ends
    finished(task);
    waitForDetachedThreads();
    ASSERT_EQ(task->pieces.size(), 1U);
    EXPECT_EQ(task->pieces[0], u"heard"_s);
}

TEST_F(AsyncTask, WhatAToolsOwnChildStillWritesIsReadBeforeTheRowEnds)
{
    const LogCapture log;
    const QString ended = directory_.filePath(u"ended"_s);
    const auto task = ToolTask::make(&queue_, {u"child"_s, u"flood"_s, u"500000"_s, u"touch"_s, ended});
    queue_.addTask(task);
    task->stopTask(nullptr);
    EXPECT_TRUE(QFile::exists(ended)) << "it was neither left blocked on its pipe nor cut off";
}

TEST_F(AsyncTask, EndedTasksKeepNoDescriptorsWhileTheirRowsStay)
{
    const LogCapture log;
    const auto open = [] { return QDir(u"/proc/self/fd"_s).count(); };
    run({u"exit"_s, u"1"_s});
    const auto before = open();
    for (int i = 0; i < 20; ++i)
        run({u"exit"_s, u"1"_s});
    EXPECT_EQ(queue_.panelArray().size(), 21U);
    EXPECT_EQ(open(), before);
}

TEST_F(AsyncTask, DescriptionQuotesPathAndArgumentsEachOnALine)
{
    const auto task = ToolTask::make(nullptr, {u"-d"_s, u"a b.flac"_s});
    EXPECT_EQ(task->description(), u"\"%1\"\n \"-d\"\n \"a b.flac\"\n "_s.arg(fakeTool()));
    task->setResults(nullptr);
}

TEST_F(AsyncTask, ChildFindsToolsDirectoryUnbufferedIoAndAddedPath)
{
    const auto task = ToolTask::make(
        &queue_, {u"env"_s, u"PATH"_s, u"out"_s, u"|"_s, u"env"_s, u"NSUnbufferedIO"_s, u"out"_s, u"|"_s, u"cwd"_s});
    task->appendToPATH(u"/extra"_s);
    task->setDirectory(directory_.path());
    queue_.addTask(task);
    finished(task);
    QString all;
    for (const auto& piece : task->pieces)
        all += *piece;
    EXPECT_EQ(all, QString::fromLocal8Bit(qgetenv("PATH")) + u':' + toolsDirectory() + u":/extra|YES|"_s +
                       directory_.path());
}

TEST_F(AsyncTask, ToolThatCannotBeLaunchedThrowsFromTheStart)
{
    const auto task = ZOLTAsyncNSTask::initAsyncTaskWithQueueLaunchPathArguments(&queue_, u"/nowhere/tool"_s, {});
    EXPECT_THROW(task->startTask(), PlatformException);
    task->setResults(nullptr);
}

TEST_F(AsyncTask, LaunchThatFailsInAReportEndsTheRowAsFailed)
{
    const LogCapture log;
    setLimit(1);
    const auto first = TestTask::make(&queue_);
    queue_.addTask(first);
    const auto task = ZOLTAsyncNSTask::initAsyncTaskWithQueueLaunchPathArguments(&queue_, u"/nowhere/tool"_s, {});
    queue_.addTask(task);
    first->finish();
    ASSERT_TRUE(runToEnd(queue_));
    EXPECT_TRUE(task->error());
    ASSERT_EQ(queue_.outputWindows().size(), 1U); // the fault cut the first one's report short
    EXPECT_TRUE(queue_.outputWindows()[0]->textField()->string().contains(u"/nowhere/tool"_s));
}

class Redirection : public AsyncTask
{
protected:
    QString saved(const QStringList& arguments)
    {
        const QString file = directory_.filePath(u"saved.txt"_s);
        const auto task = ZOLTAsyncNSTaskFileOutputRedirection::initWithFileNameQueueLaunchPathArguments(
            file, &queue_, fakeTool(), arguments);
        task->setTitle(u"list"_s);
        task->setSubTitle(u"Writing"_s);
        queue_.addTask(task);
        EXPECT_EQ(task->topTextField()->stringValue(), u"Writing"_s);
        EXPECT_EQ(task->textField()->stringValue(), u"list"_s);
        EXPECT_TRUE(runToEnd(queue_));
        QFile text(file);
        return text.open(QIODevice::ReadOnly) ? QString::fromUtf8(text.readAll()) : u"no file"_s;
    }
};

TEST_F(Redirection, TextOfTheToolIsSavedAndNoWindowOpens)
{
    EXPECT_EQ(saved({u"out"_s, u"grün"_s}), u"grün\n"_s);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(Redirection, FileIsWrittenBehindTheReportAndTheSetIsNotMarked)
{
    const QString file = directory_.filePath(u"saved.txt"_s);
    setLimit(1);
    const auto task = ZOLTAsyncNSTaskFileOutputRedirection::initWithFileNameQueueLaunchPathArguments(
        file, &queue_, fakeTool(), {u"out"_s, u"text"_s});
    const auto set = task->results();
    /// Looks for the file when the queue starts it, which is in the report of the task before it.
    class Next : public ZOLTTask
    {
    public:
        static std::shared_ptr<Next> make(ZOLTTaskQueue* queue, const QString& file)
        {
            std::shared_ptr<Next> next(new Next);
            next->setUpWithQueue(queue);
            next->file_ = file;
            return next;
        }
        void startTask() override
        {
            found = QFile::exists(file_);
            ZOLTTask::startTask();
        }
        void finish()
        {
            stopTask(nullptr);
            reportCompleted();
        }
        std::optional<bool> found;

    private:
        QString file_;
    };
    const auto next = Next::make(&queue_, file);
    queue_.addTask(task);
    queue_.addTask(next);
    ASSERT_TRUE(runUntil([&] { return next->found.has_value(); }));
    EXPECT_EQ(next->found, false);
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_FALSE(set->taskSetDone()) << "the results were taken before the row's end";
    next->finish();
}

TEST_F(Redirection, FailedToolLeavesItsTextInTheFile)
{
    const LogCapture log;
    EXPECT_EQ(saved({u"out"_s, u"broken"_s, u"exit"_s, u"2"_s}), u"broken\n"_s);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(Redirection, FaultAtTheStartLeavesTheFileAloneAndIsShown)
{
    const LogCapture log;
    const QString file = directory_.filePath(u"saved.txt"_s);
    setLimit(0);
    const auto task =
        ZOLTAsyncNSTaskFileOutputRedirection::initWithFileNameQueueLaunchPathArguments(file, &queue_, fakeTool(), {});
    queue_.addTask(task);
    task->endAfterFault(u"cannot start it"_s);
    EXPECT_FALSE(QFile::exists(file));
    ASSERT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_EQ(queue_.outputWindows()[0]->textField()->string(), u"cannot start it\n"_s);
}

TEST_F(Redirection, CancelledBeforeItsStartKeepsItsRow)
{
    const auto task = ZOLTAsyncNSTaskFileOutputRedirection::initWithFileNameQueueLaunchPathArguments(
        directory_.filePath(u"saved.txt"_s), nullptr, fakeTool(), {});
    task->setSubTitle(u"Writing"_s);
    task->cancelTask(nullptr);
    task->startTask();
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Waiting..."_s);
}

TEST_F(Redirection, SecondEndWritesNothing)
{
    const LogCapture log;
    const QString file = directory_.filePath(u"saved.txt"_s);
    setLimit(0);
    const auto task =
        ZOLTAsyncNSTaskFileOutputRedirection::initWithFileNameQueueLaunchPathArguments(file, &queue_, fakeTool(), {});
    queue_.addTask(task);
    task->cancelTask(nullptr);
    EXPECT_TRUE(QFile::exists(file)) << "whatever the outcome";
    QFile::remove(file);
    task->stopTask(nullptr);
    EXPECT_FALSE(QFile::exists(file));
}

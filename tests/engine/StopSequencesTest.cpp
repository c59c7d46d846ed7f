#include "EngineFixture.h"
#include "engine/ZOLTThreadTask.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/LogCapture.h"
#include "support/QueueRun.h"

#include <QCoreApplication>
#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using Waits = ThreadEnd::Waits;
using Drops = ThreadEnd::Drops;
using Reports = ThreadEnd::Reports;

struct Sequence
{
    const char* of;
    ThreadEnd end;
    bool fails;
    bool marksSet;
    bool opensWindow;
    Waits onCancel;
    int cleanups;
    int doubleReports;
};

void PrintTo(const Sequence& sequence, std::ostream* out)
{
    *out << sequence.of;
}

const std::vector<Sequence> sequences{
    {"WavpackAndMonkeysDecodersTwoStageEncoders", {}, true, true, false, Waits::ForTool, 0, 1},
    {"TrueAudioDecoder", {.waits = Waits::No, .readsStatus = false}, false, true, false, Waits::No, 0, 1},
    {"AppleLosslessCoderChecksumWriterDiscAuthor",
     {.waits = Waits::No, .readsStatus = false, .drops = Drops::AheadOfRow},
     false,
     false,
     false,
     Waits::No,
     0,
     1},
    {"EncodersFromAppleLossless", {.runsCleanup = true}, true, true, false, Waits::ForTool, 1, 1},
    {"MP3Encoder", {.waits = Waits::Terminate, .drops = Drops::AheadOfRow}, true, false, false, Waits::Terminate, 0, 1},
    {"AACEncoder", {.drops = Drops::AheadOfRow}, true, false, false, Waits::ForTool, 0, 1},
    {"BoundaryFix", {.drops = Drops::Never}, true, true, true, Waits::ForTool, 0, 1},
    {"ListVerifiers",
     {.waits = Waits::No, .readsStatus = false, .drops = Drops::Never, .reports = Reports::ByThread},
     false,
     true,
     true,
     Waits::No,
     0,
     0},
};

class SequenceTask : public ZOLTThreadTask
{
public:
    static std::shared_ptr<SequenceTask> make(ZOLTTaskQueue* queue, const ThreadEnd& end, const QStringList& arguments,
                                              ToolCall::Afterwards afterwards)
    {
        std::shared_ptr<SequenceTask> task(new SequenceTask(end));
        task->setUpThreadTask(queue);
        task->call_ = {.tool = fakeTool(), .arguments = arguments, .afterwards = afterwards};
        task->showTitle(u"sequence"_s);
        return task;
    }
    void cleanup() override
    {
        ++cleanups;
        cleanedBeforeOutcome = isDone() && topTextField()->stringValue() == u"Waiting..."_s;
    }

    std::atomic<int> cleanups = 0;
    std::atomic<bool> cleanedBeforeOutcome = false;
    std::atomic<bool> keptResults = false;

protected:
    using ZOLTThreadTask::ZOLTThreadTask;
    void doStartTask() override
    {
        beginRow();
        runTool(call_);
        stopTask(nullptr);
        keptResults = results() != nullptr;
    }

private:
    ToolCall call_;
};

class StopSequence : public EngineTest, public testing::WithParamInterface<Sequence>
{
protected:
    std::shared_ptr<SequenceTask> run(const QStringList& arguments)
    {
        // A tool that is not waited for at the end has been waited for behind its output, as in the classes that do so.
        const auto afterwards = GetParam().end.waits == Waits::Terminate ? ToolCall::Afterwards::WaitAndTerminate
                                                                         : ToolCall::Afterwards::Nothing;
        const auto task = SequenceTask::make(&queue_, GetParam().end, arguments, afterwards);
        set_ = task->results();
        queue_.addTask(task);
        return task;
    }
    void finish() { EXPECT_TRUE(runToEnd(queue_)); }

    const LogCapture log_;
    QTemporaryDir directory_;
    std::shared_ptr<ZOLTTaskResults> set_;
};

INSTANTIATE_TEST_SUITE_P(Of, StopSequence, testing::ValuesIn(sequences),
                         [](const auto& row) { return std::string(row.param.of); });

} // namespace

TEST_P(StopSequence, GoodEndDropsItsResultsWhenAndIfTold)
{
    const auto task = run({u"out"_s, u"text"_s});
    finish();
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(set_->taskSetDone(), GetParam().marksSet);
    EXPECT_EQ(queue_.outputWindows().size(), GetParam().opensWindow ? 1U : 0U);
    EXPECT_EQ(task->keptResults, GetParam().opensWindow) << "held for as long as the thread is inside";
    EXPECT_EQ(task->cleanups, GetParam().cleanups);
    EXPECT_EQ(task->cleanedBeforeOutcome, GetParam().cleanups > 0);
    EXPECT_EQ(log_.count(u"Exception in queue"_s), 0);
}

TEST_P(StopSequence, StatusOfTheToolCountsWhereItIsRead)
{
    const auto task = run({u"out"_s, u"why"_s, u"exit"_s, u"3"_s});
    finish();
    EXPECT_EQ(task->error(), GetParam().fails);
    EXPECT_EQ(queue_.outputWindows().size(), GetParam().fails || GetParam().opensWindow ? 1U : 0U);
    EXPECT_EQ(set_->taskSetDone(), GetParam().marksSet || GetParam().fails);
}

TEST_P(StopSequence, CancelTreatsTheToolAsTold)
{
    const QString go = directory_.filePath(u"go"_s), ended = directory_.filePath(u"ended"_s);
    const auto task = run({u"out"_s, u"first"_s, u"wait-file"_s, go, u"touch"_s, ended, u"exit"_s, u"1"_s});
    ASSERT_TRUE(runUntil([&] { return set_->results() == u"first\n"_s; }));
    if (GetParam().onCancel == Waits::ForTool) {
        QMetaObject::invokeMethod(
            qApp, [&] { touch(go); }, Qt::QueuedConnection);
    }
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_EQ(QFile::exists(ended), GetParam().onCancel == Waits::ForTool);
    if (GetParam().onCancel == Waits::No) touch(go);
    finish();
    EXPECT_EQ(QFile::exists(ended), GetParam().onCancel != Waits::Terminate);
    EXPECT_FALSE(task->error()) << "a cancel never counts as an error";
    EXPECT_EQ(log_.count(u"Exception in queue taskCompleted"_s), GetParam().doubleReports);
    EXPECT_EQ(task->cleanups, 2 * GetParam().cleanups);
}

TEST_P(StopSequence, CancelledWhileWaitingReportsOnceAndRunsNothing)
{
    setLimit(0);
    const QString mark = directory_.filePath(u"ran"_s);
    const auto task = run({u"touch"_s, mark});
    task->cancelTask(nullptr);
    EXPECT_EQ(queue_.taskCount(), 0);
    EXPECT_FALSE(QFile::exists(mark));
    EXPECT_EQ(log_.count(u"Exception in queue"_s), 0);
    task->startTask(); // had been chosen before
    waitForDetachedThreads();
    EXPECT_FALSE(QFile::exists(mark));
    EXPECT_FALSE(task->isActive());
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
}

TEST_P(StopSequence, FaultInTheWorkEndsTheRowOnceWithItsReason)
{
    const auto task = SequenceTask::make(&queue_, GetParam().end, {}, {});
    class Faulty : public SequenceTask
    {
    public:
        static std::shared_ptr<Faulty> make(ZOLTTaskQueue* queue, const ThreadEnd& end)
        {
            std::shared_ptr<Faulty> task(new Faulty(end));
            task->setUpThreadTask(queue);
            return task;
        }

    protected:
        using SequenceTask::SequenceTask;
        void doStartTask() override { throw std::runtime_error("out of luck"); }
    };
    queue_.addTask(Faulty::make(&queue_, GetParam().end));
    finish();
    ASSERT_EQ(queue_.panelArray().size(), 1U);
    EXPECT_TRUE(queue_.panelArray()[0]->error());
    EXPECT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_EQ(log_.count(u"Exception in queue"_s), 0);
    task->setResults(nullptr);
}

TEST_P(StopSequence, EndedTaskKeepsNoProcess)
{
    const auto open = [this] {
        run({u"exit"_s, u"1"_s});
        finish();
        return QDir(u"/proc/self/fd"_s).count();
    };
    const auto before = open();
    EXPECT_EQ(open(), before);
    EXPECT_EQ(open(), before);
}

#include "EngineFixture.h"
#include "engine/ZOLTThreadTask.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/FakeTools.h"
#include "support/LogCapture.h"
#include "support/QueueRun.h"

#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using StopAt = ToolCall::StopAt;
using Afterwards = ToolCall::Afterwards;

/// Runs the calls it is given, one after the other.
class CallingTask : public ZOLTThreadTask
{
public:
    static std::shared_ptr<CallingTask> make(ZOLTTaskQueue* queue, const ThreadEnd& end = {})
    {
        std::shared_ptr<CallingTask> task(new CallingTask(end));
        task->setUpThreadTask(queue);
        return task;
    }
    std::vector<ToolCall> calls;
    QStringList heard; ///< the task's thread, until it has ended
    std::function<void()> afterEach = [] {};

    /// Hears a piece, and then does something.
    std::function<void(const OptionalText&)> hearingThen(std::function<void()> work)
    {
        return [this, work = std::move(work)](const OptionalText& output) {
            heard += output.value_or(u"no text"_s);
            work();
        };
    }

protected:
    explicit CallingTask(const ThreadEnd& end) : ZOLTThreadTask(end) {}
    void doStartTask() override
    {
        beginRow();
        for (const ToolCall& call : calls) {
            runTool(call);
            afterEach();
        }
        stopTask(nullptr);
    }
};

class RunTool : public EngineTest
{
protected:
    ~RunTool() override { letGo(); }
    /// Another task instead of the fixture's.
    void renew(const ThreadEnd& end = {})
    {
        letGo();
        task_ = CallingTask::make(&queue_, end);
    }
    /// One that never ran holds its results, and they hold it.
    void letGo() const { task_->setResults(nullptr); }
    void run()
    {
        queue_.addTask(task_);
        EXPECT_TRUE(runToEnd(queue_));
    }
    QString file(const QString& name) const { return directory_.filePath(name); }
    /// A tool that prints "a", waits for the file "go" and goes on.
    QStringList afterGo(const QStringList& more) const
    {
        return QStringList{u"out"_s, u"a"_s, u"wait-file"_s, file(u"go"_s)} + more;
    }
    /// What its parser does with "a": sets off the rest.
    std::function<void(const OptionalText&)> hearingThenGo(std::function<void()> work)
    {
        return task_->hearingThen([this, work = std::move(work)] {
            work();
            touch(file(u"go"_s));
        });
    }

    const LogCapture log_;
    QTemporaryDir directory_;
    std::shared_ptr<CallingTask> task_ = CallingTask::make(&queue_);
};

} // namespace

TEST_F(RunTool, PiecesWithoutAParserOfTheirOwnReachTheHookWhichKeepsThem)
{
    const auto results = task_->results();
    task_->calls = {{.tool = fakeTool(), .arguments = {u"out"_s, u"text"_s}}};
    run();
    EXPECT_EQ(results->results(), u"text\n"_s);
}

TEST_F(RunTool, BareNameIsLookedUpInTheToolsDirectoryWhichIsOnTheChildsPath)
{
    FakeTools tools;
    tools.install(u"wavpack"_s, {u"env"_s, u"PATH"_s});
    renew();
    task_->calls = {{.tool = u"wavpack"_s, .arguments = {u"-f"_s, u"it's.wav"_s}, .parser = task_->hearingThen([] {})}};
    run();
    EXPECT_EQ(tools.calls(u"wavpack"_s), QList<QStringList>({{u"-f"_s, u"it's.wav"_s}}));
    EXPECT_TRUE(task_->heard.value(0).endsWith(u':' + tools.directory()));
}

TEST_F(RunTool, WorkingDirectoryIsTheCalls)
{
    task_->calls = {
        {.tool = fakeTool(), .arguments = {u"cwd"_s}, .directory = directory_.path(), .parser = task_->hearingThen([] {
         })}};
    run();
    EXPECT_EQ(task_->heard, QStringList({directory_.path()}));
}

TEST_F(RunTool, ErrorEndsTheReadingWhereTheCallSaysSoAndItsPieceIsDropped)
{
    const auto fail = [this] { task_->setError(true); };
    task_->calls = {{.tool = fakeTool(),
                     .arguments = afterGo({u"out"_s, u"b"_s}),
                     .parser = hearingThenGo(fail),
                     .stopAt = StopAt::CancelOrError}};
    run();
    EXPECT_EQ(task_->heard, QStringList({u"a"_s}));
}

TEST_F(RunTool, ErrorDoesNotEndTheReadingOtherwise)
{
    task_->calls = {{.tool = fakeTool(), .arguments = afterGo({u"out"_s, u"b"_s}), .parser = hearingThenGo([this] {
                                                                                       task_->setError(true);
                                                                                   })}};
    run();
    EXPECT_EQ(task_->heard, QStringList({u"a"_s, u"b"_s}));
}

TEST_F(RunTool, CancelEndsTheReadingUnlessTheCallReadsToTheEnd)
{
    for (const auto& [stopAt, expected] :
         {std::pair{StopAt::Cancel, QStringList{u"a"_s}}, std::pair{StopAt::CancelOrError, QStringList{u"a"_s}},
          std::pair{StopAt::Nothing, QStringList{u"a"_s, u"b"_s}}}) {
        QFile::remove(file(u"go"_s));
        renew();
        task_->calls = {{.tool = fakeTool(),
                         .arguments = afterGo({u"out"_s, u"b"_s}),
                         .parser = hearingThenGo([this] { task_->setCancelled(true); }),
                         .stopAt = stopAt}};
        run();
        EXPECT_EQ(task_->heard, expected);
    }
}

TEST_F(RunTool, ToolThatWasLeftEarlyIsTerminatedWhereTheCallSaysSo)
{
    task_->calls = {{.tool = fakeTool(),
                     .arguments = afterGo({u"out"_s, u"b"_s, u"wait-file"_s, file(u"never"_s)}),
                     .parser = hearingThenGo([this] { task_->setCancelled(true); }),
                     .afterwards = Afterwards::Terminate}};
    run(); // would wait for ever otherwise
    EXPECT_EQ(task_->heard, QStringList({u"a"_s}));
}

TEST_F(RunTool, ToolHasEndedWhereTheCallWaitsForIt)
{
    bool ended = false;
    task_->calls = {{.tool = fakeTool(),
                     .arguments = afterGo({u"flood"_s, u"300000"_s, u"touch"_s, file(u"ended"_s)}),
                     .parser = hearingThenGo([this] { task_->setCancelled(true); }),
                     .afterwards = Afterwards::WaitAndTerminate}};
    task_->afterEach = [&] { ended = QFile::exists(file(u"ended"_s)); };
    run();
    EXPECT_TRUE(ended) << "what nobody reads any more was thrown away";
}

TEST_F(RunTool, NextToolWaitsForTheOneBeforeIt)
{
    // The first blocks on its full pipe once its reader has left: it ends when somebody waits for it.
    const QString ended = file(u"ended"_s);
    bool hadEnded = false;
    task_->calls = {{.tool = fakeTool(),
                     .arguments = afterGo({u"flood"_s, u"300000"_s, u"touch"_s, ended}),
                     .parser = hearingThenGo([this] { task_->setError(true); }),
                     .stopAt = StopAt::CancelOrError},
                    {.tool = fakeTool(), .arguments = {u"out"_s, u"c"_s}, .parser = task_->hearingThen([&] {
                         hadEnded = QFile::exists(ended);
                     })}};
    run();
    EXPECT_EQ(task_->heard, QStringList({u"a"_s, u"c"_s}));
    EXPECT_TRUE(hadEnded);
}

TEST_F(RunTool, ToolThatTheEndDoesNotLookAtHasEndedBehindItsCall)
{
    renew({.waits = ThreadEnd::Waits::No, .readsStatus = false});
    const QString ended = file(u"ended"_s);
    bool hadEnded = false;
    task_->calls = {{.tool = fakeTool(),
                     .arguments = afterGo({u"flood"_s, u"300000"_s, u"touch"_s, ended}),
                     .parser = hearingThenGo([this] { task_->setError(true); }),
                     .stopAt = StopAt::CancelOrError}};
    task_->afterEach = [&] { hadEnded = QFile::exists(ended); };
    run();
    EXPECT_TRUE(hadEnded);
}

TEST_F(RunTool, PiecesAreCompletedByTheToolsDialect)
{
    FakeTools tools;
    renew();
    tools.install(u"flac"_s,
                  {u"out"_s, u"a.flac: 1% complete"_s, u"wait-file"_s, file(u"go"_s), u"out"_s, u"\b2% complete\b3"_s});
    task_->calls = {{.tool = u"flac"_s, .arguments = {u"-d"_s}, .parser = hearingThenGo([] {})}};
    run();
    EXPECT_EQ(task_->heard, QStringList({u"a.flac: 1% complete"_s, u"\ba.flac: 2% complete\b"_s, u"3"_s}));
}

TEST_F(RunTool, EachToolIsAStage)
{
    QList<int> stages{task_->stage()};
    task_->calls = {{.tool = fakeTool()}, {.tool = fakeTool()}};
    task_->afterEach = [&] { stages += task_->stage(); };
    run();
    EXPECT_EQ(stages, QList<int>({0, 1, 2}));
}

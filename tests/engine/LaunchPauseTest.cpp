// What comes between the making of a tool and its launch.
#include "EngineFixture.h"
#include "engine/ZOLTThreadTask.h"
#include "platform/process/ChildRegistry.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/LogCapture.h"

#include <QFile>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> armed = false, reached = false, released = false;

} // namespace

/// In place of the library's: a launch looks after orphans first, and waits here when it is told to.
extern "C" pid_t waitpid(pid_t child, int* status, int options)
{
    if (armed.exchange(false)) {
        reached = true;
        released.wait(false);
    }
    return ::wait4(child, status, options, nullptr);
}

namespace {

class CleaningTask : public ZOLTThreadTask
{
public:
    static std::shared_ptr<CleaningTask> make(ZOLTTaskQueue* queue, const QStringList& arguments)
    {
        std::shared_ptr<CleaningTask> task(new CleaningTask);
        task->setUpThreadTask(queue);
        task->arguments_ = arguments;
        return task;
    }
    void cleanup() override { toolHadEnded += toolHasEnded(); }
    QList<bool> toolHadEnded; ///< at each cleanup

protected:
    void doStartTask() override
    {
        beginRow();
        runTool({.tool = fakeTool(), .arguments = arguments_});
        stopTask(nullptr);
    }

private:
    CleaningTask() : ZOLTThreadTask({.runsCleanup = true}) {}
    QStringList arguments_;
};

class LaunchPause : public EngineTest
{
protected:
    LaunchPause()
    {
        reached = released = false;
        childRegistry().adoptOrphan(::getpid()); // no child at all: looked for once and struck off
    }
    QTemporaryDir directory_;
};

} // namespace

TEST_F(LaunchPause, ToolThatIsCancelledAheadOfItsLaunchIsWaitedForByItsThread)
{
    const LogCapture log;
    const QString ended = directory_.filePath(u"ended"_s);
    // More than a pipe holds: it gets to its end only where somebody waits for it.
    const auto task = CleaningTask::make(&queue_, {u"flood"_s, u"300000"_s, u"touch"_s, ended});
    armed = true;
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([] { return reached.load(); }));
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    released = true;
    released.notify_all();
    waitForDetachedThreads();
    runPosted();
    EXPECT_TRUE(QFile::exists(ended));
    EXPECT_EQ(task->toolHadEnded, QList<bool>({false, true}));
    EXPECT_FALSE(task->error());
}

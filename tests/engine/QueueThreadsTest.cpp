#include "EngineFixture.h"
#include "engine/ZOLTThreadTask.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/LogCapture.h"
#include "support/QueueRun.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class QuickThreadTask : public ZOLTThreadTask
{
public:
    static std::shared_ptr<QuickThreadTask> make(ZOLTTaskQueue* queue, std::atomic<int>* runs)
    {
        std::shared_ptr<QuickThreadTask> task(new QuickThreadTask);
        task->setUpThreadTask(queue);
        task->runs_ = runs;
        return task;
    }

protected:
    void doStartTask() override
    {
        beginRow();
        ++*runs_;
        topTextField()->setStringValue(u"Working"_s);
        appendResults(u"text"_s);
        stopTask(nullptr);
    }
    void processTaskOutput(const OptionalText&) override {}

private:
    std::atomic<int>* runs_ = nullptr;
};

} // namespace

using QueueThreads = EngineTest;

TEST_F(QueueThreads, ThreadTasksReportFromTheirOwnThreadsAndStartTheNextThere)
{
    setLimit(4);
    std::atomic<int> runs = 0;
    for (int i = 0; i < 200; ++i)
        queue_.addTask(QuickThreadTask::make(&queue_, &runs));
    ASSERT_TRUE(runToEnd(queue_));
    EXPECT_EQ(runs, 200);
    EXPECT_EQ(queue_.activeTask(), 0);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(QueueThreads, CancelOfAllWhileThreadsEndKeepsTheQueueWhole)
{
    const LogCapture log; // double reports are logged
    setLimit(4);
    std::atomic<int> runs = 0;
    for (int i = 0; i < 100; ++i)
        queue_.addTask(QuickThreadTask::make(&queue_, &runs));
    queue_.cancelAllTasks(nullptr);
    ASSERT_TRUE(runToEnd(queue_));
    EXPECT_EQ(queue_.activeTask(), 0);
}

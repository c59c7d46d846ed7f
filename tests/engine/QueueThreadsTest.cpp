#include "EngineFixture.h"
#include "engine/ZOLTThreadTask.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/HeldMutex.h"
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

/// The test does its work between a task's choice and its start.
class ChoosingQueue : public ZOLTTaskQueue
{
public:
    void startTask(const TaskPointer& task) override
    {
        if (chosen) chosen();
        ZOLTTaskQueue::startTask(task);
    }
    std::function<void()> chosen;
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

TEST_F(QueueThreads, TaskThatAReportHasChosenIsNotWithdrawn)
{
    ChoosingQueue queue;
    queue.maxThreadsChanged({QString(), nullptr, 1});
    const auto running = TestTask::make(&queue), next = TestTask::make(&queue);
    queue.addTasks({running, next});
    const pid_t main = gettid();
    std::atomic<bool> isChosen = false;
    queue.chosen = [&] {
        isChosen = true;
        while (!next->cancelled() && !sleeps(main))
            std::this_thread::yield();
    };
    std::thread ending([&] { running->finish(); });
    while (!isChosen)
        std::this_thread::yield();
    const bool withdrawn = queue.withdrawTask(next);
    ending.join();
    EXPECT_FALSE(withdrawn);
    EXPECT_FALSE(next->cancelled());
    EXPECT_EQ(next->starts, 1);
    queue.chosen = nullptr;
    next->finish();
    EXPECT_EQ(queue.taskCount(), 0);
}

// What comes in while a run ends: behind the decision, ahead of what follows from it.
#include "EngineFixture.h"
#include "platform/desktop/Desktop.h"

using namespace zolt;
using namespace zolt::test;

namespace {

/// Does the test's work when it goes.
class PartingTask : public TestTask
{
public:
    static std::shared_ptr<PartingTask> make(ZOLTTaskQueue* queue, std::function<void()> parting)
    {
        std::shared_ptr<PartingTask> task(new PartingTask);
        task->setUpWithQueue(queue);
        task->setResults(nullptr); // so that whoever is given it alone has it
        task->parting_ = std::move(parting);
        return task;
    }
    ~PartingTask() override { parting_(); }

private:
    std::function<void()> parting_;
};

class RunEnd : public EngineTest
{
protected:
    /// Runs two tasks to their end, with the work done while the rows are swept: a swept row lets its results go.
    void endARunAround(const std::function<void()>& work)
    {
        const auto tasks = addTasks(2);
        tasks[0]->results()->addTaskInSet(PartingTask::make(&queue_, work));
        tasks[0]->finish();
        tasks[1]->finish();
    }
};

class LookingDesktop : public RecordingDesktop
{
public:
    void requestUserAttention(int level) override
    {
        RecordingDesktop::requestUserAttention(level);
        atAttention();
    }
    std::function<void()> atAttention = [] {};
};

} // namespace

TEST_F(RunEnd, TaskThatComesInMeanwhileKeepsItsRowItsPanelAndItsBadge)
{
    const auto next = TestTask::make(&queue_);
    endARunAround([&] { queue_.addTask(next); });
    EXPECT_EQ(next->starts, 1);
    EXPECT_EQ(queue_.panelArray(), ZOLTTaskQueue::Tasks{next});
    EXPECT_TRUE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.badge(), QStringLiteral("1"));
    EXPECT_TRUE(desktop_.attentions().empty());
    next->finish();
    EXPECT_FALSE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.attentions(), std::vector<int>{10});
}

TEST_F(RunEnd, PanelIsClosedUnderTheLock)
{
    LookingDesktop desktop;
    bool held = false;
    desktop.atAttention = [&] { held = queue_.lock().isHeldByThisThread(); };
    endARunAround([] {});
    EXPECT_TRUE(held);
}

TEST_F(RunEnd, TaskThatComesInAtTheVeryMomentIsShownWhateverCameFirst)
{
    constexpr int rounds = 2000;
    setLimit(1);
    for (int round = 0; round < rounds; ++round) {
        const auto last = addTasks(1)[0];
        const auto next = TestTask::make(&queue_);
        std::atomic<bool> ready = false;
        std::thread ending([&] {
            ready = true;
            last->finish();
        });
        while (!ready)
            std::this_thread::yield();
        queue_.addTask(next);
        ending.join();
        ASSERT_THAT(queue_.panelArray(), testing::Contains(next)) << "round " << round;
        ASSERT_TRUE(queue_.panel()->isVisible()) << "round " << round;
        ASSERT_EQ(desktop_.badge(), QStringLiteral("1")) << "round " << round;
        next->finish();
    }
    EXPECT_EQ(queue_.taskCount(), 0);
}

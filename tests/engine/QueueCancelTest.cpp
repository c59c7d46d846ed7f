#include "EngineFixture.h"
#include "support/LogCapture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

using QueueCancel = EngineTest;

TEST_F(QueueCancel, WaitingTaskEndsDoneThoughItNeverRan)
{
    const auto tasks = addTasks(4);
    tasks[3]->cancelTask(nullptr);
    EXPECT_TRUE(tasks[3]->isDone() && tasks[3]->cancelled());
    EXPECT_EQ(tasks[3]->starts, 0);
    EXPECT_EQ(tasks[3]->textField()->stringValue(), u"Canceled"_s);
}

TEST_F(QueueCancel, CancelledWaitingTaskFreesASlotThatWasNeverTaken)
{
    const auto tasks = addTasks(4);
    tasks[3]->cancelTask(nullptr);
    EXPECT_TRUE(tasks[2]->isActive()); // three run now, with a limit of two
    EXPECT_EQ(queue_.activeTask(), 2);
}

TEST_F(QueueCancel, WalkGoesFromTheLastAndTasksStartAndAreCancelledOnTheWay)
{
    setLimit(1);
    const auto tasks = addTasks(4);
    queue_.cancelAllTasks(nullptr);
    // The cancel of the last let the oldest waiting one start, which was cancelled in its turn.
    EXPECT_EQ(tasks[1]->starts, 1);
    EXPECT_EQ(tasks[2]->starts, 0);
    EXPECT_EQ(tasks[3]->starts, 0);
    for (const auto& task : tasks)
        EXPECT_EQ(task->cancels, 1);
    EXPECT_EQ(queue_.taskCount(), 0);
    EXPECT_EQ(queue_.activeTask(), 0);
    EXPECT_TRUE(queue_.panelArray().empty());
}

TEST_F(QueueCancel, EachTaskLearnsWhoCancelsAndAKillIsNobodys)
{
    Button button;
    for (const auto& [walk, expected] :
         {std::pair<std::function<void()>, Sender>{[&] { queue_.cancelAllTasks(&button); }, &button},
          {[&] { queue_.killAllTasks(); }, nullptr}}) {
        const auto tasks = addTasks(3);
        walk();
        for (const auto& task : tasks)
            EXPECT_EQ(task->canceller, std::optional(expected));
    }
}

TEST_F(QueueCancel, CountCanReachZeroWhileATaskRunsAndHealsWhenTheQueueRunsEmpty)
{
    setLimit(1);
    const auto tasks = addTasks(2);
    tasks[1]->cancelTask(nullptr); // counted out though it was never counted in
    EXPECT_EQ(queue_.activeTask(), 0);
    EXPECT_TRUE(tasks[0]->isActive());
    EXPECT_TRUE(queue_.panelArray().empty()) << "the running task's row is swept";
    EXPECT_FALSE(queue_.panel()->isVisible());
    const auto requests = desktop_.attentions();
    tasks[0]->finish();
    EXPECT_EQ(queue_.activeTask(), 0) << "-1 at the last report, then healed";
    EXPECT_EQ(desktop_.attentions(), requests) << "no sweep at -1";
}

namespace {

/// Does something when it goes.
class LastWords : public ZOLTTask
{
public:
    static std::shared_ptr<LastWords> make(std::function<void()> words)
    {
        std::shared_ptr<LastWords> task(new LastWords);
        task->setResults(nullptr);
        task->words_ = std::move(words);
        return task;
    }
    ~LastWords() override { words_(); }

private:
    std::function<void()> words_;
};

} // namespace

TEST_F(QueueCancel, SecondReportThatComesDuringTheSweepDoesNotKeepThePanelOpen)
{
    const LogCapture log;
    const auto tasks = addTasks(3);
    setLimit(1);
    tasks[0]->results()->addTaskInSet(LastWords::make([&] { tasks[2]->reportAgain(); }));
    tasks[0]->finish();
    tasks[2]->cancelTask(nullptr); // counted out though it waited: the count says that nothing runs
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted"_s), 1);
    EXPECT_FALSE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.attentions().size(), 1U);
    tasks[1]->finish();
}

TEST_F(QueueCancel, CancelledRowsAreSweptLikeCompleteOnes)
{
    const auto tasks = addTasks(2);
    tasks[0]->cancelTask(nullptr);
    tasks[1]->finish();
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_EQ(desktop_.attentions().size(), 1U);
}

TEST_F(QueueCancel, KillReloadsTheTableAfterTheWalk)
{
    const auto reloadsOf = [this](const std::function<void()>& walk) {
        addTasks(3);
        const unsigned before = queue_.tableView()->reloads();
        walk();
        EXPECT_EQ(queue_.taskCount(), 0);
        return queue_.tableView()->reloads() - before;
    };
    const unsigned cancelling = reloadsOf([this] { queue_.cancelAllTasks(nullptr); });
    EXPECT_EQ(reloadsOf([this] { queue_.killAllTasks(); }), cancelling + 1);
}

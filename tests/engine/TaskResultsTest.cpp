#include "EngineFixture.h"
#include "support/HeldMutex.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace zolt::test {
std::mutex& mutexOf(const ZOLTTaskResults&);
template struct OpenMutex<ZOLTTaskResults, &ZOLTTaskResults::mutex_>;
} // namespace zolt::test

class TaskResults : public testing::Test
{
protected:
    std::shared_ptr<ZOLTTask> enter()
    {
        auto task = ZOLTTask::initWithQueue(nullptr);
        task->setResults(set_);
        set_->addTaskInSet(task);
        tasks_.push_back(task);
        return task;
    }
    ~TaskResults() override
    {
        for (const auto& task : tasks_)
            task->setResults(nullptr);
    }
    std::shared_ptr<ZOLTTaskResults> set_ = std::make_shared<ZOLTTaskResults>();
    std::vector<std::shared_ptr<ZOLTTask>> tasks_;
};

TEST_F(TaskResults, TextsStandInTheOrderEnteredWhateverOrderTasksEndIn)
{
    const auto first = enter(), second = enter();
    set_->appendResultsForTask(u"b"_s, second.get());
    set_->appendResultsForTask(u"a"_s, first.get());
    EXPECT_EQ(set_->results(), u"a\nb\n"_s);
}

TEST_F(TaskResults, LastOfThreeMarksTheSetDone)
{
    const auto first = enter(), second = enter(), third = enter();
    first->stopTask(nullptr);
    second->stopTask(nullptr);
    EXPECT_FALSE(set_->taskSetDone());
    third->stopTask(nullptr);
    EXPECT_TRUE(set_->taskSetDone());
}

TEST_F(TaskResults, TaskThatDroppedItsCollectorMarksNothing)
{
    const auto task = enter();
    const auto after = ZOLTTask::initWithQueue(nullptr);
    set_->setTaskAfterSetDone(after);
    task->setResults(nullptr);
    task->stopTask(nullptr);
    EXPECT_FALSE(set_->taskSetDone());
    EXPECT_EQ(set_->claimTaskAfterSetDone(), after) << "still to be queued";
    after->setResults(nullptr);
}

TEST_F(TaskResults, FollowingTaskThatRunsOrHasEndedIsNotQueued)
{
    const auto after = enter();
    set_->setTaskAfterSetDone(after);
    after->startTask();
    EXPECT_EQ(set_->claimTaskAfterSetDone(), nullptr) << "it runs";
    after->stopTask(nullptr);
    EXPECT_EQ(set_->claimTaskAfterSetDone(), nullptr) << "it has ended";
}

TEST_F(TaskResults, DroppedTaskStillCountsForTheOthers)
{
    const auto first = enter(), second = enter();
    first->setResults(nullptr);
    second->stopTask(nullptr);
    EXPECT_FALSE(set_->taskSetDone());
    first->stopTask(nullptr);
    second->stopTask(nullptr);
    EXPECT_TRUE(set_->taskSetDone());
}

TEST_F(TaskResults, OneTaskWithNoTextGivesALineEnd)
{
    enter();
    EXPECT_EQ(set_->results(), u"\n"_s);
}

TEST_F(TaskResults, NoTasksGiveNoText)
{
    set_->setResults(u"lost"_s);
    EXPECT_EQ(set_->results(), QString());
}

TEST_F(TaskResults, PlainFormAlwaysWritesToTheFirstSlot)
{
    enter();
    enter();
    set_->appendResults(u"x"_s);
    EXPECT_EQ(set_->results(), u"x\n\n"_s);
    set_->setResults(u"y"_s);
    EXPECT_EQ(set_->results(), u"y\n\n"_s);
}

TEST_F(TaskResults, TextOfATaskOutsideTheSetIsLost)
{
    const auto inside = enter();
    const auto outside = ZOLTTask::initWithQueue(nullptr);
    set_->appendResultsForTask(u"lost"_s, outside.get());
    set_->setResultsForTask(u"lost too"_s, outside.get());
    EXPECT_EQ(set_->results(), u"\n"_s);
    set_->setResultsForTask(u"kept"_s, inside.get());
    EXPECT_EQ(set_->results(), u"kept\n"_s);
    outside->setResults(nullptr);
}

TEST_F(TaskResults, AbsentTextAddsNothing)
{
    enter();
    set_->appendResults(std::nullopt);
    EXPECT_EQ(set_->results(), u"\n"_s);
}

TEST_F(TaskResults, NewTaskHasACollectorHoldingOnlyItself)
{
    const auto task = ZOLTTask::initWithQueue(nullptr);
    ASSERT_EQ(task->results()->tasksInSet().size(), 1U);
    EXPECT_EQ(task->results()->tasksInSet()[0], task);
    task->setResults(nullptr);
}

TEST_F(TaskResults, FollowingTaskThatWasNeverQueuedIsFreedWithTheCollector)
{
    std::weak_ptr<ZOLTTask> after;
    {
        const auto task = ZOLTTask::initWithQueue(nullptr);
        after = task;
        set_->setTaskAfterSetDone(task);
    }
    set_.reset();
    EXPECT_TRUE(after.expired());
}

TEST_F(TaskResults, TasksOfASetWriteSideBySide)
{
    for (int i = 0; i < 4; ++i)
        enter();
    std::vector<std::thread> threads;
    for (const auto& task : tasks_) {
        threads.emplace_back([&, task] {
            for (int round = 0; round < 500; ++round)
                set_->appendResultsForTask(u"x"_s, task.get());
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(set_->results().count(u'x'), 2000);
}

TEST_F(TaskResults, NobodyTouchesTheTextsWhileAnotherDoes)
{
    const auto task = enter();
    const ZOLTTask* const own = task.get();
    const std::function<void()> operations[] = {
        [&] { set_->appendResults(u"a"_s); },
        [&] { set_->appendResultsForTask(u"b"_s, own); },
        [&] { set_->results(); },
        [&] { set_->resultsOfTask(own); },
        [&] { set_->setResults(u"c"_s); },
        [&] { set_->setResultsForTask(u"d"_s, own); },
        [&] { set_->noteMissing(u"e"_s); },
        [&] { set_->noteSignal(1); },
        [&] { set_->noteFault(u"f"_s, own); },
        [&] { set_->notes(); },
        [&] { set_->notesOfTask(own); },
        [&] { set_->addTaskInSet(task); },
        [&] { set_->tasksInSet(); },
        [&] { set_->setTasksInSet({task}); },
        [&] { set_->allTasksDone(); },
        [&] { set_->allTasksReported(); },
        [&] { set_->taskAfterSetDone(); },
        [&] { set_->setTaskAfterSetDone(nullptr); },
        [&] { set_->claimTaskAfterSetDone(); },
    };
    for (std::size_t index = 0; index < std::size(operations); ++index)
        EXPECT_TRUE(waitsFor(mutexOf(*set_), operations[index])) << "operation " << index;
}

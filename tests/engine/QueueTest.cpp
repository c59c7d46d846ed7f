#include "EngineFixture.h"
#include "engine/OutputWindowController.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/errors/Exceptions.h"
#include "shell/Constants.h"
#include "support/EventLoop.h"
#include "support/HeldMutex.h"
#include "support/LogCapture.h"

#include <set>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace zolt::test {
std::mutex& mutexOf(const ZOLTTaskQueue&);
template struct OpenMutex<ZOLTTaskQueue, &ZOLTTaskQueue::containers_>;
} // namespace zolt::test

using TaskQueue = EngineTest;

TEST_F(TaskQueue, TwoOfFiveStartAndEachEndStartsTheOldestWaiting)
{
    const auto tasks = addTasks(5);
    EXPECT_EQ(queue_.activeTask(), 2);
    EXPECT_TRUE(tasks[0]->isActive() && tasks[1]->isActive());
    EXPECT_FALSE(tasks[2]->isActive());
    tasks[1]->finish();
    EXPECT_TRUE(tasks[2]->isActive());
    EXPECT_FALSE(tasks[3]->isActive());
    tasks[0]->finish();
    EXPECT_TRUE(tasks[3]->isActive());
    EXPECT_EQ(queue_.activeTask(), 2);
    for (const int i : {2, 3, 4})
        tasks[std::size_t(i)]->finish();
    for (const auto& task : tasks)
        EXPECT_EQ(task->starts, 1);
}

TEST_F(TaskQueue, HigherLimitTakesEffectAtTheNextEnd)
{
    const auto tasks = addTasks(5);
    setLimit(4);
    EXPECT_EQ(queue_.activeTask(), 2);
    tasks[0]->finish();
    EXPECT_EQ(queue_.activeTask(), 4);
    EXPECT_TRUE(tasks[4]->isActive());
}

TEST_F(TaskQueue, HigherLimitLetsTheNextTaskAddedStartAtOnce)
{
    const auto tasks = addTasks(3);
    setLimit(4);
    const auto added = addTasks(1);
    EXPECT_TRUE(added[0]->isActive());
    EXPECT_FALSE(tasks[2]->isActive()) << "an older one waits for a report";
}

TEST_F(TaskQueue, LowerLimitStopsNothing)
{
    const auto tasks = addTasks(4);
    setLimit(1);
    EXPECT_EQ(queue_.activeTask(), 2);
    tasks[0]->finish();
    EXPECT_FALSE(tasks[2]->isActive());
    tasks[1]->finish();
    EXPECT_TRUE(tasks[2]->isActive());
    EXPECT_FALSE(tasks[3]->isActive());
}

TEST_F(TaskQueue, NothingStartsWhileMoreRunThanALoweredLimit)
{
    setLimit(3);
    const auto tasks = addTasks(4);
    setLimit(1);
    const auto added = addTasks(1);
    EXPECT_EQ(added[0]->starts, 0);
    tasks[0]->finish();
    tasks[1]->finish();
    EXPECT_EQ(queue_.activeTask(), 1);
    EXPECT_EQ(tasks[3]->starts, 0);
    tasks[2]->finish();
    EXPECT_EQ(tasks[3]->starts, 1);
    EXPECT_EQ(added[0]->starts, 0);
}

TEST_F(TaskQueue, OldestStillStartsBehindTasksThatEndedWhileTheLimitLeftNoRoom)
{
    setLimit(3);
    const auto tasks = addTasks(6);
    tasks[0]->finish();
    setLimit(1);
    for (const std::size_t ended : {1, 2, 3})
        tasks[ended]->finish();
    EXPECT_EQ(tasks[4]->starts, 1);
    tasks[4]->finish();
    EXPECT_EQ(tasks[5]->starts, 1);
    tasks[5]->finish();
}

TEST_F(TaskQueue, QueueThatIsGoneFollowsNoNotification)
{
    const auto& name = Constants::ZOLTMaxThreadsChangedNotification;
    const auto before = NotificationCenter::standard().observerCount(name);
    auto queue = ZOLTTaskQueue::initWithController(nullptr);
    EXPECT_EQ(NotificationCenter::standard().observerCount(name), before + 1);
    const auto table = queue->tableView(); // a window may keep it
    queue.reset();
    EXPECT_EQ(NotificationCenter::standard().observerCount(name), before);
    EXPECT_EQ(table->dataSource(), nullptr);
}

TEST_F(TaskQueue, LastReportScrollsToTheRowOfItsOwnRun)
{
    for (const auto& task : addTasks(3))
        task->finish();
    EXPECT_EQ(queue_.tableView()->rowToShow(), 2) << "told before the position is set back";
    addTasks(1)[0]->finish();
    EXPECT_EQ(queue_.tableView()->rowToShow(), 0);
}

TEST_F(TaskQueue, FollowingTaskOfASetIsQueuedOnceHoweverOftenTheSetEnds)
{
    const auto task = addTasks(1)[0], following = TestTask::make(&queue_);
    task->results()->setTaskAfterSetDone(following);
    task->stopTask(nullptr);
    task->stopTask(nullptr); // as a cancel and an end of output that meet
    runPosted();
    EXPECT_EQ(following->starts, 1);
    EXPECT_EQ(queue_.taskCount(), 2);
    following->finish();
    task->reportAgain();
}

namespace {

/// Looks at its results behind its own report.
class LookingBack : public TestTask
{
public:
    static std::shared_ptr<LookingBack> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<LookingBack> task(new LookingBack);
        task->setUpWithQueue(queue);
        return task;
    }
    void cancelTask(Sender sender) override { ZOLTTask::cancelTask(sender); }
    void stopTask(Sender sender) override
    {
        TestTask::stopTask(sender);
        reportCompleted();
        hadResults = results() != nullptr;
    }
    bool hadResults = false;
};

} // namespace

TEST_F(TaskQueue, ResultsAreLetGoOnlyWhenNobodyIsInsideTheTaskAnyMore)
{
    const auto task = LookingBack::make(&queue_);
    queue_.addTask(task);
    task->cancelTask(nullptr);
    EXPECT_TRUE(queue_.panelArray().empty()) << "it has left queue and panel";
    EXPECT_TRUE(task->hadResults);
    EXPECT_EQ(task->results(), nullptr);
}

TEST_F(TaskQueue, LimitFollowsTheNotificationFromAnySender)
{
    const auto queue = ZOLTTaskQueue::initWithController(nullptr);
    NotificationCenter::standard().post({Constants::ZOLTMaxThreadsChangedNotification, this, 7});
    EXPECT_EQ(queue->maxThreads(), 7);
    EXPECT_EQ(queue_.maxThreads(), 2);
}

TEST_F(TaskQueue, AllCompleteClosesThePanelClearsTheBadgeAndAsksForAttentionOnce)
{
    const auto tasks = addTasks(3);
    EXPECT_TRUE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.badge(), u"3"_s);
    for (const auto& task : tasks)
        task->finish();
    EXPECT_FALSE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.badge(), std::nullopt);
    EXPECT_EQ(desktop_.attentions(), std::vector<int>{10});
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_EQ(queue_.activeTask(), 0);
    EXPECT_EQ(queue_.lowestActivePosition(), 0);
}

TEST_F(TaskQueue, CompleteRowsStayUntilNoTaskIsActive)
{
    const auto tasks = addTasks(3);
    tasks[0]->finish();
    EXPECT_EQ(queue_.panelArray().size(), 3U);
    EXPECT_EQ(queue_.taskCount(), 2);
}

TEST_F(TaskQueue, FailedRowStaysAndKeepsThePanelOpen)
{
    const LogCapture log;
    const auto tasks = addTasks(3);
    tasks[0]->finish();
    tasks[1]->finish(true);
    tasks[2]->finish();
    EXPECT_EQ(queue_.panelArray(), ZOLTTaskQueue::Tasks{tasks[1]});
    EXPECT_TRUE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.badge(), std::nullopt);
    EXPECT_TRUE(desktop_.attentions().empty());
    queue_.removeAllErrors(nullptr);
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_FALSE(queue_.panel()->isVisible());
}

TEST_F(TaskQueue, MenuOfTheTableRemovesErrors)
{
    const LogCapture log;
    addTasks(1)[0]->finish(true);
    ASSERT_EQ(queue_.tableView()->menu(), queue_.removeErrorsMenu());
    ASSERT_EQ(queue_.removeErrorsMenu()->items.size(), 1U);
    queue_.removeErrorsMenu()->items[0].action();
    EXPECT_TRUE(queue_.panelArray().empty());
}

TEST_F(TaskQueue, RemovingErrorsKeepsOtherRowsAndAPanelWithOpenTasks)
{
    const LogCapture log;
    const auto tasks = addTasks(3);
    tasks[0]->finish(true);
    queue_.removeAllErrors(nullptr);
    EXPECT_EQ(queue_.panelArray(), (ZOLTTaskQueue::Tasks{tasks[1], tasks[2]}));
    EXPECT_TRUE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.badge(), u"2"_s);
}

TEST_F(TaskQueue, NewTaskStandsBelowFailedRowsOfEarlierRuns)
{
    const LogCapture log;
    const auto failed = addTasks(1);
    failed[0]->finish(true);
    const auto next = addTasks(1);
    EXPECT_EQ(queue_.panelArray(), (ZOLTTaskQueue::Tasks{failed[0], next[0]}));
    EXPECT_TRUE(next[0]->isActive());
}

TEST_F(TaskQueue, DoubleReportIsLoggedOnceAndLosesOneFromActiveTask)
{
    const auto tasks = addTasks(3);
    tasks[0]->finish();
    EXPECT_EQ(queue_.activeTask(), 2);
    const LogCapture log;
    tasks[0]->reportAgain();
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted: "_s), 1);
    EXPECT_EQ(queue_.activeTask(), 1);
    EXPECT_FALSE(queue_.lock().isHeld());
    tasks[1]->finish();
    tasks[2]->finish();
    EXPECT_EQ(queue_.activeTask(), 0);
}

TEST_F(TaskQueue, RowToShowIsTheHighestStartedAndMayPointPastTheEnd)
{
    const auto tasks = addTasks(4);
    EXPECT_EQ(queue_.lowestActivePosition(), 1);
    tasks[0]->finish();
    EXPECT_EQ(queue_.lowestActivePosition(), 2);
    EXPECT_EQ(queue_.tableView()->rowToShow(), 2);
    tasks[1]->finish();
    tasks[2]->finish();
    tasks[3]->finish();
    EXPECT_EQ(queue_.tableView()->rowToShow(), 3);
    EXPECT_EQ(queue_.numberOfRowsInTableView(), 0);
    StatusQueueCell cell;
    queue_.tableViewWillDisplayCellForTableColumnRow(cell, 3); // harmless
}

TEST_F(TaskQueue, PanelComesToTheFrontForEachTaskAddedOrStarted)
{
    const auto tasks = addTasks(3);
    EXPECT_EQ(queue_.panel()->ordersToFront(), 3U);
    tasks[0]->finish();
    EXPECT_EQ(queue_.panel()->ordersToFront(), 4U);
}

namespace {

/// A task whose tool cannot be launched.
class UnlaunchableTask : public TestTask
{
public:
    static std::shared_ptr<UnlaunchableTask> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<UnlaunchableTask> task(new UnlaunchableTask);
        task->setUpWithQueue(queue);
        return task;
    }
    void startTask() override
    {
        TestTask::startTask();
        throw PlatformException(u"InvalidArgumentException"_s, u"cannot start it"_s);
    }
};

} // namespace

TEST_F(TaskQueue, PanelComesUpAheadOfTheLock)
{
    EXPECT_THROW(queue_.addTask(UnlaunchableTask::make(&queue_)), PlatformException);
    const unsigned before = queue_.panel()->ordersToFront();
    const auto task = TestTask::make(&queue_);
    std::thread other([&] { queue_.addTask(task); }); // waits for the lock that was left held
    EXPECT_TRUE(runUntil([&] { return queue_.panel()->ordersToFront() > before; }));
    EXPECT_TRUE(queue_.lock().isHeldByThisThread());
    const_cast<Lock&>(queue_.lock()).unlock();
    other.join();
    EXPECT_EQ(task->starts, 1);
}

TEST_F(TaskQueue, TableIsReloadedForEachAdditionReportSweepAndRemoval)
{
    const LogCapture log;
    const auto reloads = [this] { return queue_.tableView()->reloads(); };
    unsigned before = reloads();
    const auto tasks = addTasks(2);
    EXPECT_EQ(reloads(), before + 2);
    before = reloads();
    tasks[0]->finish();
    EXPECT_EQ(reloads(), before + 1) << "a row has changed";
    before = reloads();
    tasks[1]->finish(true);
    EXPECT_EQ(reloads(), before + 2) << "for the report, and for the rows that were swept";
    before = reloads();
    queue_.removeAllErrors(nullptr);
    EXPECT_EQ(reloads(), before + 1);
}

TEST_F(TaskQueue, RowHasNoTextOfItsOwn)
{
    addTasks(1);
    EXPECT_EQ(queue_.tableViewObjectValueForTableColumnRow(0, 0), QString());
}

TEST_F(TaskQueue, ReportOfATaskThatHasNotEndedIsNotCountedDown)
{
    const auto tasks = addTasks(2);
    tasks[0]->reportAgain();
    EXPECT_EQ(queue_.activeTask(), 2);
    EXPECT_EQ(queue_.taskCount(), 1);
    tasks[1]->finish();
}

TEST_F(TaskQueue, SetWithSharedResultsOpensOneWindowTitledByTheLastToEnd)
{
    const auto first = TestTask::make(&queue_, u"first"_s), second = TestTask::make(&queue_, u"second"_s);
    const auto set = std::make_shared<ZOLTTaskResults>();
    for (const auto& task : {first, second}) {
        task->setResults(set);
        set->addTaskInSet(task);
        queue_.addTask(task);
    }
    set->appendResultsForTask(u"a"_s, first.get());
    set->appendResultsForTask(u"b"_s, second.get());
    second->finish();
    EXPECT_TRUE(queue_.outputWindows().empty());
    first->finish();
    ASSERT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_EQ(queue_.outputWindows()[0]->window()->title(), u"first"_s);
    EXPECT_EQ(queue_.outputWindows()[0]->textField()->string(), u"a\nb\n"_s);
}

TEST_F(TaskQueue, TasksOfASetThatEndAtOnceOpenOneWindowAtTheLastReport)
{
    const auto tasks = addTasks(2);
    const auto set = std::make_shared<ZOLTTaskResults>();
    for (const auto& task : tasks) {
        task->setResults(set);
        set->addTaskInSet(task);
    }
    for (const auto& task : tasks)
        task->stopTask(nullptr);
    tasks[0]->reportAgain();
    EXPECT_TRUE(queue_.outputWindows().empty());
    tasks[1]->reportAgain();
    EXPECT_EQ(queue_.outputWindows().size(), 1U);
}

TEST_F(TaskQueue, ReportsOfSeveralThreadsEachOpenTheirWindowOneStepApart)
{
    constexpr int windows = 2000;
    std::atomic<int> ready = 0;
    const auto show = [&] {
        for (++ready; ready < 2;)
            std::this_thread::yield();
        for (int shown = 0; shown < windows; ++shown)
            queue_.showOutputWindowTitle(u"text"_s, u"title"_s);
    };
    std::thread other(show);
    show();
    other.join();
    std::set<std::pair<double, double>> places;
    for (const auto& window : queue_.outputWindows())
        places.emplace(window->window()->frameTopLeftPoint().x(), window->window()->frameTopLeftPoint().y());
    EXPECT_EQ(queue_.outputWindows().size(), 2U * windows);
    EXPECT_EQ(places.size(), 2U * windows);
}

TEST_F(TaskQueue, NobodyTouchesTheContainersWhileAnotherDoes)
{
    const auto tasks = addTasks(3);
    const auto more = TestTask::make(&queue_);
    StatusQueueCell cell;
    const std::function<void()> operations[] = {
        [&] { queue_.showOutputWindowTitle(u"text"_s, u"title"_s); },
        [&] { queue_.outputWindows(); },
        [&] { queue_.addTask(more); },
        [&] { queue_.taskArray(); },
        [&] { queue_.panelArray(); },
        [&] { queue_.taskCount(); },
        [&] { queue_.numberOfRowsInTableView(); },
        [&] { queue_.rowTask(0); },
        [&] { queue_.tableViewWillDisplayCellForTableColumnRow(cell, 0); },
        [&] { queue_.withdrawTask(tasks[2]); },
        [&] { tasks[0]->finish(true); },
        [&] { queue_.cancelAllTasks(nullptr); },
        [&] { queue_.removeAllErrors(nullptr); },
    };
    for (std::size_t index = 0; index < std::size(operations); ++index)
        EXPECT_TRUE(waitsFor(mutexOf(queue_), operations[index])) << "operation " << index;
}

TEST_F(TaskQueue, TaskThatDroppedItsResultsOpensNoWindow)
{
    const auto tasks = addTasks(1);
    tasks[0]->stopTask(nullptr);
    tasks[0]->setResults(nullptr);
    tasks[0]->reportAgain();
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(TaskQueue, StartThatFailsInAddTaskGoesToTheCallerAndLeavesTheLockHeld)
{
    EXPECT_THROW(queue_.addTask(UnlaunchableTask::make(&queue_)), PlatformException);
    EXPECT_TRUE(queue_.lock().isHeld());
    EXPECT_EQ(queue_.activeTask(), 0);
}

TEST_F(TaskQueue, StartThatFailsInAReportIsLoggedAndTheRowStillEnds)
{
    setLimit(1);
    const auto running = addTasks(1);
    const auto broken = UnlaunchableTask::make(&queue_);
    queue_.addTask(broken);
    const auto last = addTasks(1);
    const LogCapture log;
    running[0]->finish();
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted: cannot start it"_s), 1);
    EXPECT_FALSE(queue_.lock().isHeld());
    runPosted();
    EXPECT_TRUE(broken->isDone() && broken->error());
    EXPECT_TRUE(last[0]->isActive());
    EXPECT_EQ(queue_.activeTask(), 1) << "counted out once, as it was counted in";
    last[0]->finish();
    EXPECT_EQ(queue_.activeTask(), 0);
    EXPECT_EQ(queue_.panelArray(), ZOLTTaskQueue::Tasks{broken}) << "only the failed row remains";
}

namespace {

class StrangeTask : public TestTask
{
public:
    static std::shared_ptr<StrangeTask> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<StrangeTask> task(new StrangeTask);
        task->setUpWithQueue(queue);
        return task;
    }
    void startTask() override { throw std::logic_error("not ours"); }
};

} // namespace

TEST_F(TaskQueue, OtherExceptionsPassThroughTheClosingStep)
{
    setLimit(1);
    const auto running = addTasks(1);
    const auto strange = StrangeTask::make(&queue_);
    queue_.addTask(strange);
    EXPECT_THROW(running[0]->finish(), std::logic_error);
    EXPECT_TRUE(queue_.lock().isHeld()) << "only the platform's exceptions release it";
}

namespace {

class FaultyDesktop : public Desktop
{
public:
    void setBadgeLabel(const OptionalText&) override { badgeFault(); }
    void requestUserAttention(int) override { fault(); }
    void terminate() override {}
    std::function<void()> fault = [] {};
    std::function<void()> badgeFault = [] {};
};

} // namespace

TEST_F(TaskQueue, FaultAfterTheLockWasReleasedIsLoggedAndTheCountStillReset)
{
    const LogCapture log;
    FaultyDesktop faulty;
    faulty.fault = [] { throw RangeException(u"late fault"_s); };
    installDesktop(&faulty);
    setLimit(1);
    addTasks(1)[0]->finish();
    installDesktop(&desktop_);
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted: late fault"_s), 1);
    EXPECT_FALSE(queue_.lock().isHeld());
    EXPECT_EQ(queue_.lowestActivePosition(), 0);
}

TEST_F(TaskQueue, OtherExceptionsReachTheirCallerWithTheQueueReset)
{
    FaultyDesktop faulty;
    faulty.fault = [] { throw std::logic_error("not ours"); };
    installDesktop(&faulty);
    const auto tasks = addTasks(2);
    tasks[0]->finish();
    EXPECT_THROW(tasks[1]->finish(), std::logic_error);
    installDesktop(&desktop_);
    EXPECT_EQ(queue_.activeTask(), 0);
    EXPECT_EQ(queue_.lowestActivePosition(), 0);
}

TEST_F(TaskQueue, OtherExceptionsUnderTheLockLeaveItHeldAndTheQueueReset)
{
    FaultyDesktop faulty;
    const auto tasks = addTasks(2);
    tasks[0]->finish();
    faulty.badgeFault = [] { throw std::logic_error("not ours"); };
    installDesktop(&faulty);
    EXPECT_THROW(tasks[1]->finish(), std::logic_error);
    installDesktop(&desktop_);
    EXPECT_TRUE(queue_.lock().isHeld());
    EXPECT_EQ(queue_.lowestActivePosition(), 0);
}

TEST_F(TaskQueue, TaskThatWasNeverTitledShowsItsTextAsOutput)
{
    const auto task = ZOLTTask::initWithQueue(&queue_);
    queue_.addTask(task);
    task->endAfterFault(u"why"_s);
    ASSERT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_EQ(queue_.outputWindows()[0]->window()->title(), u"Output"_s);
}

TEST_F(TaskQueue, ReasonOfAFaultStandsInTheTasksOwnSlot)
{
    const auto first = TestTask::make(&queue_), second = TestTask::make(&queue_);
    const auto set = std::make_shared<ZOLTTaskResults>();
    for (const auto& task : {first, second}) {
        task->setResults(set);
        set->addTaskInSet(task);
        queue_.addTask(task);
    }
    const LogCapture log;
    second->endAfterFault(u"why"_s);
    EXPECT_EQ(set->results(), u"\nwhy\n"_s);
    first->finish();
}

TEST_F(TaskQueue, LimitAtTheStartIsTheSetting)
{
    const QTemporaryDir directory;
    UserDefaults::standard().reopen(directory.filePath(u"settings.ini"_s));
    UserDefaults::standard().set(u"maxThreads"_s, 5);
    const ZOLTTaskQueue queue;
    UserDefaults::standard().remove(u"maxThreads"_s);
    EXPECT_EQ(queue.maxThreads(), 5);
}

TEST_F(TaskQueue, TenThousandTasksEachReportOnce)
{
    const auto tasks = addTasks(10000);
    for (const auto& task : tasks)
        task->finish();
    EXPECT_EQ(queue_.taskCount(), 0);
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_TRUE(std::all_of(tasks.begin(), tasks.end(), [](const auto& task) { return task->starts == 1; }));
}

TEST_F(TaskQueue, NothingStartsWhileHeldAndReleasingStartsWhatFits)
{
    queue_.setHeld(true);
    const auto tasks = addTasks(3);
    EXPECT_EQ(tasks[0]->starts + tasks[1]->starts + tasks[2]->starts, 0);
    queue_.setHeld(false);
    EXPECT_EQ(tasks[0]->starts, 1);
    EXPECT_EQ(tasks[1]->starts, 1);
    EXPECT_EQ(tasks[2]->starts, 0);
    EXPECT_EQ(queue_.activeTask(), 2);
    EXPECT_EQ(queue_.lowestActivePosition(), 1);
    for (const auto& task : tasks)
        task->finish();
}

TEST_F(TaskQueue, ARunDoesNotEndWhileTasksWaitInAHeldQueue)
{
    const auto tasks = addTasks(3);
    queue_.setHeld(true);
    tasks[0]->finish();
    tasks[1]->finish();
    EXPECT_EQ(tasks[2]->starts, 0);
    EXPECT_EQ(queue_.panelArray().size(), 3U) << "no row is swept";
    EXPECT_TRUE(queue_.panel()->isVisible());
    EXPECT_TRUE(desktop_.attentions().empty());
    queue_.setHeld(false);
    tasks[2]->finish();
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_FALSE(queue_.panel()->isVisible());
    EXPECT_EQ(desktop_.attentions().size(), 1U);
}

TEST_F(TaskQueue, AHeldQueueInWhichNothingWaitsEndsItsRun)
{
    const auto tasks = addTasks(1);
    queue_.setHeld(true);
    tasks[0]->finish();
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_FALSE(queue_.panel()->isVisible());
}

TEST_F(TaskQueue, AddingToAHeldQueueAndEndsInItStartNothing)
{
    const auto running = addTasks(2);
    queue_.setHeld(true);
    const auto waiting = addTasks(1);
    running[0]->finish();
    EXPECT_EQ(waiting[0]->starts, 0);
    EXPECT_EQ(queue_.activeTask(), 1);
    queue_.setHeld(false);
    EXPECT_EQ(waiting[0]->starts, 1);
    EXPECT_EQ(queue_.activeTask(), 2);
    running[1]->finish();
    waiting[0]->finish();
}

TEST_F(TaskQueue, WithdrawnTaskOfASetLetsTheFollowingOneBeQueued)
{
    queue_.setHeld(true);
    const auto task = LookingBack::make(&queue_);
    const auto following = TestTask::make(&queue_);
    task->results()->setTaskAfterSetDone(following);
    queue_.addTask(task);
    EXPECT_TRUE(queue_.withdrawTask(task));
    EXPECT_EQ(queue_.activeTask(), 0);
    runPosted();
    EXPECT_EQ(queue_.taskArray(), ZOLTTaskQueue::Tasks{following});
    queue_.setHeld(false);
    EXPECT_EQ(following->starts, 1);
    following->finish();
}

TEST_F(TaskQueue, LastWithdrawalInAHeldQueueEndsTheRun)
{
    queue_.setHeld(true);
    const auto first = LookingBack::make(&queue_), second = LookingBack::make(&queue_);
    queue_.addTasks({first, second});
    queue_.withdrawTask(second);
    EXPECT_EQ(queue_.panelArray().size(), 2U) << "no row is swept under one that waits";
    EXPECT_TRUE(queue_.panel()->isVisible());
    queue_.withdrawTask(first);
    EXPECT_TRUE(queue_.panelArray().empty());
    EXPECT_FALSE(queue_.panel()->isVisible());
    EXPECT_TRUE(first->hadResults) << "somebody was inside it";
}

namespace {

/// Reports its end by itself; the test does its work ahead of that.
class Overtaken : public TestTask
{
public:
    static std::shared_ptr<Overtaken> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<Overtaken> task(new Overtaken);
        task->setUpWithQueue(queue);
        return task;
    }
    void stopTask(Sender sender) override
    {
        if (meanwhile) meanwhile();
        TestTask::stopTask(sender);
        reportCompleted();
    }
    std::function<void()> meanwhile;
};

} // namespace

TEST_F(TaskQueue, ATaskThatIsBeingWithdrawnIsNotStartedByAReportThatComesMeanwhile)
{
    setLimit(1);
    const auto running = addTasks(1)[0];
    const auto task = Overtaken::make(&queue_);
    task->meanwhile = [&] { running->finish(); };
    queue_.addTask(task);
    EXPECT_TRUE(queue_.withdrawTask(task));
    EXPECT_EQ(task->starts, 0);
    EXPECT_EQ(queue_.taskCount(), 0);
}

TEST_F(TaskQueue, AWithdrawnTaskIsCancelledAndNotCountedDown)
{
    const auto tasks = addTasks(4);
    EXPECT_TRUE(queue_.withdrawTask(tasks[3]));
    tasks[3]->reportAgain(); // the end of a task is its family's: this one reports by hand
    EXPECT_TRUE(tasks[3]->cancelled());
    EXPECT_TRUE(tasks[3]->isDone());
    EXPECT_EQ(queue_.activeTask(), 2);
    EXPECT_EQ(queue_.taskCount(), 3);
    EXPECT_EQ(tasks[2]->starts, 0) << "no slot has become free";
    EXPECT_FALSE(queue_.withdrawTask(tasks[3])) << "it has ended";
    EXPECT_FALSE(queue_.withdrawTask(tasks[0])) << "it runs";
    EXPECT_FALSE(tasks[0]->cancelled());
    for (int number : {0, 1, 2})
        tasks[std::size_t(number)]->finish();
    EXPECT_FALSE(queue_.panel()->isVisible());
}

TEST_F(TaskQueue, EndingEverythingMarksAllTasksBeforeItWaitsForOne)
{
    const auto tasks = addTasks(2);
    queue_.endEverything([&] {
        tasks[0]->finish(); // its tool ends by itself while the walk waits for the other
        EXPECT_TRUE(tasks[0]->cancelled()) << "its source would be deleted";
        queue_.cancelAllTasks(nullptr);
    });
    EXPECT_TRUE(tasks[1]->cancelled());
    EXPECT_EQ(queue_.taskCount(), 0);
}

TEST_F(TaskQueue, EndingEverythingStartsNothingAndGoesBackToTheFormerHold)
{
    for (const bool held : {false, true}) {
        queue_.setHeld(false);
        const auto running = addTasks(2);
        std::vector<std::shared_ptr<Overtaken>> waiting;
        for (int i = 0; i < 20; ++i) {
            waiting.push_back(Overtaken::make(&queue_));
            queue_.addTask(waiting.back());
        }
        queue_.setHeld(held);
        queue_.endEverything([&] {
            EXPECT_EQ(queue_.taskCount(), 2) << "what waits is out of the way by then";
            queue_.cancelAllTasks(nullptr);
        });
        for (const auto& task : waiting) {
            EXPECT_EQ(task->starts, 0);
            EXPECT_TRUE(task->cancelled());
        }
        EXPECT_EQ(queue_.taskCount(), 0);
        EXPECT_EQ(queue_.activeTask(), 0);
        EXPECT_EQ(queue_.isHeld(), held);
    }
}

TEST_F(TaskQueue, EndingEverythingStartsNothingThoughATaskEndsMeanwhile)
{
    setLimit(1);
    const auto running = addTasks(1)[0];
    const auto older = Overtaken::make(&queue_), last = Overtaken::make(&queue_);
    queue_.addTasks({older, last});
    last->meanwhile = [&] { running->finish(); };
    queue_.endEverything([&] { queue_.cancelAllTasks(nullptr); });
    EXPECT_EQ(older->starts, 0);
    EXPECT_EQ(queue_.taskCount(), 0);
}

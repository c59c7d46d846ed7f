#include "EngineFixture.h"
#include "platform/errors/Exceptions.h"
#include "support/EventLoop.h"
#include "support/LogCapture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

class Task : public EngineTest
{
protected:
    std::shared_ptr<TestTask> task_ = TestTask::make(&queue_, u"song.flac"_s);
    ~Task() override { task_->setResults(nullptr); } // never queued: nobody else breaks its ring
};

TEST_F(Task, WaitingRowHasItsNameAndNeitherBarNorButton)
{
    EXPECT_FALSE(task_->isActive() || task_->isDone() || task_->cancelled() || task_->error());
    EXPECT_EQ(task_->textField()->stringValue(), u"song.flac"_s);
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Waiting..."_s);
    EXPECT_TRUE(task_->progressIndicator()->isHidden());
    EXPECT_TRUE(task_->cancelButton()->isHidden());
    EXPECT_EQ(task_->cancelButton()->toolTip(), u"Cancel"_s);
}

TEST_F(Task, RowControlsLookAsRowsDo)
{
    const TextFieldStyle& name = task_->textField()->style();
    EXPECT_TRUE(name.bold && !name.border && !name.editable && !name.wraps && name.controlColourBackground);
    EXPECT_EQ(name.fontSize, 12.0);
    const TextFieldStyle& status = task_->topTextField()->style();
    EXPECT_TRUE(!status.bold && !status.border && !status.editable && !status.wraps && status.controlColourBackground);
    EXPECT_EQ(status.fontSize, 9.0);
    const ButtonStyle& button = task_->cancelButton()->style();
    EXPECT_EQ(button.controlSize, 1);
    EXPECT_EQ(button.bezelStyle, 6);
    EXPECT_EQ(button.imageSize, 15.0);
    EXPECT_EQ(button.imageName, u"NSImageNameStopProgressFreestandingTemplate"_s);
    EXPECT_EQ(button.imagePosition, 1);
    EXPECT_FALSE(button.border);
    EXPECT_TRUE(task_->cancelButton()->title().isEmpty());
    EXPECT_EQ(task_->progressIndicator()->minValue(), 0.0);
    EXPECT_EQ(task_->progressIndicator()->maxValue(), 100.0);
    EXPECT_TRUE(task_->progressIndicator()->isAnimating());
    EXPECT_FALSE(task_->progressIndicator()->isIndeterminate());
}

TEST_F(Task, RunningRowShowsBarAndButton)
{
    task_->setTitle(u"other.flac"_s);
    task_->startTask();
    EXPECT_TRUE(task_->isActive());
    EXPECT_EQ(task_->textField()->stringValue(), u"other.flac"_s);
    EXPECT_FALSE(task_->progressIndicator()->isHidden());
    EXPECT_FALSE(task_->cancelButton()->isHidden());
}

TEST_F(Task, TaskThatHasEndedNeverGoesBack)
{
    task_->cancelTask(nullptr);
    task_->startTask(); // as a thread does that was on its way when the cancel came
    EXPECT_TRUE(task_->isDone());
    EXPECT_FALSE(task_->isActive());
    EXPECT_EQ(task_->textField()->stringValue(), u"Canceled"_s);
    EXPECT_TRUE(task_->cancelButton()->isHidden());
}

TEST_F(Task, GoodEndIsGreenAndComplete)
{
    task_->startTask();
    task_->stopTask(nullptr);
    EXPECT_FALSE(task_->isActive());
    EXPECT_TRUE(task_->isDone());
    EXPECT_EQ(task_->textField()->textColour(), (Colour{0.0, 0.5, 0.0, 1.0}));
    EXPECT_EQ(task_->textField()->stringValue(), u"song.flac"_s);
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_TRUE(task_->progressIndicator()->isHidden());
    EXPECT_TRUE(task_->cancelButton()->isHidden());
}

TEST_F(Task, FailedEndIsRedWithAStoppedBarAndIsLogged)
{
    const LogCapture log;
    task_->startTask();
    task_->setError(true);
    task_->stopTask(nullptr);
    EXPECT_EQ(task_->textField()->textColour(), Colour::failure());
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Error"_s);
    EXPECT_FALSE(task_->progressIndicator()->isAnimating());
    EXPECT_FALSE(task_->progressIndicator()->isHidden());
    EXPECT_TRUE(task_->cancelButton()->isHidden());
    EXPECT_EQ(log.count(task_->description() + u" Error"_s), 1);
}

TEST_F(Task, CancelledAndFailedReadsAsCancelledAndIsNotLogged)
{
    const LogCapture log;
    task_->startTask();
    task_->topTextField()->setStringValue(u"Working: 10%"_s);
    task_->setError(true);
    task_->cancelTask(nullptr);
    EXPECT_EQ(task_->textField()->stringValue(), u"Canceled"_s);
    EXPECT_EQ(task_->textField()->textColour(), Colour::failure());
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Working: 10%"_s);
    EXPECT_TRUE(task_->progressIndicator()->isAnimating());
    EXPECT_FALSE(task_->progressIndicator()->isHidden());
    EXPECT_EQ(log.count(u"<ZOLTTask: song.flac> Error"_s), 0);
    EXPECT_EQ(task_->title(), u"song.flac"_s);
}

TEST_F(Task, TaskThatEndsIsAtNoMomentTakenForOneThatWaits)
{
    class Ending : public ZOLTTask
    {
    public:
        static std::shared_ptr<Ending> make() { return std::shared_ptr<Ending>(new Ending); }
        using ZOLTTask::markEnded;
        using ZOLTTask::markRunning;
    };
    std::vector<std::shared_ptr<Ending>> tasks(20000);
    for (auto& task : tasks) {
        task = Ending::make();
        task->markRunning();
    }
    std::atomic<const Ending*> watched = tasks.front().get();
    std::atomic<bool> over = false;
    int seenWaiting = 0;
    std::thread onlooker([&] {
        while (!over)
            seenWaiting += watched.load()->isWaiting();
    });
    for (const auto& task : tasks) {
        watched = task.get();
        task->markEnded();
    }
    over = true;
    onlooker.join();
    EXPECT_EQ(seenWaiting, 0);
}

TEST_F(Task, StopButtonCancelsTheTask)
{
    task_->startTask();
    task_->cancelButton()->performAction();
    EXPECT_TRUE(task_->cancelled());
    EXPECT_TRUE(task_->isDone());
}

TEST_F(Task, HideTakesAllFourControlsOffTheTable)
{
    queue_.addTask(task_);
    StatusQueueCell cell;
    queue_.tableViewWillDisplayCellForTableColumnRow(cell, 0);
    EXPECT_EQ(cell.textField(), task_->textField());
    EXPECT_TRUE(task_->textField()->hasSuperview() && task_->topTextField()->hasSuperview());
    EXPECT_TRUE(task_->progressIndicator()->hasSuperview() && task_->cancelButton()->hasSuperview());
    task_->hide();
    EXPECT_FALSE(task_->textField()->hasSuperview() || task_->topTextField()->hasSuperview());
    EXPECT_FALSE(task_->progressIndicator()->hasSuperview() || task_->cancelButton()->hasSuperview());
}

TEST_F(Task, ClassThatCannotDeleteSaysSo)
{
    EXPECT_THROW(task_->setDeleteOriginal(true), InvalidArgumentException);
}

TEST_F(Task, FaultEndsTheTaskOnceWithItsReason)
{
    const LogCapture log;
    queue_.addTask(task_);
    const auto results = task_->results();
    task_->endAfterFault(u"out of luck"_s);
    task_->endAfterFault(u"again"_s);
    EXPECT_TRUE(task_->error() && task_->isDone());
    EXPECT_EQ(results->results(), u"out of luck\n"_s);
    EXPECT_EQ(queue_.taskCount(), 0);
    EXPECT_EQ(log.count(u"Exception in queue"_s), 0);
}

TEST_F(Task, EndBehindAFaultHasItsResultsToItsLastStep)
{
    class Faulty : public ZOLTTask
    {
    public:
        static std::shared_ptr<Faulty> make(ZOLTTaskQueue* queue)
        {
            std::shared_ptr<Faulty> task(new Faulty);
            task->setUpWithQueue(queue);
            return task;
        }
        bool hadResults = false;

    protected:
        void finishAfterFault() override
        {
            setError(false); // so that its row is swept
            ZOLTTask::finishAfterFault();
            hadResults = results() != nullptr;
        }
    };
    const auto task = Faulty::make(&queue_);
    queue_.addTask(task);
    task->endAfterFault(u"why"_s);
    EXPECT_TRUE(task->hadResults);
    EXPECT_EQ(task->results(), nullptr);
}

TEST_F(Task, FollowingTaskIsQueuedOnTheMainThreadWhenTheSetHasEnded)
{
    const auto second = TestTask::make(&queue_);
    const auto after = TestTask::make(&queue_);
    const auto set = std::make_shared<ZOLTTaskResults>();
    set->setTaskAfterSetDone(after);
    for (const auto& task : {task_, second}) {
        task->setResults(set);
        set->addTaskInSet(task);
        queue_.addTask(task);
    }
    task_->finish();
    EXPECT_FALSE(set->taskSetDone());
    second->finish();
    EXPECT_TRUE(set->taskSetDone());
    EXPECT_EQ(after->starts, 0) << "queued before the main thread got to it";
    second->stopTask(nullptr); // a second end queues nothing more
    runPosted();
    EXPECT_EQ(after->starts, 1);
    EXPECT_EQ(queue_.taskCount(), 1);
    after->finish();
}

TEST_F(Task, ResultsAreLetGoOnceTheTaskHasLeftQueueAndPanel)
{
    const std::weak_ptr<TestTask> weak = task_;
    queue_.addTask(task_);
    task_->finish();
    EXPECT_EQ(task_->results(), nullptr);
    task_ = TestTask::make(&queue_);
    EXPECT_TRUE(weak.expired());
}

TEST_F(Task, FailedRowKeepsItsResultsUntilItIsRemoved)
{
    const LogCapture log;
    queue_.addTask(task_);
    task_->finish(true);
    EXPECT_NE(task_->results(), nullptr);
    queue_.removeAllErrors(nullptr);
    EXPECT_EQ(task_->results(), nullptr);
}

#include "engine/RunRecord.h"

#include "EngineFixture.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "support/EventLoop.h"
#include "support/LogCapture.h"
#include "support/NoMoreThreads.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// A task with a source and as many stages as the test says.
class FileTask : public TestTask
{
public:
    static std::shared_ptr<FileTask> make(ZOLTTaskQueue* queue, const QString& source, int stages = 1)
    {
        std::shared_ptr<FileTask> task(new FileTask);
        task->setUpWithQueue(queue);
        task->source_ = source;
        task->stages_ = stages;
        task->showTitle(path::lastComponent(source));
        return task;
    }
    QString source() const override { return source_; }
    int stageCount() const override { return stages_; }
    void stopTask(Sender sender) override
    {
        TestTask::stopTask(sender);
        if (!error() && !keepsReport) setResults(nullptr);
    }
    bool keepsReport = false;

private:
    QString source_;
    int stages_ = 1;
};

/// Writes down what it is told.
class Telling : public RunListener
{
public:
    void runBegan(const Run&) override { told += u"began"_s; }
    void rowAdded(const RunRow& row) override { told += u"added "_s + row.title; }
    void rowStarted(const RunRow& row) override { told += u"started "_s + row.title; }
    void rowEnded(const RunRow& row) override { told += inWords(row.outcome) + u' ' + row.title; }
    void rowReported(const RunRow& row) override { told += u"reported "_s + row.title; }
    void runEnded(const Run& run) override { told += u"ended: "_s + inWords(run); }
    QStringList told;
};

class RunRecordTest : public EngineTest
{
protected:
    RunRecordTest() { record_.addListener(&telling_); }
    ~RunRecordTest() override { record_.removeListener(&telling_); }

    std::shared_ptr<FileTask> add(const QString& source, int stages = 1)
    {
        const auto task = FileTask::make(&queue_, source, stages);
        queue_.addTask(task);
        return task;
    }
    /// How far the run is once the sizes are known.
    double progress()
    {
        runPosted();
        record_.progress();
        waitForDetachedThreads();
        runPosted();
        return record_.progress();
    }

    std::atomic<qint64> now_ = 1000;
    QHash<QString, qint64> sizes_;
    RunRecord record_{queue_, [this] { return now_.load(); },
                      [this](const QString& path) { return sizes_.value(path, RunProgress::unknown); }};
    Telling telling_;
};

} // namespace

TEST_F(RunRecordTest, TellsWhatHappensInOrder)
{
    setLimit(1);
    const LogCapture log;
    const auto first = add(u"/a/1.flac"_s), second = add(u"/a/2.flac"_s);
    now_ += 3000;
    first->finish();
    now_ += 4500;
    second->finish(true);
    runPosted();
    EXPECT_THAT(telling_.told, ElementsAre(u"began"_s, u"added 1.flac"_s, u"started 1.flac"_s, u"added 2.flac"_s,
                                           u"complete 1.flac"_s, u"started 2.flac"_s, u"failed 2.flac"_s,
                                           u"reported 2.flac"_s, u"ended: 1 complete, 1 failed, 0 canceled, 0:07"_s));
    const auto& run = *record_.current();
    EXPECT_EQ(run.rows[0].source, u"/a/1.flac"_s);
    EXPECT_EQ(run.rows[0].milliseconds, 3000);
    EXPECT_EQ(run.rows[1].milliseconds, 4500);
    EXPECT_EQ(run.rows[0].report, std::nullopt);
    EXPECT_EQ(run.rows[1].report, u"\n"_s);
    EXPECT_EQ(run.rows[1].task, nullptr) << "ended tasks are not kept";
}

TEST_F(RunRecordTest, WhatManyRowsHaveToTellLeavesRoomForWhatElseIsToBeDone)
{
    queue_.setHeld(true);
    constexpr int rows = 2000;
    const auto tasks = addTasks(rows);
    for (const auto& task : tasks)
        task->setResults(nullptr);
    int toldBefore = 0;
    postToMain([&] { toldBefore = int(telling_.told.size()); });
    runPosted();
    EXPECT_LT(toldBefore, rows);
    EXPECT_EQ(telling_.told.size(), 1 + rows);
    queue_.cancelAllTasks(nullptr);
    const LogCapture log;
    tasks.front()->reportAgain(); // stray, behind the last that counts
    runPosted();
    EXPECT_EQ(telling_.told.size(), 1 + rows + rows + 1);
    EXPECT_EQ(telling_.told.last(), u"ended: 0 complete, 0 failed, 2,000 canceled, 0:00"_s);
}

TEST_F(RunRecordTest, RowsKnowWhoHadThemQueuedAlsoThoseThatFollowASet)
{
    EXPECT_EQ(queue_.setOrigin({u"a"_s, {}}).name, QString());
    const auto first = add(u"/a/1.flac"_s);
    const auto following = TestTask::make(&queue_);
    first->results()->setTaskAfterSetDone(following);
    EXPECT_EQ(queue_.setOrigin({u"b"_s, {}}).name, u"a"_s);
    const auto second = add(u"/a/2.flac"_s);
    first->finish();
    runPosted();
    following->finish();
    second->finish();
    runPosted();
    QStringList origins;
    for (const RunRow& row : record_.current()->rows)
        origins += row.origin.name;
    EXPECT_THAT(origins, ElementsAre(u"a"_s, u"b"_s, u"a"_s));
}

TEST_F(RunRecordTest, OutcomeIsReadAsTheRowShowsIt)
{
    const auto task = TestTask::make(nullptr);
    EXPECT_EQ(outcomeOf(*task), Outcome::Complete);
    task->setError(true);
    EXPECT_EQ(outcomeOf(*task), Outcome::Failed);
    task->setCancelled(true);
    EXPECT_EQ(outcomeOf(*task), Outcome::Canceled) << "as the row of one that is both";
    task->setResults(nullptr);
}

TEST_F(RunRecordTest, SizesAreAskedForAgainWhereNoThreadWasToBeHad)
{
    NoMoreThreads none;
    sizes_ = {{u"/a/1.flac"_s, 100}, {u"/a/2.flac"_s, 300}};
    const auto first = add(u"/a/1.flac"_s), second = add(u"/a/2.flac"_s);
    first->finish();
    EXPECT_DOUBLE_EQ(progress(), 0.5) << "they weigh alike";
    none.give();
    EXPECT_DOUBLE_EQ(progress(), 0.25);
    second->finish();
}

TEST_F(RunRecordTest, LastRowOfARunKnowsWhichLinesOfItsReportAreAboutMissingFiles)
{
    const auto task = add(u"/a/1.md5"_s);
    task->keepsReport = true;
    task->results()->appendResults(u"1.wav : not there"_s);
    task->results()->noteMissing(u"1.wav : not there"_s);
    task->finish();
    runPosted();
    EXPECT_EQ(record_.current()->rows[0].notes.missing, QSet<QString>{u"1.wav : not there"_s});
}

TEST_F(RunRecordTest, WithdrawnTaskNeverRanAndIsCanceled)
{
    class Withdrawable : public FileTask
    {
    public:
        static std::shared_ptr<Withdrawable> make(ZOLTTaskQueue* queue)
        {
            std::shared_ptr<Withdrawable> task(new Withdrawable);
            task->setUpWithQueue(queue);
            return task;
        }
        void stopTask(Sender sender) override
        {
            FileTask::stopTask(sender);
            reportCompleted();
        }
    };
    queue_.setHeld(true);
    const auto task = Withdrawable::make(&queue_);
    queue_.addTask(task);
    now_ += 1000;
    queue_.withdrawTask(task);
    runPosted();
    EXPECT_EQ(record_.current()->rows[0].outcome, Outcome::Canceled);
    EXPECT_EQ(record_.current()->rows[0].milliseconds, 0);
    EXPECT_EQ(inWords(*record_.current()), u"0 complete, 0 failed, 1 canceled, 0:01"_s);
}

TEST_F(RunRecordTest, TaskThatFollowsASetBelongsToTheSameRun)
{
    const auto first = add(u"/a/1.flac"_s), following = FileTask::make(&queue_, u"/a/2.flac"_s);
    first->results()->setTaskAfterSetDone(following);
    first->finish();
    runPosted();
    EXPECT_TRUE(record_.isRunning());
    following->finish();
    runPosted();
    EXPECT_FALSE(record_.isRunning());
    EXPECT_EQ(record_.runs().size(), 1U);
    EXPECT_EQ(record_.current()->complete, 2);
}

TEST_F(RunRecordTest, WhatIsAddedAfterTheEndIsARunOfItsOwn)
{
    for (int run = 0; run < 2; ++run) {
        add(u"/a/1.flac"_s)->finish();
        runPosted();
    }
    EXPECT_EQ(record_.runs().size(), 2U);
    EXPECT_EQ(record_.current()->count(), 1);
}

TEST_F(RunRecordTest, SecondReportOfATaskChangesNothing)
{
    const LogCapture log;
    const auto task = add(u"/a/1.flac"_s), other = add(u"/a/2.flac"_s);
    task->finish();
    task->reportAgain();
    runPosted();
    EXPECT_EQ(record_.current()->complete, 1);
    EXPECT_TRUE(record_.isRunning());
    other->finish();
    runPosted();
    EXPECT_EQ(record_.current()->complete, 2);
    EXPECT_FALSE(record_.isRunning());
}

TEST_F(RunRecordTest, ReportThatNamesBadFilesFailsItsRow)
{
    const auto task = add(u"/a/list.md5"_s);
    task->keepsReport = true;
    task->results()->appendResults(u"Verify MD5: list.md5\na : OK\nb : FAILED\n"_s);
    task->finish();
    runPosted();
    const RunRow& row = record_.current()->rows[0];
    EXPECT_EQ(row.outcome, Outcome::Complete);
    EXPECT_EQ(row.verdict.bad, 1);
    EXPECT_TRUE(row.failed());
}

TEST_F(RunRecordTest, OfASetThatSharesAReportTheRowsFailThatTheReportSpeaksIllOf)
{
    const auto results = std::make_shared<ZOLTTaskResults>();
    std::vector<std::shared_ptr<FileTask>> set;
    for (const char16_t* const name : {u"/a/bad.md5", u"/a/good.md5"}) {
        set.push_back(FileTask::make(&queue_, QString::fromUtf16(name)));
        set.back()->setResults(results);
        set.back()->keepsReport = true;
        results->addTaskInSet(set.back());
        queue_.addTask(set.back());
    }
    results->appendResultsForTask(u"a : FAILED\n"_s, set[0].get());
    results->appendResultsForTask(u"b : OK\n"_s, set[1].get());
    set[0]->finish();
    set[1]->finish(); // the last to end brings the report
    runPosted();
    const auto& rows = record_.current()->rows;
    EXPECT_TRUE(rows[0].failed());
    EXPECT_FALSE(rows[1].failed());
    EXPECT_EQ(rows[1].verdict.bad, 1);
}

TEST_F(RunRecordTest, ACanceledRowIsNotCountedAsFailedToo)
{
    const auto task = add(u"/a/list.md5"_s);
    task->keepsReport = true;
    task->results()->appendResults(u"a : FAILED\n"_s);
    task->cancelTask(nullptr);
    runPosted();
    EXPECT_EQ(record_.current()->rows[0].outcome, Outcome::Canceled);
    EXPECT_FALSE(record_.current()->rows[0].failed());
}

TEST_F(RunRecordTest, ProgressIsWeightedByTheBytesOfTheSources)
{
    sizes_ = {{u"/a/big"_s, 900}, {u"/a/small"_s, 100}};
    const auto big = add(u"/a/big"_s), small = add(u"/a/small"_s);
    small->finish();
    EXPECT_DOUBLE_EQ(progress(), 0.1);
    big->stageBegins();
    big->progressIndicator()->setDoubleValue(50.0);
    EXPECT_DOUBLE_EQ(progress(), 0.55);
    EXPECT_EQ(record_.progressInWords().section(u',', 0, 1), u"1 of 2, 55 %"_s);
    big->finish();
    runPosted();
    EXPECT_DOUBLE_EQ(record_.progress(), 1.0);
    EXPECT_EQ(record_.progressInWords(), QString());
}

TEST_F(RunRecordTest, StagesOfARowCountAlike)
{
    const auto task = add(u"/a/1.ape"_s, 2);
    task->stageBegins();
    task->progressIndicator()->setDoubleValue(100.0);
    EXPECT_DOUBLE_EQ(progress(), 0.5);
    task->stageBegins();
    EXPECT_DOUBLE_EQ(progress(), 0.5) << "the reading of the stage before does not count for this one";
    task->progressIndicator()->setDoubleValue(50.0);
    EXPECT_DOUBLE_EQ(progress(), 0.75);
    task->progressIndicator()->setDoubleValue(-1.0);
    EXPECT_DOUBLE_EQ(progress(), 0.75) << "a piece without a number is no progress lost";
    task->progressIndicator()->setDoubleValue(20.0);
    EXPECT_DOUBLE_EQ(progress(), 0.75) << "what was reached stays";
    task->stageBegins();
    EXPECT_LE(progress(), 1.0) << "more stages than were announced";
}

TEST_F(RunRecordTest, TimeLeftComesFromThePaceAndPausesDoNotCount)
{
    setLimit(1);
    sizes_ = {{u"/a/1"_s, 100}, {u"/a/2"_s, 100}, {u"/a/3"_s, 100}};
    const auto first = add(u"/a/1"_s), second = add(u"/a/2"_s), third = add(u"/a/3"_s);
    EXPECT_EQ(record_.remaining(), std::nullopt);
    queue_.setHeld(true);
    now_ += 10'000;
    first->finish();
    now_ += 500'000; // paused
    EXPECT_DOUBLE_EQ(progress(), 1.0 / 3.0);
    EXPECT_EQ(record_.remaining(), 20'000);
    EXPECT_EQ(record_.progressInWords(), u"1 of 3, 33 %, 0:20 left"_s);
    EXPECT_EQ(record_.elapsed(), 510'000);
    queue_.setHeld(false);
    second->finish();
    third->finish();
}

TEST_F(RunRecordTest, SourcesAreLookedAtOffTheMainThreadAndOnlyWhenSomebodyAsks)
{
    std::atomic<int> asked = 0;
    std::atomic<bool> onMain = false;
    ZOLTTaskQueue queue;
    queue.maxThreadsChanged({QString(), nullptr, 1});
    RunRecord record(queue, {}, [&](const QString&) {
        ++asked;
        onMain = onMain || isMainThread();
        return 10;
    });
    const auto task = FileTask::make(&queue, u"/a/1"_s);
    queue.addTask(task);
    runPosted();
    EXPECT_EQ(asked, 0);
    record.progress();
    record.progress();
    waitForDetachedThreads();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(onMain);
    task->finish();
    runPosted();
}

TEST_F(RunRecordTest, SizesThatComeAfterTheRunOrTheRecordDoNoHarm)
{
    sizes_ = {{u"/a/1"_s, 100}};
    const auto task = add(u"/a/1"_s);
    runPosted();
    record_.progress();
    task->finish();
    waitForDetachedThreads();
    runPosted();
    EXPECT_DOUBLE_EQ(record_.progress(), 1.0);
    EXPECT_EQ(record_.current()->rows[0].bytes, 100);
    add(u"/a/1"_s)->finish();
    EXPECT_DOUBLE_EQ(progress(), 1.0);
    {
        ZOLTTaskQueue queue;
        queue.maxThreadsChanged({QString(), nullptr, 1});
        const auto gone = FileTask::make(&queue, u"/a/1"_s);
        RunRecord record(queue, {}, [](const QString&) { return 10; });
        queue.addTask(gone);
        runPosted();
        record.progress();
    }
    waitForDetachedThreads();
    runPosted();
}

TEST_F(RunRecordTest, ListenerMayWaitInAnEventLoopOfItsOwn)
{
    class Waiting : public RunListener
    {
    public:
        explicit Waiting(Telling& told) : told_(told) {}
        void rowStarted(const RunRow&) override { runPosted(); }
        Telling& told_;
    } waiting(telling_);
    record_.addListener(&waiting);
    add(u"/a/1"_s)->finish();
    runPosted();
    record_.removeListener(&waiting);
    EXPECT_THAT(telling_.told, ElementsAre(u"began"_s, u"added 1"_s, u"started 1"_s, u"complete 1"_s,
                                           u"ended: 1 complete, 0 failed, 0 canceled, 0:00"_s));
}

TEST_F(RunRecordTest, TenThousandRowsAreToldOneByOne)
{
    for (const auto& task : addTasks(10000)) {
        task->setResults(nullptr);
        task->finish();
    }
    runPosted();
    EXPECT_EQ(record_.current()->complete, 10000);
    EXPECT_EQ(telling_.told.size(), 30002);
}

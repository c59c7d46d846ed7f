#include "ListFixture.h"

#include "checksum/VerifyApeTask.h"
#include "checksum/VerifyFlacTask.h"
#include "checksum/VerifyTTATask.h"
#include "checksum/VerifyWavepackTask.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "support/FakeTool.h"
#include "support/LogCapture.h"

#include <QCoreApplication>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class ToolTests : public ListTest
{
protected:
    ~ToolTests() override { results_->setTasksInSet({}); }

    template <class Task> std::shared_ptr<Task> entered(std::shared_ptr<Task> task)
    {
        results_->addTaskInSet(task);
        return task;
    }
    std::shared_ptr<VerifyFlacTask> flac(const QStringList& arguments = {u"out"_s, u"a.flac"_s})
    {
        return VerifyFlacTask::initVerifyFlacTaskWithResultsQueueLaunchPathArguments(results_, &queue_, fakeTool(),
                                                                                     arguments);
    }
    std::shared_ptr<VerifyApeTask> ape(const QStringList& arguments = {u"/x/a.ape"_s, u"-v"_s})
    {
        return VerifyApeTask::initVerifyApeTaskWithResultsQueueLaunchPathArguments(results_, &queue_, fakeTool(),
                                                                                   arguments);
    }
    std::shared_ptr<VerifyWavepackTask> wavpack(const QStringList& arguments = {u"-v"_s, u"/x/a.wv"_s})
    {
        return VerifyWavepackTask::initVerifyWavepackTaskWithResultsQueueLaunchPathArguments(results_, &queue_,
                                                                                             fakeTool(), arguments);
    }
    std::shared_ptr<VerifyTTATask> tta(const QStringList& arguments = {u"-t"_s, u"/x/a.tta"_s})
    {
        return VerifyTTATask::initVerifyTTATaskWithResultsQueueLaunchPathArguments(results_, &queue_, fakeTool(),
                                                                                   arguments);
    }
    std::shared_ptr<ZOLTTaskResults> results_ = std::make_shared<ZOLTTaskResults>();
};

} // namespace

TEST_F(ToolTests, AreTitledByTheFileWhereItStandsAmongTheArguments)
{
    EXPECT_EQ(entered(flac({u"-t"_s, u"/x/a.flac"_s}))->title(), u"a.flac"_s);
    EXPECT_EQ(entered(ape())->title(), u"a.ape"_s);
    EXPECT_EQ(entered(wavpack())->title(), u"a.wv"_s);
    EXPECT_EQ(entered(tta())->textField()->stringValue(), u"a.tta"_s);
    EXPECT_THROW(flac({u"-t"_s}), RangeException);
}

TEST_F(ToolTests, KnowTheFileThatTheyTestWhateverTheirTitle)
{
    const auto task = entered(flac({u"-t"_s, u"/x/a.flac"_s}));
    task->setTitle(u"Verify FLAC"_s);
    EXPECT_EQ(task->source(), u"/x/a.flac"_s);
    EXPECT_EQ(entered(ape())->source(), u"/x/a.ape"_s);
    EXPECT_EQ(entered(wavpack())->source(), u"/x/a.wv"_s);
    const QString odd = nameOfBytes("/x/s\xe4tze.tta");
    EXPECT_EQ(entered(tta({u"-t"_s, odd}))->source(), odd);
}

TEST_F(ToolTests, FlacShowsTheNumberBehindTheCommaAndItsFileAtEveryPiece)
{
    const auto task = entered(flac());
    task->setTitle(u"Verify FLAC"_s);
    task->processTaskOutput(u"a.flac: testing, 18% complete"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 18.0);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Verifying: 18.000000%"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.flac"_s);
    task->processTaskOutput(u"banner"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 18.0) << "a piece without a number leaves the bar";
    EXPECT_THROW(task->processTaskOutput(u"18%"_s), RangeException);
}

TEST_F(ToolTests, FlacKeepsOnlyItsClosingWords)
{
    const auto task = entered(flac());
    for (const char* piece : {"banner\n", "a.flac: testing, 50% complete", "a.flac: testing, 99% complete", "ok \n"})
        task->processTaskOutput(QString::fromLatin1(piece));
    EXPECT_EQ(results_->results(), u"\n"_s);
    task->cleanup();
    EXPECT_EQ(results_->results(), u"a.flac: testing, 99% complete\nok\n\n"_s);
}

TEST_F(ToolTests, FlacSurvivesAPieceThatIsNoText)
{
    const auto task = entered(flac());
    task->processTaskOutput(std::nullopt);
    task->cleanup();
    EXPECT_EQ(results_->results(), u"\n\n\n"_s);
}

TEST_F(ToolTests, AWaitingFlacTestSaysThatItWasCanceled)
{
    setLimit(0);
    const auto task = entered(flac());
    queue_.addTask(task);
    task->cancelTask(nullptr);
    EXPECT_EQ(results_->results(), u"\na.flac canceled\n\n"_s);
}

TEST_F(ToolTests, ACanceledFlacTestTellsItMoreThanOnceBehindTheLastProgress)
{
    const LogCapture log;
    const QString go = pathOf(u"go"_s);
    const auto task =
        entered(flac({u"out"_s, u"a.flac"_s, u"out"_s, u": testing, 50% complete"_s, u"wait-file"_s, go}));
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->progressIndicator()->doubleValue() == 50.0; }));
    QMetaObject::invokeMethod(
        qApp, [&] { touch(go); }, Qt::QueuedConnection);
    task->cancelTask(nullptr);
    EXPECT_EQ(results_->results().count(u"a.flac canceled\n"_s), 4) << results_->results().toStdString();
    EXPECT_TRUE(results_->results().contains(u"50% complete\na.flac canceled\na.flac canceled\n"_s));
}

TEST_F(ToolTests, ACanceledTestOfAnotherFormatShowsWhatWasGatheredAndNoWordOfTheCancel)
{
    const QString go = pathOf(u"go"_s), progress = u"Progress: 50% (1 seconds"_s, done = u"50% done"_s;
    const auto reportOfCanceled = [&](const std::shared_ptr<ZOLTTask>& task) {
        QFile::remove(go);
        queue_.addTask(task);
        EXPECT_TRUE(runUntil([&] { return task->progressIndicator()->doubleValue() == 50.0; }));
        QMetaObject::invokeMethod(
            qApp, [&] { touch(go); }, Qt::QueuedConnection);
        task->cancelTask(nullptr);
        EXPECT_FALSE(task->error());
        EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
        const QString report = results_->results();
        results_->setTasksInSet({});
        results_ = std::make_shared<ZOLTTaskResults>();
        return report;
    };
    EXPECT_EQ(reportOfCanceled(entered(wavpack({u"out"_s, done, u"wait-file"_s, go}))), done + u'\n');
    EXPECT_EQ(reportOfCanceled(entered(tta({u"out"_s, done, u"wait-file"_s, go}))), done + u'\n');
    const QString words = u"out\n"_s + progress + u'\n'; // titled by its first argument
    EXPECT_EQ(reportOfCanceled(entered(ape({u"out"_s, progress, u"wait-file"_s, go}))), words + words + u'\n')
        << "a cancel stops twice";
}

TEST_F(ToolTests, MacShowsTheDigitsAndPutsItsWordsIntoTheFirstSlotOfTheSet)
{
    const auto first = entered(wavpack());
    const auto task = entered(ape());
    task->processTaskOutput(u"banner\nProgress: 12.5% (3 seconds remaining, 4 seconds total)"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 12.5);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Verifying: 12.5%"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.ape"_s);
    task->processTaskOutput(u"\nSuccess\n"_s);
    task->cleanup();
    EXPECT_EQ(results_->results(), u"a.ape\nProgress: 12.5% (3 seconds remaining, 4 seconds total)\nSuccess\n\n\n\n"_s);
    EXPECT_THROW(task->processTaskOutput(u"50% without the word"_s), RangeException);
}

TEST_F(ToolTests, WavpackAndTtaKeepEveryPieceInTheirOwnSlots)
{
    const auto first = entered(wavpack());
    const auto second = entered(tta());
    second->processTaskOutput(u"\b\b\b42% done\b"_s);
    first->processTaskOutput(u" 17% done..."_s);
    first->processTaskOutput(u"ok\b"_s);
    EXPECT_EQ(results_->results(), u" 17% done...ok\n42% done\n"_s);
    EXPECT_EQ(first->topTextField()->stringValue(), u"Verifying: 17.000000%"_s);
    EXPECT_EQ(first->progressIndicator()->doubleValue(), 17.0);
    EXPECT_EQ(second->progressIndicator()->doubleValue(), 42.0);
    EXPECT_EQ(second->textField()->stringValue(), u"a.tta"_s);
}

TEST_F(ToolTests, APercentSignWithoutTheMarkerReadsTheWholePiece)
{
    const auto task = entered(wavpack());
    task->processTaskOutput(u"verified a.wv in 0.01 secs (lossless, 69.63%)"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 0.0) << "it begins with a word";
    EXPECT_EQ(task->topTextField()->stringValue(), u"Verifying: 0.000000%"_s);
}

TEST_F(ToolTests, RowsShowTheirStartInTheirOwnWays)
{
    const LogCapture log;
    const auto shown = [&](const std::shared_ptr<ZOLTTask>& task) {
        task->textField()->setStringValue(u"other"_s);
        queue_.addTask(task);
        const QString status = task->topTextField()->stringValue(), name = task->textField()->stringValue();
        runQueue();
        return status + u'|' + name;
    };
    EXPECT_EQ(shown(entered(flac({u"out"_s, u""_s}))), u"Verifying|other"_s);
    EXPECT_EQ(shown(entered(ape({u"out"_s, u""_s}))), u"Waiting...|other"_s);
    EXPECT_EQ(shown(entered(wavpack({u"out"_s, u"a.wv"_s}))), u"Waiting...|a.wv"_s);
    EXPECT_EQ(shown(entered(tta({u"out"_s, u"a.tta"_s}))), u"Waiting...|a.tta"_s);
}

TEST_F(ToolTests, OnlyTheExitStatusMakesARowFailAndTheReportStandsEitherWay)
{
    const LogCapture log;
    const auto good = wavpack({u"out"_s, u"CRC error!"_s}), bad = wavpack({u"err"_s, u"missing"_s, u"exit"_s, u"1"_s});
    EXPECT_EQ(reportOf({good, bad}, results_), u"CRC error!\nmissing\n"_s);
    EXPECT_FALSE(good->error());
    EXPECT_TRUE(bad->error());
}

TEST_F(ToolTests, ALongSetMakesOneReportInItsOrderWithMacInTheFirstSlot)
{
    setLimit(8);
    std::vector<std::shared_ptr<ZOLTTask>> tasks;
    QString expected;
    for (int number = 0; number < 100; ++number) {
        const QString text = u"file %1"_s.arg(number);
        tasks.push_back(wavpack({u"out"_s, text}));
        expected += text + u'\n';
    }
    tasks.push_back(ape({u"out"_s, u"Progress: 99% (0 seconds remaining, x"_s}));
    const QString report = reportOf(tasks, results_);
    const QString fromMac = u"out\nProgress: 99% (0 seconds remaining, x\n"_s; // titled by its first argument
    EXPECT_EQ(QString(report).remove(fromMac), expected + u'\n');
    EXPECT_LT(report.indexOf(fromMac), report.indexOf(u"file 1\n"_s)) << "in the first task's slot";
}

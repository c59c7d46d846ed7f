#include "util/DeEmphasisTask.h"

#include "UtilFixture.h"

#include "engine/ZOLTTaskResults.h"
#include "platform/audio/AudioSamples.h"
#include "platform/errors/Exceptions.h"
#include "support/EveryCut.h"
#include "support/Programs.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class DeEmphasisTest : public UtilTest
{
protected:
    std::shared_ptr<DeEmphasisTask> make(const QString& source = u"/in/a.wav"_s)
    {
        results = std::make_shared<ZOLTTaskResults>();
        const auto task = DeEmphasisTask::initAsyncTaskWithQueueLaunchPathArgumentsWithResults(
            &queue(), u"/tools/sox"_s, {u"-S"_s, source, u"/out/a-deemph.wav"_s, u"deemph"_s}, results);
        results->addTaskInSet(task);
        return task;
    }
    std::shared_ptr<ZOLTTaskResults> results;
};

} // namespace

TEST_F(DeEmphasisTest, IsNamedByItsSource)
{
    const auto task = make();
    EXPECT_EQ(task->title(), u"a.wav"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.wav"_s);
    EXPECT_EQ(task->results(), results);
}

TEST_F(DeEmphasisTest, AProgressLineMovesTheBar)
{
    const auto task = make();
    task->processTaskOutput(u"In:0.52% 00:00:01 [00:03:11] Out:44.1k\r"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 0.52);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Applying de-emphasis: 0.520000%"_s);
    task->finalCleanup();
    EXPECT_EQ(results->results(), u"\n\n\n"_s); // what moves the bar is not kept
}

TEST_F(DeEmphasisTest, OtherTextIsKept)
{
    const auto task = make();
    task->processTaskOutput(u"\nInput File: 'a.wav' 12%\n"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 0.0);
    task->finalCleanup();
    EXPECT_EQ(results->results(), u"Input File: 'a.wav' 12%\n\n\n"_s);
}

TEST_F(DeEmphasisTest, AHundredPercentTellsDoneEachTime)
{
    const auto task = make();
    task->processTaskOutput(u"In:100%  00:03:11"_s);
    task->processTaskOutput(u"In:100%  00:03:11"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 100.0);
    task->processTaskOutput(u"Done."_s); // itself kept, but not told as done
    task->finalCleanup();
    EXPECT_EQ(results->results(), u"/in/a.wav  - Done/in/a.wav  - DoneDone.\n\n\n"_s);
}

TEST_F(DeEmphasisTest, APieceWithoutTextIsAFaultThatGoesNoFurtherThanTheEventLoop)
{
    const auto task = make();
    EXPECT_THROW(task->processTaskOutput(u" \n"_s), RangeException);
    EXPECT_NO_THROW(task->processTaskOutput(std::nullopt));
}

TEST_F(DeEmphasisTest, RecordedTextComesThroughWhereverItIsCut)
{
    everyCut("\nInput File     : 'a.wav'\n\nIn:50.0% 00:00:01.00 [00:00:01.00] Out:44.1k\rIn:100% 00:00:02 Done.\n",
             [this](const QList<QByteArray>& pieces) {
                 const auto task = make();
                 for (const QByteArray& piece : pieces) {
                     try {
                         task->processTaskOutput(QString::fromUtf8(piece));
                     } catch (const RangeException&) {
                     }
                 }
                 task->finalCleanup();
                 EXPECT_GE(task->progressIndicator()->doubleValue(), 0.0);
                 EXPECT_LE(task->progressIndicator()->doubleValue(), 100.0);
             });
}

TEST_F(DeEmphasisTest, OneTaskAFileInOneReportAtOneFolder)
{
    tools_.install(u"sox"_s, {u"out"_s, u"In:100%"_s});
    choose(UtilTab::deEmphasis);
    tab.addFiles({u"/one/b.WAV"_s, u"/two/a.aiff"_s, u"/two/c.flac"_s});
    panels_.answerOpenPanel(QStringList{folder()});
    queue().setHeld(true);
    tab.executeCommand(nullptr);
    const auto tasks = queued<DeEmphasisTask>();
    ASSERT_EQ(tasks.size(), 2U);
    EXPECT_EQ(tasks[0]->arguments(), QStringList({u"-S"_s, u"/one/b.WAV"_s, pathOf(u"b-deemph.WAV"_s), u"deemph"_s}));
    EXPECT_EQ(tasks[1]->arguments(), QStringList({u"-S"_s, u"/two/a.aiff"_s, pathOf(u"a-deemph.aiff"_s), u"deemph"_s}));
    EXPECT_EQ(tasks[0]->results(), tasks[1]->results());
    queue().setHeld(false);
    runQueue();
    ASSERT_EQ(queue().outputWindows().size(), 1U);
    const QString text = queue().outputWindows().front()->textField()->string();
    EXPECT_TRUE(text.contains(u"/one/b.WAV  - Done") && text.contains(u"/two/a.aiff  - Done")) << text.toStdString();
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(DeEmphasisTest, SaysSoWhereNothingCanBeDone)
{
    choose(UtilTab::deEmphasis);
    tab.addFiles({u"/a.flac"_s});
    panels_.answerOpenPanel(std::nullopt);
    tab.executeCommand(nullptr);
    EXPECT_EQ(tab.fileNames().count(), 1);
    panels_.answerOpenPanel(QStringList{folder()});
    panels_.answerAlert(1);
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.alerts()[0].title, u"Error"_s);
    EXPECT_EQ(panels_.alerts()[0].message, u"No Wav/Aiff files in file list"_s);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(DeEmphasisTest, GivesWhatTheToolGivesByHand)
{
    tools_.installReal(u"sox"_s, u"/usr/bin/sox"_s);
    writeFile(pathOf(u"a.wav"_s), waveFile(makeSamples(44100, 2, 16, 44100)));
    int status = -1;
    run(u"sox"_s, {u"-R"_s, pathOf(u"a.wav"_s), pathOf(u"hand.wav"_s), u"deemph"_s}, &status);
    ASSERT_EQ(status, 0);
    choose(UtilTab::deEmphasis);
    tab.setDestination(folder());
    tab.addFiles({pathOf(u"a.wav"_s)});
    tab.executeCommand(nullptr);
    runQueue();
    EXPECT_EQ(fileBytes(pathOf(u"a-deemph.wav"_s)).size(), fileBytes(pathOf(u"hand.wav"_s)).size());
    EXPECT_FALSE(fileBytes(pathOf(u"a-deemph.wav"_s)).isEmpty());
}

#include "util/DVDAuthorTask.h"

#include "UtilFixture.h"

#include "engine/ZOLTTaskResults.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EveryCut.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class DVDAuthorTest : public UtilTest
{
protected:
    ~DVDAuthorTest() override { waitForDetachedThreads(); }

    std::shared_ptr<DVDAuthorTask> make(int files = 10)
    {
        QStringList names;
        for (int number = 0; number < files; ++number)
            names += QStringLiteral("/in/%1.wav").arg(number);
        return made(DVDAuthorTask::initTaskWithQueueFileNamesOutputPath(&queue(), names, folder()));
    }
    void runTask(const std::shared_ptr<DVDAuthorTask>& task)
    {
        queue().addTask(task);
        runQueue();
        waitForDetachedThreads();
        runPosted();
    }
};

} // namespace

TEST_F(DVDAuthorTest, TheMarkerTellsFileAndProgress)
{
    const auto task = make();
    task->processDVDATaskOutput(u"\b\b[Zolt]  Processing 2::/in/third song.wav"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Processing: third song.wav"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 30);
}

TEST_F(DVDAuthorTest, TwoDigitsLeaveAColonThatNobodySees)
{
    const auto task = make(20);
    task->processDVDATaskOutput(u"[Zolt]  Processing 11::/in/k.wav"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Processing: k.wav"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 60);
}

TEST_F(DVDAuthorTest, OtherTextChangesNothing)
{
    const auto task = make();
    LogCapture log;
    task->processDVDATaskOutput(u"Writing AUDIO_TS.IFO :: 5"_s);
    task->processDVDATaskOutput(std::nullopt);
    EXPECT_EQ(task->topTextField()->stringValue(), make()->topTextField()->stringValue());
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 0);
    EXPECT_EQ(log.count(u"Writing AUDIO_TS.IFO :: 5"_s), 1);
}

TEST_F(DVDAuthorTest, TextAheadOfTheMarkerCutsAtTheWrongPlace)
{
    const auto task = make();
    task->processDVDATaskOutput(u"xx[Zolt]  Processing 2::/in/c.wav"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 10); // no number there: 0
}

TEST_F(DVDAuthorTest, TheImageTellsItsPercentage)
{
    const auto task = make();
    task->processImageTaskOutput(u" 45.12% done, estimate finish Sat"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 45.12);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Making .ISO Image: 45.120000%"_s);
    task->processImageTaskOutput(u"Total translation table size: 0"_s);
    task->processImageTaskOutput(u"12% of the path table"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 45.12);
}

TEST_F(DVDAuthorTest, ImageTextIsReadWhereverItIsCut)
{
    everyCut(" 45.12% done, estimate finish\n 90.20% done, estimate", [this](const QList<QByteArray>& pieces) {
        const auto task = make();
        for (const QByteArray& piece : pieces)
            task->processImageTaskOutput(QString::fromUtf8(piece));
        EXPECT_LE(task->progressIndicator()->doubleValue(), 100.0);
    });
}

TEST_F(DVDAuthorTest, TheAuthoringToolsTextIsReadWhereverItIsCut)
{
    const LogCapture log;
    everyCut("[Zolt]  Processing 0::/in/0.wav\n[Zolt]  Processing 1::/in/1.wav\n",
             [this](const QList<QByteArray>& pieces) {
                 const auto task = make(2);
                 for (const QByteArray& piece : pieces)
                     EXPECT_NO_THROW(task->processDVDATaskOutput(QString::fromUtf8(piece)));
                 EXPECT_LE(task->progressIndicator()->doubleValue(), 100.0);
             });
}

TEST_F(DVDAuthorTest, TextThatEndsWithinAMarkerDoesNotKeepTheImageFromBeingMade)
{
    tools_.install(u"dvda"_s, {u"out"_s, u"[Zolt]  Processing "_s});
    tools_.install(u"mkisofs"_s);
    const auto task = make(2);
    runTask(task);
    EXPECT_FALSE(task->error());
    EXPECT_EQ(tools_.calls(u"mkisofs"_s).size(), 1);
}

TEST_F(DVDAuthorTest, TheImageIsASecondStage)
{
    EXPECT_EQ(make()->stageCount(), 2);
}

TEST_F(DVDAuthorTest, RunsTheTwoToolsOneAfterTheOtherAndTakesTheTreeAway)
{
    tools_.install(u"dvda"_s, {u"out"_s, u"[Zolt]  Processing 0::/in/0.wav"_s});
    tools_.install(u"mkisofs"_s, {u"out"_s, u" 99.00% done,"_s});
    file(u"DVD-AUDIO/AUDIO_TS/ATS.IFO"_s, "tree");
    const auto task = make(2);
    const auto results = task->results();
    ASSERT_TRUE(results);
    runTask(task);
    EXPECT_EQ(task->results(), nullptr);
    EXPECT_FALSE(results->taskSetDone()) << "they went ahead of the row, so that nothing follows";
    EXPECT_EQ(tools_.calls(u"dvda"_s),
              QList<QStringList>{QStringList({u"-l"_s, pathOf(u"log.txt"_s), u"-P0"_s, u"-S"_s, u"-f"_s, u"-o"_s,
                                              pathOf(u"DVD-AUDIO"_s), u"-g"_s, u"/in/0.wav"_s, u"/in/1.wav"_s})});
    EXPECT_EQ(tools_.calls(u"mkisofs"_s), QList<QStringList>{QStringList({u"-o"_s, pathOf(u"image.iso"_s),
                                                                          u"-dvd-audio"_s, pathOf(u"DVD-AUDIO"_s)})});
    EXPECT_FALSE(exists(u"DVD-AUDIO"_s));
    EXPECT_FALSE(task->error());
    EXPECT_TRUE(queue().outputWindows().empty());
    EXPECT_EQ(task->textField()->stringValue(), u"Making .ISO Image"_s);
}

TEST_F(DVDAuthorTest, AToolThatFailsIsNotNoticedAndTheImageIsTriedAllTheSame)
{
    tools_.install(u"dvda"_s, {u"exit"_s, u"1"_s});
    tools_.install(u"mkisofs"_s, {u"exit"_s, u"1"_s});
    const auto task = make();
    runTask(task);
    EXPECT_FALSE(task->error());
    EXPECT_EQ(tools_.calls(u"mkisofs"_s).size(), 1);
}

TEST_F(DVDAuthorTest, AToolThatCannotBeStartedIsAnErrorAndKeepsTheTree)
{
    tools_.install(u"dvda"_s);
    file(u"DVD-AUDIO/x"_s);
    const auto task = make();
    runTask(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(u"DVD-AUDIO/x"_s));
}

TEST_F(DVDAuthorTest, ACancelLeavesTheRunningToolAloneAndTheNextStepFollows)
{
    tools_.install(u"dvda"_s, {u"touch"_s, pathOf(u"runs"_s), u"wait-file"_s, pathOf(u"go"_s)});
    tools_.install(u"mkisofs"_s);
    const auto task = make();
    queue().addTask(task);
    ASSERT_TRUE(runUntil([this] { return exists(u"runs"_s); }));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Authoring AUDIO_TS directory"_s);
    task->cancelTask(nullptr);
    EXPECT_TRUE(task->isDone());
    file(u"go"_s);
    waitForDetachedThreads();
    runPosted();
    EXPECT_EQ(tools_.calls(u"mkisofs"_s).size(), 1);
}

TEST_F(DVDAuthorTest, ProgressIsAWholeNumberAndNoFileIsNoFault)
{
    const auto task = make(3);
    task->processDVDATaskOutput(u"[Zolt]  Processing 0::song.wav"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 33);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Processing: song.wav"_s);
    const auto empty = make(0);
    empty->processDVDATaskOutput(u"[Zolt]  Processing 0::song.wav"_s);
    EXPECT_DOUBLE_EQ(empty->progressIndicator()->doubleValue(), 0);
}

TEST_F(DVDAuthorTest, ATaskThatHasFailedKeepsTheTree)
{
    tools_.install(u"dvda"_s);
    tools_.install(u"mkisofs"_s);
    file(u"DVD-AUDIO/x"_s);
    const auto task = make();
    task->setError(true);
    runTask(task);
    EXPECT_EQ(tools_.calls(u"mkisofs"_s).size(), 1);
    EXPECT_TRUE(exists(u"DVD-AUDIO/x"_s));
}

#include "util/DeEmphasisTask.h"

#include "UtilFixture.h"

#include "engine/RunRecord.h"
#include "engine/ZOLTTaskResults.h"
#include "platform/audio/AudioSamples.h"
#include "platform/errors/Exceptions.h"
#include "support/EveryCut.h"
#include "support/Programs.h"

#include <QtEndian>

#include <cmath>

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
        const auto task = made(DeEmphasisTask::initAsyncTaskWithQueueLaunchPathArgumentsWithResults(
            &queue(), u"/tools/sox"_s, {u"-S"_s, source, u"/out/a-deemph.wav"_s, u"deemph"_s}, results));
        results->addTaskInSet(task);
        return task;
    }
    /// The samples of a file of 16 bits with the plain header.
    static std::vector<int> soundOf(const QString& path)
    {
        constexpr qsizetype header = 44;
        const QByteArray bytes = fileBytes(path);
        std::vector<int> samples;
        for (qsizetype at = header; at + 1 < bytes.size(); at += 2)
            samples.push_back(qFromLittleEndian<qint16>(bytes.constData() + at));
        return samples;
    }

    // Tones of one loudness as an old disc holds them: the higher the louder, by time constants of 50 and 15 us.
    static constexpr std::array<double, 8> steps{48,   400,  1000,  2504,
                                                 5000, 8000, 12000, 18000}; // hertz, whole periods within a step
    static constexpr std::size_t framesOfStep = 11025;
    static constexpr double amplitude = 2000;

    static double gainOf(double hertz)
    {
        const double w = 2 * M_PI * hertz;
        return std::sqrt((1 + std::pow(w * 50e-6, 2)) / (1 + std::pow(w * 15e-6, 2)));
    }
    static Samples emphasizedSteps()
    {
        Samples made = makeSamples(44100, 2, 16, int(framesOfStep * steps.size()));
        made.little.clear();
        for (const double hertz : steps) {
            for (std::size_t frame = 0; frame < framesOfStep; ++frame) {
                const double value = amplitude * gainOf(hertz) * std::sin(2 * M_PI * hertz * double(frame) / 44100);
                const QByteArray sample = littleEndian(uint16_t(int16_t(std::lround(value))), 2);
                made.little += sample + sample;
            }
        }
        return made;
    }
    /// Of the middle of a step, where the change of tone has rung out.
    static double amplitudeOf(const std::vector<int>& sound, std::size_t step)
    {
        double power = 0;
        const std::size_t first = 2 * (step * framesOfStep + framesOfStep / 4), count = framesOfStep;
        for (std::size_t at = first; at < first + count; ++at)
            power += double(sound[at]) * sound[at];
        return std::sqrt(2 * power / double(count));
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
    const auto mine = soundOf(pathOf(u"a-deemph.wav"_s)), hand = soundOf(pathOf(u"hand.wav"_s));
    ASSERT_EQ(mine.size(), hand.size());
    ASSERT_EQ(mine.size(), 2U * 44100);
    int most = 0;
    for (std::size_t at = 0; at < mine.size(); ++at)
        most = std::max(most, std::abs(mine[at] - hand[at]));
    EXPECT_LE(most, 3) << "the tool adds noise of the last bit to each of its runs";
}

TEST_F(DeEmphasisTest, APreEmphasizedSweepComesOutFlat)
{
    tools_.installReal(u"sox"_s, u"/usr/bin/sox"_s);
    writeFile(pathOf(u"sweep.wav"_s), waveFile(emphasizedSteps()));
    choose(UtilTab::deEmphasis);
    tab.setDestination(folder());
    tab.addFiles({pathOf(u"sweep.wav"_s)});
    tab.executeCommand(nullptr);
    runQueue();
    const auto sound = soundOf(pathOf(u"sweep-deemph.wav"_s));
    ASSERT_EQ(sound.size(), 2 * steps.size() * framesOfStep);
    for (std::size_t step = 0; step < steps.size(); ++step)
        EXPECT_NEAR(20 * std::log10(amplitudeOf(sound, step) / amplitude), 0.0, 0.1) << steps[step] << " Hz";
}

TEST_F(DeEmphasisTest, TwoFilesOfOneNameHaveOneOutput)
{
    holdQueue();
    choose(UtilTab::deEmphasis);
    tab.setDestination(folder());
    tab.addFiles({u"/one/a.wav"_s, u"/two/a.wav"_s});
    tab.executeCommand(nullptr);
    const auto tasks = queued<DeEmphasisTask>();
    ASSERT_EQ(tasks.size(), 2U);
    for (const auto& task : tasks)
        EXPECT_EQ(task->arguments()[2], pathOf(u"a-deemph.wav"_s));
}

TEST_F(DeEmphasisTest, AnOutputThatIsShorterThanItsSourceIsTheReportsCause)
{
    const QByteArray whole = waveFile(makeSamples(44100, 2, 16, 1000));
    writeFile(pathOf(u"part"_s), whole.first(whole.size() / 2));
    writeFile(pathOf(u"whole"_s), whole);
    writeFile(pathOf(u"a.wav"_s), whole);
    RunRecord record(queue());
    const auto verdictWith = [&](const QStringList& script) {
        tools_.install(u"sox"_s, script);
        tab.setDestination(folder());
        tab.addFiles({pathOf(u"a.wav"_s)});
        tab.executeCommand(nullptr);
        runQueue();
        EXPECT_TRUE(runUntil([&] { return !record.isRunning(); }));
        const RunRow& row = record.current()->rows.front();
        EXPECT_EQ(row.outcome, Outcome::Complete) << "the row ends as the tool says";
        return row.verdict;
    };
    choose(UtilTab::deEmphasis);
    const ReportVerdict good = verdictWith({u"copy"_s, pathOf(u"whole"_s), u"$3"_s});
    EXPECT_FALSE(good.failed());
    EXPECT_EQ(good.cause, QString());
    const ReportVerdict cut = verdictWith({u"copy"_s, pathOf(u"part"_s), u"$3"_s});
    EXPECT_TRUE(cut.failed());
    EXPECT_EQ(cut.cause,
              u"a-deemph.wav is shorter than its source: there may be no room on the disk, or the tool was ended"_s);
    QFile::remove(pathOf(u"a-deemph.wav"_s));
    EXPECT_EQ(verdictWith({u"out"_s, u"sox FAIL"_s}).cause, u"a-deemph.wav was not written, or holds no sound"_s);
}

TEST_F(DeEmphasisTest, AnOutputThatCannotBeWrittenIsNoSuccess)
{
    tools_.installReal(u"sox"_s, u"/usr/bin/sox"_s);
    writeFile(pathOf(u"a.wav"_s), waveFile(makeSamples(44100, 2, 16, 44100)));
    ASSERT_TRUE(QDir(folder()).mkdir(u"a-deemph.wav"_s)); // nothing can be written there
    RunRecord record(queue());
    choose(UtilTab::deEmphasis);
    tab.setDestination(folder());
    tab.addFiles({pathOf(u"a.wav"_s)});
    tab.executeCommand(nullptr);
    runQueue();
    ASSERT_TRUE(runUntil([&] { return !record.isRunning(); }));
    EXPECT_TRUE(record.current()->rows.front().failed());
}

TEST_F(DeEmphasisTest, AProgressLineWithoutAPercentageIsPassedOver)
{
    const LogCapture log;
    const auto task = make();
    task->processTaskOutput(u"In:0.00"_s);
    EXPECT_EQ(log.count(u"Error in deemph"_s), 0);
    task->finalCleanup();
    EXPECT_EQ(results->results(), u"\n\n\n"_s);
}

TEST_F(DeEmphasisTest, NothingIsSaidOfTheOutputAfterACancelOrWhereTheSourceTellsNothing)
{
    writeFile(pathOf(u"a.wav"_s), waveFile(makeSamples(44100, 2, 16, 100)));
    const auto cancelled = make(pathOf(u"a.wav"_s)); // its output is not there
    cancelled->setCancelled(true);
    cancelled->finalCleanup();
    EXPECT_TRUE(results->notes().faults.isEmpty());
    make(file(u"b.wav"_s, "no audio"))->finalCleanup();
    EXPECT_TRUE(results->notes().faults.isEmpty());
    make(pathOf(u"a.wav"_s))->finalCleanup();
    EXPECT_EQ(results->notes().faults, QStringList{u"a-deemph.wav was not written, or holds no sound"_s});
}

#include "decode/DecodeALACTask.h"
#include "AudioSamples.h"
#include "encode/EncodeCoreAudioSync.h"
#include "support/HeldControl.h"
#include "support/TaskRun.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AppleLosslessTask : public TaskRun
{
protected:
    std::shared_ptr<DecodeALACTask> make(const QString& format)
    {
        return DecodeALACTask::initDecodeTaskWithQueueFileNameOutputPathFormat(&queue_, path(u"a.m4a"_s), folder(),
                                                                               format);
    }
    void makeSource()
    {
        samples_ = makeSamples(44100, 2, 16, 5000);
        const QString wav = writeFile(elsewhere_.filePath(u"a.wav"_s), waveFile(samples_));
        test::runTool(u"ffmpeg"_s,
                      {u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, wav, u"-c:a"_s, u"alac"_s, path(u"a.m4a"_s)});
    }

    Samples samples_;
};

} // namespace

TEST_F(AppleLosslessTask, WritesTheFormatThatItsExtensionNames)
{
    makeSource();
    const auto task = make(u"WAV"_s);
    const auto set = task->results();
    run(task);
    EXPECT_FALSE(task->error());
    EXPECT_FALSE(set->taskSetDone()) << "kept: the results are gone by then";
    EXPECT_TRUE(fileBytes(path(u"a.wav"_s)).startsWith("RIFF"));
    EXPECT_TRUE(decodedByFfmpeg(path(u"a.wav"_s), 16) == samples_.little);
    run(make(u"AIFF"_s));
    EXPECT_TRUE(fileBytes(path(u"a.aiff"_s)).startsWith("FORM"));
    EXPECT_TRUE(decodedByFfmpeg(path(u"a.aiff"_s), 16) == samples_.little);
    run(make(u"Wav"_s));
    EXPECT_TRUE(fileBytes(path(u"a.wav"_s)).startsWith("RIFF")) << "whatever its letters";
    run(make(u"OTHER"_s));
    EXPECT_TRUE(fileBytes(path(u"a.other"_s)).startsWith("FORM"));
    EXPECT_TRUE(queue_.outputWindows().empty());
    EXPECT_TRUE(exists(u"a.m4a"_s));
}

TEST_F(AppleLosslessTask, DeletesTheSourceAfterSuccessAlone)
{
    makeSource();
    const auto good = make(u"WAV"_s);
    good->setDeleteOriginal(true);
    run(good);
    EXPECT_FALSE(exists(u"a.m4a"_s));
    const LogCapture log;
    file(u"a.m4a"_s, "no audio");
    const auto bad = make(u"WAV"_s);
    bad->setDeleteOriginal(true);
    run(bad);
    EXPECT_TRUE(bad->error());
    EXPECT_TRUE(exists(u"a.m4a"_s));
    EXPECT_TRUE(onlyReport().startsWith(u"Error encoding "_s));
}

TEST_F(AppleLosslessTask, CancelShowsAtOnceAndKeepsTheSource)
{
    const LogCapture log;
    makeSource();
    const auto task = make(u"WAV"_s);
    task->setDeleteOriginal(true);
    HeldControl<ProgressIndicator> bar;
    task->setProgressIndicator(bar.model());
    bar.hold(); // the thread gets as far as to begin the decoding
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Decoding from Apple Lossless"_s; }));
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    bar.letGo();
    settle();
    EXPECT_EQ(statedLength(path(u"a.wav"_s)), 0);
    EXPECT_TRUE(exists(u"a.m4a"_s));
    EXPECT_FALSE(task->error());
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted"_s), 1);
}

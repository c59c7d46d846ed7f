#include "encode/EncodeALACTask.h"
#include "AudioSamples.h"
#include "support/Programs.h"
#include "support/TaskRun.h"
#include "tags/AACTagsHelper.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AppleLosslessTarget : public TaskRun
{
protected:
    AppleLosslessTarget() { tools_.install(u"AtomicParsley"_s); }

    std::shared_ptr<EncodeALACTask> make(const QString& file)
    {
        return EncodeALACTask::initEncodeTaskWithQueueFileNameOutputPath(&queue_, file, folder());
    }
    QString wave(const QString& name, int frames = 5000, uint32_t bits = 16) const
    {
        return writeFile(path(name), waveFile(makeSamples(44100, 2, bits, frames)));
    }
    /// A decoder that "decodes" into its argument of that number.
    void installDecoder(const QString& tool, int target, const QStringList& before = {}, const QString& status = u"0"_s)
    {
        const QString wav = writeFile(elsewhere_.filePath(u"decoded.wav"_s), waveFile(makeSamples(44100, 2, 16, 5000)));
        tools_.install(tool, before + QStringList{u"copy"_s, wav, u"${%1}"_s.arg(target), u"exit"_s, status});
    }
    const LogCapture log_;
};

} // namespace

TEST_F(AppleLosslessTarget, WavIsEncodedInProcessAndGetsTheToolStringAndTheGaplessPass)
{
    const auto task = run(make(wave(u"a.wav"_s)));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(decodedByFfmpeg(path(u"a.m4a"_s), 16), makeSamples(44100, 2, 16, 5000).little);
    const QByteArray tags =
        test::run(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags"_s, path(u"a.m4a"_s)});
    EXPECT_TRUE(tags.contains("TAG:encoder=Zolt")) << tags.toStdString();
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).size(), 1);
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).at(0).at(0), path(u"a.m4a"_s));
    EXPECT_EQ(task->stage(), 1);
    EXPECT_EQ(task->stageCount(), 1);
    EXPECT_EQ(othersThan({u"a.wav"_s, u"a.m4a"_s}), QStringList());
}

TEST_F(AppleLosslessTarget, ShortenIsDecodedByShntoolFirst)
{
    installDecoder(u"shntool"_s, 9, {u"out"_s, u"Converting [a.shn] (0:01.00) --> [x] :  42% "_s});
    const auto task = run(make(file(u"a.shn"_s)));
    const QStringList call = tools_.calls(u"shntool"_s).at(0);
    EXPECT_EQ(call, QStringList({u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"always"_s, u"-o"_s, u"wav"_s, u"-n"_s,
                                 call.at(8), path(u"a.shn"_s)}));
    EXPECT_EQ(path::deletingLastComponent(call.at(8)), folder());
    EXPECT_EQ(othersThan({u"a.shn"_s, u"a.m4a"_s}), QStringList());
    EXPECT_EQ(decodedByFfmpeg(path(u"a.m4a"_s), 16), makeSamples(44100, 2, 16, 5000).little);
    EXPECT_EQ(task->stage(), 2);
    EXPECT_EQ(task->stageCount(), 2);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(AppleLosslessTarget, FlacIsDecodedByFlacFirst)
{
    installDecoder(u"flac"_s, 4);
    run(make(file(u"a.flac"_s)));
    const QStringList call = tools_.calls(u"flac"_s).at(0);
    EXPECT_EQ(call, QStringList({u"-d"_s, path(u"a.flac"_s), u"-o"_s, call.at(3), u"-f"_s}));
    EXPECT_TRUE(exists(u"a.m4a"_s));
    EXPECT_EQ(othersThan({u"a.flac"_s, u"a.m4a"_s}), QStringList());
}

TEST_F(AppleLosslessTarget, MonkeysAudioIsDecodedByMacFirst)
{
    installDecoder(u"mac"_s, 2);
    run(make(file(u"a.ape"_s)));
    const QStringList call = tools_.calls(u"mac"_s).at(0);
    EXPECT_EQ(call, QStringList({path(u"a.ape"_s), call.at(1), u"-d"_s}));
    EXPECT_TRUE(exists(u"a.m4a"_s));
}

TEST_F(AppleLosslessTarget, EachDecodingShowsItsStatusesAndItsProgress)
{
    struct Case
    {
        QString tool, source, first, piece, shown, name;
    };
    for (const auto& [tool, source, first, piece, shown, name] :
         {Case{u"shntool"_s, u"a.shn"_s, u"Decoding SHN to Wav"_s, u"\b 42% "_s, u"Encoding to WAV: 42.000000%"_s, {}},
          Case{u"flac"_s, u"a.flac"_s, u"Decoding FLAC to Wav"_s, u"a.flac: 42% complete"_s, u"Decoding to Wav: 42%"_s,
               u"a.flac"_s},
          Case{u"mac"_s, u"a.ape"_s, u"Decoding APE to Wav"_s, u"Progress: 42% (7 seconds remaining, "_s,
               u"Decoding from Monkey's Audio: 42%   7 seconds remaining"_s, u"a.ape"_s}}) {
        const QString go = path(u"go"_s), on = path(u"on"_s);
        tools_.install(tool, {u"wait-file"_s, go, u"out"_s, piece, u"wait-file"_s, on});
        const auto task = make(file(source));
        queue_.addTask(task);
        ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == first; }));
        touch(go);
        ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == shown; }));
        EXPECT_EQ(task->progressIndicator()->doubleValue(), 42);
        touch(on);
        settle();
        QFile::remove(go);
        QFile::remove(on);
    }
}

TEST_F(AppleLosslessTarget, DecodersStatusIsNotReadOnlyWhatItLeft)
{
    installDecoder(u"flac"_s, 4, {}, u"1"_s);
    const auto task = run(make(file(u"a.flac"_s)));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_TRUE(exists(u"a.m4a"_s));
}

TEST_F(AppleLosslessTarget, DecoderThatLeavesNothingFailsInTheEncoding)
{
    tools_.install(u"flac"_s, {u"exit"_s, u"1"_s});
    const auto task = make(file(u"a.flac"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_TRUE(onlyReport().startsWith(u"Error encoding "_s));
    EXPECT_EQ(othersThan({u"a.flac"_s}), QStringList()) << "the temporary file goes";
    EXPECT_TRUE(tools_.calls(u"AtomicParsley"_s).isEmpty()) << "no tags, no gapless pass";
}

TEST_F(AppleLosslessTarget, TextOfMacFailsTheTask)
{
    installDecoder(u"mac"_s, 2, {u"out"_s, u"Error: 1000"_s});
    EXPECT_TRUE(run(make(file(u"a.ape"_s)))->error());
    EXPECT_TRUE(tools_.calls(u"AtomicParsley"_s).isEmpty());
}

TEST_F(AppleLosslessTarget, WavpackAndTrueAudioGoStraightToTheServiceWhichDeclines)
{
    for (const QString& name : {u"a.wv"_s, u"a.tta"_s}) {
        const auto task = run(make(file(name)));
        EXPECT_TRUE(task->error());
        EXPECT_TRUE(queue_.outputWindows().back()->textField()->string().startsWith(
            u"Error encoding %1 to Apple Lossless:\n"_s.arg(path(name))));
    }
    EXPECT_FALSE(exists(u"a.m4a"_s));
}

TEST_F(AppleLosslessTarget, OverItsOwnSourceFailsAndLosesNothing)
{
    run(make(wave(u"a.wav"_s)));
    const QByteArray before = fileBytes(path(u"a.m4a"_s));
    const auto task = make(path(u"a.m4a"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_EQ(fileBytes(path(u"a.m4a"_s)), before);
}

TEST_F(AppleLosslessTarget, CancelDuringADecodingLeavesTheTemporaryFileAndSkipsNothingButTheDeletion)
{
    installDecoder(u"flac"_s, 4, {u"wait-file"_s, path(u"go"_s)});
    const auto task = make(file(u"a.flac"_s));
    task->setDeleteOriginal(true);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Decoding FLAC to Wav"_s; }));
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s) << "at once";
    touch(path(u"go"_s));
    settle();
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_EQ(othersThan({u"a.flac"_s, u"go"_s, u"a.m4a"_s}).size(), 1) << "the temporary WAV";
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(AppleLosslessTarget, DeletesItsSourceAfterSuccess)
{
    const auto task = make(wave(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_TRUE(exists(u"a.m4a"_s));
}

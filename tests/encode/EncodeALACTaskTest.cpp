#include "encode/EncodeALACTask.h"
#include "M4aTargetRun.h"
#include "encode/CoreAudioHelper.h"
#include "platform/audio/AudioFileReader.h"
#include "support/TrashIn.h"
#include "tags/AACTagsHelper.h"
#include "tags/TagFiles.h"
#include "tags/TagLibTagsHelper.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AppleLosslessTarget : public M4aTargetRun
{
protected:
    std::shared_ptr<EncodeALACTask> make(const QString& file)
    {
        return EncodeALACTask::initEncodeTaskWithQueueFileNameOutputPath(&queue_, file, folder());
    }
    /// For where a task is made of each of several sources.
    auto maker()
    {
        return [this](const QString& file) { return make(file); };
    }
    QByteArray samplesOf(const QString& name) const { return decodedByFfmpeg(path(name), 16); }
};

} // namespace

TEST_F(AppleLosslessTarget, WavIsEncodedInProcessAndGetsTheToolStringAndTheGaplessPass)
{
    const auto task = run(make(wave(u"a.wav"_s)));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(samplesOf(u"a.m4a"_s), decoded_.little);
    EXPECT_TRUE(tagsOf(u"a.m4a"_s).contains("TAG:encoder=Zolt")) << tagsOf(u"a.m4a"_s).toStdString();
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).size(), 1);
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).at(0).at(0), path(u"a.m4a"_s));
    EXPECT_EQ(task->stage(), 1);
    EXPECT_EQ(task->stageCount(), 1);
    EXPECT_EQ(othersThan({u"a.wav"_s, u"a.m4a"_s}), QStringList());
}

TEST_F(AppleLosslessTarget, DepthOfTheSourceIsTheFlagOfTheOutput)
{
    for (const auto& [bits, flags] : {std::pair{16U, 1U}, std::pair{24U, 3U}}) {
        run(make(wave(u"a.wav"_s, 44100, bits)));
        std::unique_ptr<AudioFileReader> reader;
        ASSERT_EQ(AudioFileReader::open(path(u"a.m4a"_s), reader), 0);
        AudioFormat format;
        ASSERT_EQ(reader->dataFormat(format), 0);
        EXPECT_EQ(format.formatFlags, flags);
        EXPECT_EQ(CoreAudioHelper::getFormatInfo(path(u"a.m4a"_s))->bitsPerChannel(), int32_t(bits));
    }
}

TEST_F(AppleLosslessTarget, OtherSourcesThanFlacLeaveTheToolStringAlone)
{
    TagsObject title;
    title.setTitleText(u"Späti"_s);
    writeFile(path(u"a.aiff"_s), aiffFile(makeSamples(44100, 2, 16, 5000)));
    TagLibTagsHelper().writeTagsForAIFFFileTagObject(path(u"a.aiff"_s), title);
    TagFiles samples;
    QFile::copy(samples.ape(), path(u"b.ape"_s));
    TagLibTagsHelper().writeTagsForAPEFileTagObjectWriteEmptyTags(path(u"b.ape"_s), title, false);
    installDecoder(u"mac"_s, 2);
    for (const QString& name : {u"a.aiff"_s, u"b.ape"_s}) {
        run(make(path(name)));
        const QByteArray tags = tagsOf(path::deletingExtension(name) + u".m4a"_s);
        EXPECT_TRUE(tags.contains("TAG:encoder=Zolt")) << tags.toStdString();
        EXPECT_FALSE(tags.contains("TAG:title"));
    }
}

TEST_F(AppleLosslessTarget, ShortenIsDecodedByShntoolFirst)
{
    expectShntoolToDecodeFirst(make(file(u"a.shn"_s)));
    EXPECT_EQ(samplesOf(u"a.m4a"_s), decoded_.little);
}

TEST_F(AppleLosslessTarget, FlacIsDecodedByFlacFirst)
{
    expectFlacToDecodeFirst(make(file(u"a.flac"_s)));
    EXPECT_EQ(samplesOf(u"a.m4a"_s), decoded_.little);
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
    expectToBeShown(
        {{u"shntool"_s, u"a.shn"_s, u"Decoding SHN to Wav"_s, u"\b 42% "_s, u"Encoding to WAV: 42.000000%"_s},
         {u"flac"_s, u"a.flac"_s, u"Decoding FLAC to Wav"_s, u"a.flac: 42% complete"_s, u"Decoding to Wav: 42%"_s},
         {u"mac"_s, u"a.ape"_s, u"Decoding APE to Wav"_s, u"Progress: 42% (7 seconds remaining, "_s,
          u"Decoding from Monkey's Audio: 42%   7 seconds remaining"_s}},
        maker());
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

TEST_F(AppleLosslessTarget, DecoderThatIsNotThereOrTalksNonsenseLeavesNoTemporaryFile)
{
    for (const auto& [source, tool] :
         {std::pair{u"a.shn"_s, u"shntool"_s}, {u"a.flac"_s, u"flac"_s}, {u"a.ape"_s, u"mac"_s}})
        expectNoTemporaryFileBehind(source, tool, maker());
    installDecoder(u"flac"_s, 4, {u"out"_s, u"42% of nothing"_s});
    expectNoTemporaryFileBehind(u"a.flac"_s, u"beyond bounds"_s, maker());
}

TEST_F(AppleLosslessTarget, TextOfMacFailsTheTask)
{
    installDecoder(u"mac"_s, 2, {u"out"_s, u"Error: 1000"_s});
    EXPECT_TRUE(run(make(file(u"a.ape"_s)))->error());
    EXPECT_TRUE(tools_.calls(u"AtomicParsley"_s).isEmpty());
}

TEST_F(AppleLosslessTarget, WavpackAndTrueAudioGoStraightToTheServiceWhichDeclines)
{
    expectWavpackAndTrueAudioToBeDeclinedByTheService(maker());
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

TEST_F(AppleLosslessTarget, CancelDuringTheEncodingLeavesAShortFileWithTags)
{
    expectCancelToLeaveAShortFile(u"Encoding to Apple Lossless: "_s, maker());
    EXPECT_TRUE(tagsOf(u"a.m4a"_s).contains("TAG:encoder=Zolt"));
}

TEST_F(AppleLosslessTarget, SourceAndTemporaryWavGoWhereTheSettingSays)
{
    const TrashIn trash(elsewhere_.path());
    installDecoder(u"flac"_s, 4);
    TagFiles samples;
    setTagsElsewhere(samples.flac(), {u"title=Späti"_s});
    QFile::copy(samples.flac(), path(u"a.flac"_s));
    const auto task = make(path(u"a.flac"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_EQ(othersThan({u"a.m4a"_s}), QStringList());
    EXPECT_TRUE(trash.holds(u"a.flac"_s));
    const QStringList thrownAway = trash.names();
    EXPECT_TRUE(std::any_of(thrownAway.begin(), thrownAway.end(), [](const QString& name) {
        return name.startsWith(u"Zolt-"_s) && name.endsWith(u".wav"_s);
    })) << thrownAway.join(u' ').toStdString();
    EXPECT_TRUE(tagsOf(u"a.m4a"_s).contains("TAG:title=Späti")) << "read ahead of the deletion";
}

TEST_F(AppleLosslessTarget, DeletesItsSourceAfterSuccess)
{
    const auto task = make(wave(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_TRUE(exists(u"a.m4a"_s));
}

#include "lossy/EncodeAACTask.h"
#include "encode/EncodeCoreAudioSync.h"
#include "encode/M4aTargetRun.h"
#include "lossy/LossyTitles.h"
#include "platform/audio/AudioFormat.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AAC : public M4aTargetRun
{
protected:
    std::shared_ptr<EncodeAACTask> make(const QString& source, const QString& type = lossyTitle::CBR,
                                        int32_t level = 160)
    {
        return EncodeAACTask::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(&queue_, source, type, folder(),
                                                                                 level);
    }
    /// For where a task is made of each of several sources.
    auto maker()
    {
        return [this](const QString& file) { return make(file); };
    }
    QByteArray toolString() const
    {
        return runTool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags=encoder"_s, u"-of"_s,
                                      u"default=nw=1:nk=1"_s, path(u"a.m4a"_s)})
            .trimmed();
    }
    bool hasTag(const char* line) const { return tagsOf(u"a.m4a"_s).contains(line); }
};

} // namespace

TEST_F(AAC, AWavIsEncodedInProcessAndGetsTheToolStringAndTheGaplessPass)
{
    const auto task = make(wave(u"a.wav"_s));
    const auto set = task->results();
    run(task);
    EXPECT_FALSE(set->taskSetDone()) << "kept: the results are gone by then";
    EXPECT_EQ(task->title(), u"a.wav"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(probed(path(u"a.m4a"_s), u"codec_name,sample_rate,channels"_s), "aac,44100,2");
    EXPECT_TRUE(toolString().endsWith("CBR 160kbps")) << toolString().toStdString();
    EXPECT_TRUE(toolString().startsWith("Zolt "));
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).size(), 1);
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).at(0).at(0), path(u"a.m4a"_s));
    EXPECT_EQ(task->stage(), 1);
    EXPECT_EQ(task->stageCount(), 1);
    EXPECT_EQ(othersThan({u"a.wav"_s, u"a.m4a"_s}), QStringList());
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(AAC, EachModeSaysItselfInTheToolString)
{
    const auto textOf = [this](const QString& type, int32_t level) {
        const auto task = make(path(u"a.wav"_s), type, level);
        task->setResults(nullptr); // it never runs
        return task->getEncoderSettingsForTag();
    };
    EXPECT_EQ(textOf(lossyTitle::CBR, 160), u"CBR 160kbps"_s);
    EXPECT_EQ(textOf(lossyTitle::ABR, 96), u"ABR 96kbps"_s);
    EXPECT_EQ(textOf(lossyTitle::VBR_CONSTRAINED, 128), u"VBR Constrained 128kbps"_s);
    EXPECT_EQ(textOf(lossyTitle::VBR, 88), u"True VBR Quality 88"_s);
    EXPECT_EQ(textOf(lossyTitle::VBR, 0), u"True VBR Quality 0"_s);
    EXPECT_EQ(textOf(u"other"_s, 88), std::nullopt);
}

TEST_F(AAC, EachModeHandsItsOwnSettingsToTheEncoder)
{
    struct Handed
    {
        QString type;
        uint32_t mode, bitrate, quality;
    };
    for (const auto& [type, mode, bitrate, quality] : {Handed{lossyTitle::CBR, 0, 96000, 0},
                                                       {lossyTitle::ABR, 1, 96000, 0},
                                                       {lossyTitle::VBR_CONSTRAINED, 2, 96000, 0},
                                                       {lossyTitle::VBR, 3, 0, 96},
                                                       {u"other"_s, 0, 0, 0}}) {
        const auto task = make(path(u"a.wav"_s), type, 96);
        const auto encoder = EncodeCoreAudioSync::initEncodeWithTaskFileNameOutputFileFormatTypeFileType(
            task, task->source(), task->outFile(), formatId::Aac, fileTypeId::M4a);
        task->applySettings(*encoder);
        EXPECT_EQ(encoder->mode(), mode) << type.toStdString();
        EXPECT_EQ(encoder->bitrate(), bitrate) << type.toStdString();
        EXPECT_EQ(encoder->quality(), quality) << type.toStdString();
        task->setResults(nullptr);
    }
}

TEST_F(AAC, TheLevelReachesTheEncoder)
{
    const auto sizeWith = [this](const QString& type, int32_t level) {
        const auto task = run(make(wave(u"a.wav"_s, 44100, 16, 200000), type, level));
        EXPECT_FALSE(task->error()) << type.toStdString();
        return QFile(path(u"a.m4a"_s)).size();
    };
    for (const QString& type : {lossyTitle::CBR, lossyTitle::ABR, lossyTitle::VBR_CONSTRAINED})
        EXPECT_LT(sizeWith(type, 64), sizeWith(type, 256)) << type.toStdString();
    EXPECT_LT(sizeWith(lossyTitle::VBR, 20), sizeWith(lossyTitle::VBR, 120));
    const double kilobits = double(sizeWith(lossyTitle::CBR, 128)) * 8 / 1000 / (200000 / 44100.0);
    EXPECT_GT(kilobits, 120) << "the level is in kilobits a second";
    EXPECT_LT(kilobits, 220) << "noise takes more than is asked for";
}

TEST_F(AAC, QualityZeroLeavesTheEncodersOwn)
{
    run(make(wave(u"a.wav"_s), lossyTitle::VBR, 0));
    const QByteArray zero = decodedByFfmpeg(path(u"a.m4a"_s), 16);
    EXPECT_TRUE(toolString().endsWith("True VBR Quality 0"));
    run(make(wave(u"a.wav"_s), lossyTitle::CBR, 0));
    EXPECT_EQ(decodedByFfmpeg(path(u"a.m4a"_s), 16), zero);
}

TEST_F(AAC, AnUnknownModeWritesNoTags)
{
    run(make(wave(u"a.wav"_s), u"other"_s));
    EXPECT_EQ(toolString(), "");
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).size(), 1) << "but the gapless pass runs";
}

TEST_F(AAC, HighRatesAreHalved)
{
    run(make(wave(u"a.wav"_s, 96000, 24)));
    EXPECT_EQ(probed(path(u"a.m4a"_s), u"sample_rate"_s), "48000");
}

TEST_F(AAC, ShortenIsDecodedByShntoolFirst)
{
    expectShntoolToDecodeFirst(make(file(u"a.shn"_s)));
    EXPECT_TRUE(toolString().endsWith("CBR 160kbps"));
}

TEST_F(AAC, FlacIsDecodedByFlacAndItsTagsGoWithTheSettings)
{
    const QString wav = writeFile(elsewhere_.filePath(u"f.wav"_s), waveFile(decoded_));
    runTool(u"flac"_s,
            {u"-s"_s, u"-T"_s, u"TITLE=Späti"_s, u"-T"_s, u"ARTIST=Привет"_s, u"-o"_s, path(u"a.flac"_s), wav});
    expectFlacToDecodeFirst(make(path(u"a.flac"_s), lossyTitle::VBR, 88));
    EXPECT_TRUE(hasTag("TAG:title=Späti"));
    EXPECT_TRUE(hasTag("TAG:artist=Привет"));
    EXPECT_TRUE(toolString().endsWith("True VBR Quality 88"));
}

TEST_F(AAC, EachStageShowsItsStatus)
{
    expectToBeShown(
        {{u"shntool"_s, u"a.shn"_s, u"Decoding SHN to Wav"_s, u"\b 42% "_s, u"Decoding to WAV: 42.000000%"_s},
         {u"flac"_s, u"a.flac"_s, u"Decoding FLAC to Wav"_s, u"a.flac: 42% complete"_s, u"Decoding to Wav: 42%"_s}},
        maker());
}

TEST_F(AAC, ADecoderThatIsNotThereLeavesNoTemporaryFile)
{
    expectNoTemporaryFileBehind(u"a.shn"_s, u"shntool"_s, maker());
    expectNoTemporaryFileBehind(u"a.flac"_s, u"flac"_s, maker());
}

TEST_F(AAC, ADecodersBadStatusStopsTheDeletionAlone)
{
    installDecoder(u"flac"_s, 4, {}, u"1"_s);
    const auto task = make(file(u"a.flac"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_TRUE(toolString().endsWith("CBR 160kbps"));
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).size(), 1);
    EXPECT_EQ(othersThan({u"a.flac"_s, u"a.m4a"_s}), QStringList());
}

TEST_F(AAC, ShortenThatCannotBeDecodedIsAnErrorWithoutATemporaryFile)
{
    tools_.install(u"shntool"_s, {u"err"_s, u"shntool [conv]: error: no"_s, u"exit"_s, u"1"_s});
    const auto task = make(file(u"a.shn"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
    EXPECT_EQ(othersThan({u"a.shn"_s}), QStringList());
    EXPECT_TRUE(exists(u"a.shn"_s));
}

TEST_F(AAC, ADecoderThatCannotBeStartedLeavesNoTemporaryFile)
{
    for (const QString& name : {u"a.shn"_s, u"b.flac"_s}) {
        const auto task = run(make(file(name)));
        EXPECT_TRUE(task->error());
        EXPECT_EQ(othersThan({u"a.shn"_s, u"b.flac"_s}), QStringList());
    }
}

TEST_F(AAC, ADecodersTextThatCannotBeReadLeavesNoTemporaryFile)
{
    installDecoder(u"flac"_s, 4, {u"out"_s, u"42% of it"_s});
    const auto task = run(make(file(u"a.flac"_s)));
    EXPECT_TRUE(task->error());
    EXPECT_EQ(othersThan({u"a.flac"_s}), QStringList());
}

TEST_F(AAC, TheGaplessPassShowsItsStatus)
{
    tools_.install(u"AtomicParsley"_s, {u"wait-file"_s, path(u"go"_s)});
    const auto task = make(wave(u"a.wav"_s));
    queue_.addTask(task);
    EXPECT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Making Gapless"_s; }));
    touch(path(u"go"_s));
    settle();
}

TEST_F(AAC, AFailedEncodingSkipsTagsAndGaplessPassAndKeepsTheText)
{
    tools_.install(u"flac"_s, {u"exit"_s, u"0"_s}); // leaves the temporary file empty
    const auto task = make(file(u"a.flac"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_TRUE(onlyReport().startsWith(u"Error encoding "_s));
    EXPECT_TRUE(onlyReport().contains(u"to Apple Lossless:\n"_s));
    EXPECT_EQ(othersThan({u"a.flac"_s}), QStringList());
    EXPECT_TRUE(tools_.calls(u"AtomicParsley"_s).isEmpty());
}

TEST_F(AAC, WavpackAndTrueAudioGoStraightToTheServiceWhichDeclines)
{
    expectWavpackAndTrueAudioToBeDeclinedByTheService(maker());
}

TEST_F(AAC, AppleLosslessIsDeclinedAndNeverLost)
{
    const QString wav = wave(u"a.wav"_s);
    runTool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, wav, u"-c:a"_s, u"alac"_s, path(u"a.m4a"_s)});
    const QByteArray before = fileBytes(path(u"a.m4a"_s));
    const auto task = make(path(u"a.m4a"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_EQ(fileBytes(path(u"a.m4a"_s)), before);
    EXPECT_TRUE(tools_.calls(u"AtomicParsley"_s).isEmpty());
}

TEST_F(AAC, ACancelDuringADecodingWaitsForTheToolAndEndsShort)
{
    installDecoder(u"flac"_s, 4, {u"wait-file"_s, path(u"go"_s)});
    const auto task = make(file(u"a.flac"_s));
    task->setDeleteOriginal(true);
    cancelAt(task, u"Decoding FLAC to Wav"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_TRUE(exists(u"a.flac"_s));
    EXPECT_EQ(othersThan({u"a.flac"_s, u"go"_s, u"a.m4a"_s}), QStringList()) << "no temporary file";
    EXPECT_EQ(statedLength(path(u"a.m4a"_s)), 0);
    EXPECT_TRUE(toolString().endsWith("CBR 160kbps")) << "kept: what is there gets tags";
    EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).size(), 1);
}

TEST_F(AAC, ACancelDuringTheEncodingLeavesAShortFileWithTags)
{
    expectCancelToLeaveAShortFile(u"Encoding to AAC: "_s, maker());
    EXPECT_TRUE(toolString().endsWith("CBR 160kbps"));
}

TEST_F(AAC, TheSourceGoesAfterSuccess)
{
    const auto task = make(wave(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_TRUE(exists(u"a.m4a"_s));
}

#include "ConversionFixture.h"
#include "HandMadeM4a.h"
#include "Silence.h"
#include "support/FileSizeLimit.h"
#include "support/LogCapture.h"

#include <QFile>

#include <thread>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using Encoding = Conversion;

} // namespace

TEST_F(Encoding, ProgressIsReckonedFromTheLatestRound)
{
    // Stereo of 16 bits: 8192 frames a round, then a short one that takes the figure back.
    const auto source = silence(path(u"a.wav"_s), 10000);
    toLossless(source, path(u"a.m4a"_s));
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Encoding to Apple Lossless: 36.160000%"_s);
    EXPECT_NEAR(task_->progressIndicator()->doubleValue(), 100.0 * 1808 * 2 / 10000, 1e-9);
    toLossless(silence(path(u"b.wav"_s), 16384), path(u"b.m4a"_s));
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Encoding to Apple Lossless: 100.000000%"_s);
    EXPECT_EQ(task_->progressIndicator()->doubleValue(), 100.0);
}

TEST_F(Encoding, TheStatusNamesTheTarget)
{
    const auto source = silence(path(u"a.wav"_s), 100);
    toAiff(source, path(u"a.aiff"_s));
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Encoding to AIFF: 100.000000%"_s);
    toWave(path(u"a.aiff"_s), path(u"b.wav"_s));
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Encoding to WAV: 100.000000%"_s);
    encoder(source, path(u"a.m4a"_s), formatId::Aac, fileTypeId::M4a)->doEncodeCall();
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Encoding to AAC: 100.000000%"_s);
    EXPECT_FALSE(task_->error());
}

TEST_F(Encoding, AFailingInputEndsWithErrorAndNoOutput)
{
    const LogCapture log;
    const auto source = writeFile(path(u"a.wav"_s), "this is no audio file, whatever its name says");
    toLossless(source, path(u"a.m4a"_s));
    EXPECT_TRUE(task_->error());
    EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileOpenURL failed typ?"_s));
    EXPECT_EQ(log.count(u"Exception ExtAudioFileOpenURL failed typ?"_s), 1);
    EXPECT_FALSE(QFile::exists(path(u"a.m4a"_s)));
}

TEST_F(Encoding, AFailureReplacesTheTextAndSaysAppleLosslessForEveryTarget)
{
    task_->results()->appendResults(u"earlier text"_s);
    toAiff(path(u"absent.wav"_s), path(u"a.aiff"_s));
    EXPECT_EQ(task_->results()->results(), failure(path(u"absent.wav"_s), u"ExtAudioFileOpenURL failed fnf?"_s));
}

TEST_F(Encoding, ATaskThatHasDroppedItsResultsStillGetsTheError)
{
    task_->setResults(nullptr);
    toWave(path(u"absent.aiff"_s), path(u"a.wav"_s));
    EXPECT_TRUE(task_->error());
}

TEST_F(Encoding, WhatIsRefusedIsSaidInWordsToo)
{
    const LogCapture log;
    toLossless(writeFile(path(u"a.wav"_s), waveFile(makeSamples(44100, 2, 32, 100))), path(u"a.m4a"_s));
    EXPECT_EQ(log.count(u"Apple Lossless of 2 channels, 32 bits and 44100 Hz can't be written"_s), 1);
}

TEST_F(Encoding, DepthsThatTheEncoderCannotTakeAreRefused)
{
    for (const uint32_t bits : {8u, 32u}) {
        const auto source = writeFile(path(u"a.wav"_s), waveFile(makeSamples(44100, 2, bits, 100)));
        toLossless(source, path(u"a.m4a"_s));
        EXPECT_TRUE(task_->error());
        EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileCreateWithURL failed fmt?"_s));
        EXPECT_FALSE(QFile::exists(path(u"a.m4a"_s)));
    }
}

TEST_F(Encoding, LosslessOfThirtyTwoBitsDecodesExactly)
{
    Numbers numbers;
    for (int i = 0; i < 9000; ++i)
        numbers.push_back(static_cast<int32_t>(i * 2654435761u));
    const auto source = writeFile(path(u"a.m4a"_s), handMadeM4a(numbers, 44100, 2, 32));
    toWave(source, path(u"a.wav"_s));
    EXPECT_FALSE(task_->error());
    QByteArray expected;
    for (const auto number : numbers)
        expected += littleEndian(static_cast<uint32_t>(number), 4);
    EXPECT_EQ(fileBytes(path(u"a.wav"_s)).mid(44), expected);
}

TEST_F(Encoding, LosslessOfTwentyBitsIsNeverCutToTwoBytesInSilence)
{
    const auto source = writeFile(path(u"a.m4a"_s), handMadeM4a(Numbers(100, 0x12345), 44100, 2, 20));
    toWave(source, path(u"a.wav"_s));
    EXPECT_TRUE(task_->error());
    EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileCreateWithURL failed fmt?"_s));
}

TEST_F(Encoding, AFileConvertedOntoItselfFailsAndStays)
{
    const auto bytes = handMadeM4a(Numbers(100, 0x1234), 44100, 2, 16);
    const auto source = writeFile(path(u"a.m4a"_s), bytes);
    encoder(source, source, formatId::Aac, fileTypeId::M4a)->doEncodeCall();
    EXPECT_TRUE(task_->error());
    EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileCreateWithURL failed use!"_s));
    EXPECT_EQ(fileBytes(source), bytes);
}

TEST_F(Encoding, CompressedDataIsNotCarriedFromEncoderToEncoder)
{
    const auto source = writeFile(path(u"a.m4a"_s), handMadeM4a(Numbers(100, 0x1234), 44100, 2, 16));
    writeFile(path(u"old.m4a"_s), "precious");
    for (const auto& name : {u"old.m4a"_s, u"new.m4a"_s}) {
        encoder(source, path(name), formatId::Aac, fileTypeId::M4a)->doEncodeCall();
        EXPECT_TRUE(task_->error());
        EXPECT_EQ(task_->results()->results(),
                  failure(source, u"ExtAudioFileSetProperty inFile, kExtAudioFileProperty_ClientDataFormat failed"_s));
    }
    EXPECT_EQ(fileBytes(path(u"old.m4a"_s)), "precious");
    EXPECT_FALSE(QFile::exists(path(u"new.m4a"_s)));
}

TEST_F(Encoding, AWaveWhoseRecorderCrashedIsConvertedToItsEnd)
{
    const auto samples = makeSamples(44100, 2, 16, 10000);
    auto bytes = waveFile(samples);
    bytes.replace(4, 4, littleEndian(36, 4)).replace(40, 4, littleEndian(0, 4));
    toAiff(writeFile(path(u"a.wav"_s), bytes), path(u"a.aiff"_s));
    EXPECT_FALSE(task_->error());
    EXPECT_EQ(fileBytes(path(u"a.aiff"_s)), aiffFile(samples));
}

TEST_F(Encoding, AudioThatCannotBeLocatedFailsAtTheOpen)
{
    const auto noTrack =
        atom("ftyp", QByteArray("M4A \0\0\0\0M4A ", 12)) + atom("moov", atom("mvhd", QByteArray(100, '\0')));
    const auto noData = waveFile(makeSamples(44100, 2, 16, 0)).chopped(8);
    for (const auto& bytes : {noTrack, noData}) {
        const auto source = writeFile(path(u"a"_s), bytes);
        toWave(source, path(u"out"_s));
        EXPECT_TRUE(task_->error());
        EXPECT_TRUE(task_->results()->results().contains(u"ExtAudioFileOpenURL failed"_s));
        EXPECT_FALSE(QFile::exists(path(u"out"_s)));
    }
}

TEST_F(Encoding, ACutLosslessSourceIsAFailure)
{
    const auto samples = makeSamples(44100, 2, 16, 60000);
    const auto wave = writeFile(path(u"a.wav"_s), waveFile(samples));
    runTool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, wave, u"-c:a"_s, u"alac"_s, u"-movflags"_s, u"+faststart"_s,
                          path(u"a.m4a"_s)});
    const auto whole = fileBytes(path(u"a.m4a"_s));
    const auto source = writeFile(path(u"cut.m4a"_s), whole.left(whole.size() / 2));
    toWave(source, path(u"b.wav"_s));
    EXPECT_TRUE(task_->error());
    EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileRead failed"_s));
    EXPECT_LT(statedLength(path(u"b.wav"_s)), 60000); // what was read stays, and can be read
}

TEST_F(Encoding, AFullDiskIsAFailure)
{
    const auto source = silence(path(u"a.wav"_s), 100);
    toAiff(source, u"/dev/full"_s);
    EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileWrite failed"_s));
}

TEST_F(Encoding, AFailedWriteIsAFailureForEveryTarget)
{
    const auto source = writeFile(path(u"a.wav"_s), waveFile(makeSamples(44100, 2, 16, 600000)));
    const std::pair<uint32_t, uint32_t> targets[] = {{formatId::LinearPcm, fileTypeId::Aiff},
                                                     {formatId::AppleLossless, fileTypeId::M4a},
                                                     {formatId::Aac, fileTypeId::M4a}};
    for (const auto& [format, fileType] : targets) {
        const LogCapture log;
        const FileSizeLimit limit(5000);
        const auto conversion = encoder(source, path(fourCharText(format)), format, fileType);
        conversion->setBitrate(format == formatId::Aac ? 256000 : 0);
        conversion->doEncodeCall();
        EXPECT_TRUE(task_->error());
        EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileWrite failed"_s));
        EXPECT_EQ(log.count(u"Exception ExtAudioFileWrite failed"_s), 1);
        EXPECT_TRUE(QFile::exists(path(fourCharText(format))));
        task_->setError(false);
        task_->results()->setResults(QString());
    }
}

TEST_F(Encoding, AFileThatCannotBeFinishedIsAFailure)
{
    const auto source = writeFile(path(u"a.wav"_s), waveFile(makeSamples(44100, 2, 16, 20000)));
    toLossless(source, path(u"whole.m4a"_s));
    // There is room for all the samples, but not for the index behind them.
    const FileSizeLimit limit(QFile(path(u"whole.m4a"_s)).size() - 100);
    toLossless(source, path(u"a.m4a"_s));
    EXPECT_TRUE(task_->error());
    EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileDispose failed big!"_s));
}

TEST_F(Encoding, AnExistingOutputIsOverwritten)
{
    const auto samples = makeSamples(44100, 2, 16, 100);
    writeFile(path(u"a.aiff"_s), QByteArray(50000, 'x'));
    toAiff(writeFile(path(u"a.wav"_s), waveFile(samples)), path(u"a.aiff"_s));
    EXPECT_EQ(fileBytes(path(u"a.aiff"_s)), aiffFile(samples));
}

TEST_F(Encoding, ATaskCancelledBeforehandLeavesAnEmptyFileAndNoError)
{
    task_->setCancelled(true);
    toWave(writeFile(path(u"a.aiff"_s), aiffFile(makeSamples(44100, 2, 16, 100))), path(u"a.wav"_s));
    EXPECT_FALSE(task_->error());
    EXPECT_EQ(statedLength(path(u"a.wav"_s)), 0);
    EXPECT_EQ(task_->topTextField()->stringValue(), u"Waiting..."_s);
}

TEST_F(Encoding, ACancelOnTheWayLeavesAShortFileAndNoError)
{
    constexpr int64_t frames = 100000000;
    const auto source = silence(path(u"a.wav"_s), frames);
    std::thread worker([&] { toLossless(source, path(u"a.m4a"_s)); });
    while (task_->progressIndicator()->doubleValue() == 0.0 && !task_->error())
        std::this_thread::yield();
    task_->setCancelled(true);
    worker.join();
    EXPECT_FALSE(task_->error());
    EXPECT_LT(statedLength(path(u"a.m4a"_s)), frames);
    EXPECT_GT(statedLength(path(u"a.m4a"_s)), 0);
}

TEST_F(Encoding, ConversionsRunSideBySide)
{
    const auto samples = makeSamples(44100, 2, 16, 30000);
    const auto source = writeFile(path(u"a.wav"_s), waveFile(samples));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&, i] {
            const auto middle = path(u"%1.m4a"_s.arg(i));
            toLossless(source, middle);
            toWave(middle, path(u"%1.wav"_s.arg(i)));
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_FALSE(task_->error());
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(fileBytes(path(u"%1.wav"_s.arg(i))), fileBytes(source));
}

#include "encode/CoreAudioHelper.h"

#include "AudioSamples.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Inspection : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    QString wave(const QString& name, uint32_t bits = 16, int frames = 100)
    {
        return writeFile(path(name), waveFile(makeSamples(44100, 2, bits, frames)));
    }
    QString made(const QString& name, const QStringList& options)
    {
        runTool(u"ffmpeg"_s, QStringList{u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, wave(u"source.wav"_s)} + options +
                                 QStringList{path(name)});
        return path(name);
    }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(Inspection, TellsRateDepthChannelsAndLength)
{
    const auto info = CoreAudioHelper::getFormatInfo(wave(u"a.wav"_s, 24, 44100));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->sampleRate(), 44100);
    EXPECT_EQ(info->bitsPerChannel(), 24);
    EXPECT_EQ(info->channels(), 2);
    EXPECT_EQ(info->totalSamples(), 44100);
    EXPECT_EQ(info->time(), 1.0);
}

TEST_F(Inspection, RateIsCutToAWholeNumber)
{
    auto bytes = aiffFile(makeSamples(44100, 1, 16, 10));
    bytes.replace(28, 10, QByteArray::fromHex("400eac44c00000000000")); // 44100.75
    const auto info = CoreAudioHelper::getFormatInfo(writeFile(path(u"a.aiff"_s), bytes));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->sampleRate(), 44100);
}

TEST_F(Inspection, AppleLosslessTellsTheDepthOfItsSource)
{
    const auto info = CoreAudioHelper::getFormatInfo(made(u"a.m4a"_s, {u"-c:a"_s, u"alac"_s}));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->bitsPerChannel(), 16);
    EXPECT_EQ(info->totalSamples(), 100);
}

TEST_F(Inspection, UnreadableFilesGiveNothingAndNo)
{
    const auto text = writeFile(path(u"text.wav"_s), "no audio here, only words and more words");
    for (const auto& name : {text, path(u"absent.wav"_s), folder_.path(), QString()}) {
        EXPECT_FALSE(CoreAudioHelper::getFormatInfo(name));
        EXPECT_FALSE(CoreAudioHelper::isAppleLossless(name));
        EXPECT_FALSE(CoreAudioHelper::isAiff(name));
        EXPECT_FALSE(CoreAudioHelper::isWav(name));
        EXPECT_FALSE(CoreAudioHelper::isAiffOrWav(name));
    }
}

TEST_F(Inspection, TheExtensionDoesNotCount)
{
    const auto wrong = wave(u"wave.aiff"_s);
    EXPECT_TRUE(CoreAudioHelper::isWav(wrong));
    EXPECT_FALSE(CoreAudioHelper::isAiff(wrong));
    EXPECT_TRUE(CoreAudioHelper::isAiffOrWav(wrong));
}

TEST_F(Inspection, AiffIsAiff)
{
    const auto aiff = writeFile(path(u"a.wav"_s), aiffFile(makeSamples(44100, 2, 24, 100)));
    EXPECT_TRUE(CoreAudioHelper::isAiff(aiff));
    EXPECT_FALSE(CoreAudioHelper::isWav(aiff));
    EXPECT_TRUE(CoreAudioHelper::isAiffOrWav(aiff));
    EXPECT_FALSE(CoreAudioHelper::isAppleLossless(aiff));
}

TEST_F(Inspection, FloatSamplesAreNeitherWavNorAiff)
{
    const auto floats = made(u"float.wav"_s, {u"-c:a"_s, u"pcm_f32le"_s});
    EXPECT_TRUE(CoreAudioHelper::getFormatInfo(floats));
    EXPECT_FALSE(CoreAudioHelper::isWav(floats));
    EXPECT_FALSE(CoreAudioHelper::isAiff(floats));
    EXPECT_FALSE(CoreAudioHelper::isAiffOrWav(floats));
}

TEST_F(Inspection, UnsignedBytesAreNeitherWavNorAiff)
{
    const auto bytes = wave(u"bytes.wav"_s, 8);
    const auto info = CoreAudioHelper::getFormatInfo(bytes);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->bitsPerChannel(), 8);
    EXPECT_FALSE(CoreAudioHelper::isWav(bytes));
    EXPECT_FALSE(CoreAudioHelper::isAiffOrWav(bytes));
}

TEST_F(Inspection, AppleLosslessIsToldFromAac)
{
    EXPECT_TRUE(CoreAudioHelper::isAppleLossless(made(u"a.m4a"_s, {u"-c:a"_s, u"alac"_s})));
    EXPECT_FALSE(CoreAudioHelper::isAppleLossless(made(u"b.m4a"_s, {u"-c:a"_s, u"aac"_s})));
    EXPECT_FALSE(CoreAudioHelper::isAiffOrWav(path(u"a.m4a"_s)));
}

TEST(AudioFormatObject, TimeCountsFramesInSeconds)
{
    AudioFormatObject object;
    object.setSampleRate(48000);
    object.setTotalSamples(int64_t(48000) * 3600 * 30); // more than 32 bits hold
    EXPECT_EQ(object.time(), 108000.0);
}

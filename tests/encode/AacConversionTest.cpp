#include "ConversionFixture.h"
#include "platform/audio/AudioFileReader.h"

#include <cmath>
#include <iostream>
#include <random>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AacConversion : public Conversion
{
protected:
    void toAac(const QString& from, const QString& to, uint32_t mode = 0, uint32_t bitrate = 0, uint32_t quality = 0)
    {
        const auto conversion = encoder(from, to, formatId::Aac, fileTypeId::M4a);
        conversion->setMode(mode);
        conversion->setBitrate(bitrate);
        conversion->setQuality(quality);
        conversion->doEncodeCall();
        EXPECT_FALSE(task_->error()) << task_->results()->results().toStdString();
    }

    QString wave(const Samples& samples) { return writeFile(path(u"source.wav"_s), waveFile(samples)); }

    int measured(const QString& where) const { return probed(where, u"bit_rate"_s).toInt(); }
};

/// A steady tone over faint noise.
Samples tone(double rate, uint32_t channels, int frames)
{
    Samples samples{.rate = rate, .channels = channels, .bits = 16, .frames = frames};
    for (int frame = 0; frame < frames; ++frame)
        for (uint32_t channel = 0; channel < channels; ++channel)
            samples.little += littleEndian(
                static_cast<uint16_t>(static_cast<int16_t>(8000 * std::sin(frame * 0.05 * (channel + 1)))), 2);
    return samples;
}

int16_t sampleAt(const QByteArray& bytes, qsizetype index)
{
    return static_cast<int16_t>(uint8_t(bytes[index * 2]) | uint8_t(bytes[index * 2 + 1]) << 8);
}

/// Mean difference between samples and others that stand `shift` places further on.
double meanDifference(const QByteArray& one, const QByteArray& other, qsizetype shift)
{
    constexpr qsizetype first = 200;
    constexpr qsizetype count = 29600;
    double sum = 0;
    for (qsizetype i = first; i < first + count; ++i)
        sum += std::abs(sampleAt(one, i) - sampleAt(other, i + shift));
    return sum / count;
}

/// Chords that swell and fade, over faint noise.
Samples music(int frames)
{
    Samples samples{.frames = frames};
    std::mt19937 random(3);
    for (int frame = 0; frame < frames; ++frame)
        for (uint32_t channel = 0; channel < 2; ++channel) {
            double value = 0.02 * (double(random()) / 2147483648.0 - 1);
            for (int voice = 1; voice <= 12; ++voice)
                value += 0.05 * std::sin(frame * 0.013 * voice * (1 + 0.01 * channel)) *
                         (1 + std::sin(frame * 0.00011 * voice));
            samples.little += littleEndian(static_cast<uint16_t>(static_cast<int16_t>(value * 20000)), 2);
        }
    return samples;
}

} // namespace

TEST_F(AacConversion, LengthIsExactlyTheSourcesAtAnyLength)
{
    for (const int frames : {1, 2, 1023, 1024, 1025, 2048, 4097, 44100, 50001}) {
        toAac(wave(makeSamples(44100, 2, 16, frames)), path(u"a.m4a"_s));
        EXPECT_EQ(statedLength(path(u"a.m4a"_s)), frames);
        EXPECT_EQ(probed(path(u"a.m4a"_s), u"duration_ts"_s), QByteArray::number(frames));
        EXPECT_EQ(readThroughService(path(u"a.m4a"_s), linearFormat(44100, 2, 16, pcmFlag::WaveData)).size(),
                  frames * 4);
        EXPECT_GE(decodedByFfmpeg(path(u"a.m4a"_s), 16).size(), frames * 4);
    }
}

TEST_F(AacConversion, PlaysInPlaceFromTheFirstFrameToTheLast)
{
    const auto samples = tone(44100, 1, 30000);
    toAac(wave(samples), path(u"a.m4a"_s), 0, 192000);
    const auto ours = readThroughService(path(u"a.m4a"_s), linearFormat(44100, 1, 16, pcmFlag::WaveData));
    const auto theirs = decodedByFfmpeg(path(u"a.m4a"_s), 16);
    ASSERT_EQ(ours.size(), 60000);
    for (const auto& decoded : {ours, theirs})
        for (const qsizetype shift : {-2, -1, 1, 2})
            EXPECT_LT(2 * meanDifference(decoded, samples.little, 0), meanDifference(decoded, samples.little, shift));
}

TEST_F(AacConversion, HighRatesAreHalvedAndOthersStay)
{
    const std::pair<int, int> rates[] = {{96000, 48000}, {192000, 48000}, {88200, 44100}, {176400, 44100},
                                         {48000, 48000}, {44100, 44100},  {32000, 32000}, {8000, 8000}};
    for (const auto& [input, output] : rates) {
        const int frames = input / 2 + 1;
        toAac(wave(makeSamples(input, 2, 24, frames)), path(u"a.m4a"_s));
        const int expected = static_cast<int>(std::lround(double(frames) * output / input));
        EXPECT_EQ(probed(path(u"a.m4a"_s), u"sample_rate,channels,duration_ts"_s),
                  QByteArray::number(output) + ",2," + QByteArray::number(expected));
        EXPECT_EQ(statedLength(path(u"a.m4a"_s)), expected);
    }
}

TEST_F(AacConversion, ChannelsStay)
{
    for (uint32_t channels = 1; channels <= 6; ++channels) {
        toAac(wave(makeSamples(48000, channels, 16, 20000)), path(u"a.m4a"_s));
        EXPECT_EQ(probed(path(u"a.m4a"_s), u"codec_name,channels,duration_ts"_s),
                  "aac," + QByteArray::number(channels) + ",20000");
    }
}

TEST_F(AacConversion, BitRatesFollowWhatIsAsked)
{
    const auto source = wave(music(441000));
    for (const uint32_t mode : {0u, 1u, 2u})
        for (const uint32_t kilobits : {96u, 128u, 192u, 256u}) {
            toAac(source, path(u"a.m4a"_s), mode, kilobits * 1000);
            const int rate = measured(path(u"a.m4a"_s));
            std::cout << "mode " << mode << ": asked " << kilobits << ", measured " << rate / 1000 << " kbit/s\n";
            EXPECT_GT(rate, static_cast<int>(kilobits) * 600);
            EXPECT_LT(rate, static_cast<int>(kilobits) * 1400);
        }
}

TEST_F(AacConversion, HigherQualityTakesMoreBits)
{
    const auto source = wave(music(441000));
    int last = 0;
    for (const uint32_t quality : {1u, 32u, 64u, 96u, 127u}) {
        toAac(source, path(u"a.m4a"_s), 3, 0, quality);
        const int rate = measured(path(u"a.m4a"_s));
        std::cout << "quality " << quality << ": measured " << rate / 1000 << " kbit/s\n";
        EXPECT_GT(rate, last);
        last = rate;
    }
}

TEST_F(AacConversion, QualityZeroLeavesTheEncodersOwn)
{
    const auto source = wave(makeSamples(44100, 2, 16, 100000));
    toAac(source, path(u"own.m4a"_s), 0);
    toAac(source, path(u"zero.m4a"_s), 3, 0, 0);
    EXPECT_EQ(fileBytes(path(u"own.m4a"_s)), fileBytes(path(u"zero.m4a"_s)));
}

TEST_F(AacConversion, AiffIsTakenLikeWave)
{
    const auto samples = makeSamples(44100, 2, 24, 20000);
    toAac(wave(samples), path(u"w.m4a"_s));
    toAac(writeFile(path(u"source.aiff"_s), aiffFile(samples)), path(u"a.m4a"_s));
    EXPECT_EQ(fileBytes(path(u"w.m4a"_s)), fileBytes(path(u"a.m4a"_s)));
}

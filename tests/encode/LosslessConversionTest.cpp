// Lossless means bit-exact: there and back, sample by sample, with ffmpeg and ffprobe as witnesses of their own.
#include "ConversionFixture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

struct Case
{
    bool aiff;
    uint32_t bits;
};

void PrintTo(const Case& one, std::ostream* out)
{
    *out << (one.aiff ? "AIFF " : "WAV ") << one.bits;
}

class ThereAndBack : public Conversion, public testing::WithParamInterface<Case>
{
protected:
    void run(const Samples& samples)
    {
        SCOPED_TRACE(testing::Message() << samples.rate << " Hz, " << samples.channels << " channels, "
                                        << samples.frames << " frames");
        const auto wave = waveFile(samples);
        const auto aiff = aiffFile(samples);
        const auto source = writeFile(path(u"source"_s), GetParam().aiff ? aiff : wave);
        toLossless(source, path(u"out.m4a"_s));
        ASSERT_FALSE(task_->error()) << task_->results()->results().toStdString();
        EXPECT_EQ(decodedByFfmpeg(path(u"out.m4a"_s), samples.bits), samples.little);
        const auto expected = QByteArray::number(samples.rate, 'f', 0) + ',' + QByteArray::number(samples.channels) +
                              ',' + QByteArray::number(samples.frames);
        EXPECT_EQ(probed(path(u"out.m4a"_s), u"sample_rate,channels,duration_ts"_s), expected);
        EXPECT_EQ(statedLength(path(u"out.m4a"_s)), samples.frames);
        toWave(path(u"out.m4a"_s), path(u"back.wav"_s));
        toAiff(path(u"out.m4a"_s), path(u"back.aiff"_s));
        EXPECT_EQ(fileBytes(path(u"back.wav"_s)), wave);
        EXPECT_EQ(fileBytes(path(u"back.aiff"_s)), aiff);
        EXPECT_FALSE(task_->error());
    }
};

} // namespace

TEST_P(ThereAndBack, IsExactAtEveryRate)
{
    const double rates[] = {8000, 11025, 22050, 32000, 44100, 48000, 88200, 96000, 176400, 192000};
    int frames = 4095; // around the encoder's block of 4096, then away from it
    for (const double rate : rates)
        run(makeSamples(rate, 2, GetParam().bits, frames++));
}

TEST_P(ThereAndBack, IsExactFromMonoToSixChannels)
{
    for (uint32_t channels = 1; channels <= 6; ++channels)
        run(makeSamples(48000, channels, GetParam().bits, 8191 + static_cast<int>(channels)));
}

TEST_P(ThereAndBack, IsExactAtOddLengths)
{
    for (const int frames : {1, 2, 3, 7, 8191, 8193, 8192, 30011})
        run(makeSamples(44100, 1, GetParam().bits, frames));
}

INSTANTIATE_TEST_SUITE_P(Lossless, ThereAndBack,
                         testing::Values(Case{false, 16}, Case{false, 24}, Case{true, 16}, Case{true, 24}),
                         [](const auto& one) {
                             return std::string(one.param.aiff ? "Aiff" : "Wave") + std::to_string(one.param.bits);
                         });

namespace {

using BetweenLinearFiles = Conversion;

} // namespace

TEST_F(BetweenLinearFiles, EveryDepthIsExactInBothDirections)
{
    for (const uint32_t bits : {8u, 16u, 24u, 32u})
        for (const uint32_t channels : {1u, 2u, 5u}) {
            const auto samples = makeSamples(44100, channels, bits, 10007);
            const auto wave = writeFile(path(u"a.wav"_s), waveFile(samples));
            const auto aiff = writeFile(path(u"a.aiff"_s), aiffFile(samples));
            toAiff(wave, path(u"b.aiff"_s));
            toWave(aiff, path(u"b.wav"_s));
            EXPECT_FALSE(task_->error()) << bits;
            EXPECT_EQ(fileBytes(path(u"b.aiff"_s)), fileBytes(aiff)) << bits << ' ' << channels;
            EXPECT_EQ(fileBytes(path(u"b.wav"_s)), fileBytes(wave)) << bits << ' ' << channels;
        }
}

TEST_F(BetweenLinearFiles, AnEmptyFileGivesAnEmptyFile)
{
    const auto samples = makeSamples(44100, 2, 16, 0);
    const auto wave = writeFile(path(u"a.wav"_s), waveFile(samples));
    toAiff(wave, path(u"a.aiff"_s));
    toLossless(wave, path(u"a.m4a"_s));
    EXPECT_EQ(fileBytes(path(u"a.aiff"_s)), aiffFile(samples));
    EXPECT_EQ(probed(path(u"a.m4a"_s), u"codec_name,sample_rate,channels"_s), "alac,44100,2");
    toWave(path(u"a.m4a"_s), path(u"back.wav"_s));
    EXPECT_EQ(fileBytes(path(u"back.wav"_s)), waveFile(samples));
    EXPECT_FALSE(task_->error());
}

namespace {

/// Samples in more bytes than they need: the bits stand at the high end, zeros below.
QByteArray roomyWave(const Samples& samples, uint32_t bits, uint32_t bytes)
{
    auto wide = samples;
    wide.bits = bytes * 8;
    wide.little.clear();
    const auto taken = samples.bits / 8;
    for (qsizetype at = 0; at < samples.little.size(); at += taken)
        wide.little += QByteArray(bytes - taken, '\0') + samples.little.mid(at, taken);
    auto file = waveFile(wide);
    const auto format = "fmt " + littleEndian(40, 4) + littleEndian(0xfffe, 2) + file.mid(22, 14) +
                        littleEndian(22, 2) + littleEndian(bits, 2) + littleEndian(0, 4) +
                        QByteArray::fromHex("0100000000001000800000aa00389b71");
    return file.replace(12, 24, format);
}

/// 24-bit samples whose lowest four bits are zeros.
Samples twentyBits(int frames)
{
    auto samples = makeSamples(48000, 2, 24, frames);
    for (qsizetype at = 0; at < samples.little.size(); at += 3)
        samples.little[at] = static_cast<char>(samples.little[at] & 0xf0);
    return samples;
}

} // namespace

TEST_F(BetweenLinearFiles, TwentyFourBitsInFourBytesAreConvertedExactly)
{
    const auto samples = makeSamples(48000, 2, 24, 10007);
    const auto wave = writeFile(path(u"a.wav"_s), roomyWave(samples, 24, 4));
    toAiff(wave, path(u"a.aiff"_s));
    toWave(wave, path(u"b.wav"_s));
    toLossless(wave, path(u"a.m4a"_s));
    encoder(wave, path(u"aac.m4a"_s), formatId::Aac, fileTypeId::M4a)->doEncodeCall();
    EXPECT_FALSE(task_->error()) << task_->results()->results().toStdString();
    EXPECT_EQ(fileBytes(path(u"a.aiff"_s)), aiffFile(samples));
    EXPECT_EQ(fileBytes(path(u"b.wav"_s)), waveFile(samples));
    EXPECT_EQ(decodedByFfmpeg(path(u"a.m4a"_s), 24), samples.little);
    EXPECT_EQ(statedLength(path(u"aac.m4a"_s)), 10007);
}

TEST_F(BetweenLinearFiles, LosslessOfTwentyBitsDecodesExactly)
{
    const auto samples = twentyBits(10007);
    for (const uint32_t bytes : {3u, 4u}) {
        toLossless(writeFile(path(u"a.wav"_s), roomyWave(samples, 20, bytes)), path(u"a.m4a"_s));
        EXPECT_FALSE(task_->error()) << task_->results()->results().toStdString();
        EXPECT_EQ(decodedByFfmpeg(path(u"a.m4a"_s), 24), samples.little);
        toWave(path(u"a.m4a"_s), path(u"back.wav"_s));
        EXPECT_EQ(fileBytes(path(u"back.wav"_s)), waveFile(samples));
    }
}

TEST_F(BetweenLinearFiles, TwentyBitsAreNeverCutToTwoBytesAndTheOldOutputStays)
{
    const auto source = writeFile(path(u"a.wav"_s), roomyWave(twentyBits(100), 20, 3));
    writeFile(path(u"a.aiff"_s), "precious");
    toAiff(source, path(u"a.aiff"_s));
    EXPECT_EQ(task_->results()->results(), failure(source, u"ExtAudioFileCreateWithURL failed fmt?"_s));
    EXPECT_EQ(fileBytes(path(u"a.aiff"_s)), "precious");
}

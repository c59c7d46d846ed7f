#include "HandMadeM4a.h"
#include "platform/audio/AudioFileReader.h"

#include <QFile>

#include <random>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Reading : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }

    QString wave(const Samples& samples) { return writeFile(path(u"source.wav"_s), waveFile(samples)); }

    QString encoded(const Samples& samples, const QString& name, const QStringList& options)
    {
        runTool(u"ffmpeg"_s,
                QStringList{u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, wave(samples)} + options + QStringList{path(name)});
        return path(name);
    }

    std::unique_ptr<AudioFileReader> open(const QString& where)
    {
        std::unique_ptr<AudioFileReader> reader;
        EXPECT_EQ(AudioFileReader::open(where, reader), audioStatus::Ok);
        return reader;
    }

    QTemporaryDir folder_;
};

Numbers randomNumbers(size_t count, int bits)
{
    std::mt19937 random(7);
    Numbers numbers;
    for (size_t i = 0; i < count; ++i)
        numbers.push_back(static_cast<int32_t>(random()) >> (32 - bits));
    return numbers;
}

/// The numbers at the high end of four bytes each.
QByteArray leftJustified(const Numbers& numbers, int bits)
{
    QByteArray bytes;
    for (const auto number : numbers)
        bytes += littleEndian(static_cast<uint32_t>(number) << (32 - bits), 4);
    return bytes;
}

} // namespace

TEST_F(Reading, AFileGivesItsBytesInItsOwnFormatInPiecesOfAnySize)
{
    const auto samples = makeSamples(44100, 2, 16, 10007);
    auto reader = open(wave(samples));
    QByteArray all(samples.little.size() + 4000, '\0');
    int64_t at = 0;
    for (const int64_t piece : {1, 4095, 3, 5000, 1000, 1000}) {
        int64_t taken = 0;
        ASSERT_EQ(reader->read(all.data() + at * 4, piece, taken), audioStatus::Ok);
        at += taken;
    }
    EXPECT_EQ(at, 10007);
    EXPECT_EQ(all.left(at * 4), samples.little);
}

TEST_F(Reading, BehindTheEndThereAreNoFramesAndNoFailure)
{
    auto reader = open(wave(makeSamples(44100, 1, 16, 1)));
    int16_t buffer[8];
    int64_t taken = -1;
    ASSERT_EQ(reader->read(buffer, 8, taken), audioStatus::Ok);
    EXPECT_EQ(taken, 1);
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(reader->read(buffer, 8, taken), audioStatus::Ok);
        EXPECT_EQ(taken, 0);
    }
}

TEST_F(Reading, ByteOrderAndDepthAreConvertedForTheClient)
{
    const auto samples = makeSamples(44100, 2, 24, 5000);
    const auto where = wave(samples);
    EXPECT_EQ(readThroughService(where, linearFormat(44100, 2, 24, pcmFlag::AiffData)), swapped(samples.little, 3));
    const auto wide = readThroughService(where, linearFormat(44100, 2, 32, pcmFlag::WaveData));
    ASSERT_EQ(wide.size(), samples.little.size() / 3 * 4);
    EXPECT_EQ(wide.mid(1, 3), samples.little.left(3));
    EXPECT_EQ(wide[0], '\0');
}

TEST_F(Reading, DataThatLooksLikeSurroundSoundIsReadAsItStands)
{
    // A CD with DTS sound: its sync words in the samples of a stereo WAV file.
    Samples samples = makeSamples(44100, 2, 16, 20000);
    for (qsizetype at = 0; at + 8 < samples.little.size(); at += 4096)
        samples.little.replace(at, 6, QByteArray::fromHex("ff1f00e8f107"));
    const auto where = wave(samples);
    EXPECT_EQ(readThroughService(where, linearFormat(44100, 2, 16, pcmFlag::WaveData)), samples.little);
}

TEST_F(Reading, AppleLosslessOfSixteenAndTwentyFourBits)
{
    for (const uint32_t bits : {16u, 24u}) {
        const auto samples = makeSamples(48000, 2, bits, 9001);
        const auto where = encoded(samples, u"a.m4a"_s, {u"-c:a"_s, u"alac"_s});
        EXPECT_EQ(readThroughService(where, linearFormat(48000, 2, bits, pcmFlag::WaveData)), samples.little);
        EXPECT_EQ(readThroughService(where, linearFormat(48000, 2, bits, pcmFlag::AiffData)),
                  swapped(samples.little, static_cast<int>(bits / 8)));
    }
}

TEST_F(Reading, AppleLosslessOfTwentyAndThirtyTwoBitsDecodesExactly)
{
    for (const uint32_t bits : {20u, 32u})
        for (const uint32_t channels : {1u, 2u}) {
            const auto numbers = randomNumbers(5001 * channels, static_cast<int>(bits));
            const auto where = writeFile(path(u"hand.m4a"_s), handMadeM4a(numbers, 44100, channels, bits));
            AudioFormat format;
            ASSERT_EQ(open(where)->dataFormat(format), audioStatus::Ok);
            EXPECT_EQ(format.formatFlags, appleLosslessFlags(bits));
            EXPECT_EQ(format.bitsPerChannel, bits);
            EXPECT_EQ(statedLength(where), 5001);
            const auto expected = leftJustified(numbers, static_cast<int>(bits));
            EXPECT_EQ(readThroughService(where, linearFormat(44100, channels, 32, pcmFlag::WaveData)), expected);
            // ffmpeg does not decode such packets in stereo of 32 bits.
            if (bits == 20 || channels == 1) {
                EXPECT_EQ(decodedByFfmpeg(where, 32), expected);
            }
        }
}

TEST_F(Reading, AClientFormatThatIsNotLinearIsRefused)
{
    const auto where = encoded(makeSamples(44100, 2, 16, 100), u"a.m4a"_s, {u"-c:a"_s, u"alac"_s});
    auto reader = open(where);
    AudioFormat format;
    ASSERT_EQ(reader->dataFormat(format), audioStatus::Ok);
    EXPECT_EQ(reader->setClientFormat(format), audioStatus::UnsupportedFormat);
    EXPECT_EQ(reader->setClientFormat({.sampleRate = 44100, .formatId = formatId::Aac, .channelsPerFrame = 2}),
              audioStatus::UnsupportedFormat);
    EXPECT_EQ(reader->setClientFormat(linearFormat(44100, 1, 16, pcmFlag::WaveData)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(reader->setClientFormat(linearFormat(44100, 2, 20, pcmFlag::WaveData)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(reader->setClientFormat(linearFormat(0, 2, 16, pcmFlag::WaveData)), audioStatus::UnsupportedFormat);
}

TEST_F(Reading, CompressedDataNeedsAClientFormatFirst)
{
    auto reader = open(encoded(makeSamples(44100, 2, 16, 100), u"a.m4a"_s, {u"-c:a"_s, u"alac"_s}));
    char buffer[64];
    int64_t taken = -1;
    EXPECT_EQ(reader->read(buffer, 4, taken), audioStatus::WrongState);
    EXPECT_EQ(taken, 0);
}

TEST_F(Reading, LosslessDataThatEndsEarlyIsAFailure)
{
    const auto samples = makeSamples(44100, 2, 16, 60000);
    const auto whole = fileBytes(encoded(samples, u"a.m4a"_s, {u"-c:a"_s, u"alac"_s, u"-movflags"_s, u"+faststart"_s}));
    const auto where = writeFile(path(u"cut.m4a"_s), whole.left(whole.size() * 2 / 3));
    auto reader = open(where);
    ASSERT_EQ(reader->setClientFormat(linearFormat(44100, 2, 16, pcmFlag::WaveData)), audioStatus::Ok);
    std::vector<char> buffer(4 * 70000);
    int64_t taken = 0;
    EXPECT_EQ(reader->read(buffer.data(), 70000, taken), audioStatus::InvalidFile);
    EXPECT_LT(taken, 60000);
}

TEST_F(Reading, LossyFilesGiveTheirSourcesLength)
{
    const auto samples = makeSamples(44100, 2, 16, 30001);
    const auto client = linearFormat(44100, 2, 16, pcmFlag::WaveData);
    const auto mp3 = encoded(samples, u"a.mp3"_s, {u"-c:a"_s, u"libmp3lame"_s});
    EXPECT_EQ(statedLength(mp3), 30001);
    EXPECT_EQ(readThroughService(mp3, client).size(), 30001 * 4);
    const auto bare = encoded(samples, u"b.mp3"_s, {u"-c:a"_s, u"libmp3lame"_s, u"-write_xing"_s, u"0"_s});
    EXPECT_EQ(statedLength(bare) * 4, readThroughService(bare, client).size());
}

TEST_F(Reading, LinearDataBehindOtherContainersIsExact)
{
    const auto samples = makeSamples(44100, 2, 16, 5001);
    const auto client = linearFormat(44100, 2, 16, pcmFlag::WaveData);
    for (const auto& name : {u"a.caf"_s, u"a.au"_s})
        EXPECT_EQ(readThroughService(encoded(samples, name, {u"-c:a"_s, u"pcm_s16be"_s}), client), samples.little);
    EXPECT_EQ(readThroughService(encoded(samples, u"b.caf"_s, {u"-c:a"_s, u"alac"_s}), client), samples.little);
}

TEST_F(Reading, TheRateIsConvertedForTheClient)
{
    const auto where = wave(makeSamples(96000, 2, 24, 96000));
    const auto halved = readThroughService(where, linearFormat(48000, 2, 24, pcmFlag::WaveData));
    EXPECT_NEAR(static_cast<double>(halved.size()) / 6, 48000, 2);
}

TEST_F(Reading, AFileThatShrinksWhileItIsReadIsAFailure)
{
    const auto samples = makeSamples(44100, 2, 16, 20000);
    const auto where = wave(samples);
    auto reader = open(where);
    QFile file(where);
    ASSERT_TRUE(file.resize(1000));
    std::vector<char> buffer(samples.little.size());
    int64_t taken = 0;
    EXPECT_EQ(reader->read(buffer.data(), 20000, taken), audioStatus::InvalidFile);
}

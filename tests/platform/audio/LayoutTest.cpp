#include "AudioSamples.h"
#include "platform/audio/LinearLayout.h"

#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Layout : public testing::Test
{
protected:
    AudioStatus readWith(AudioStatus (*reader)(QFile&, LinearLayout&), const QByteArray& bytes)
    {
        QFile file(writeFile(folder_.filePath(u"file"_s), bytes));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        layout_ = {};
        return reader(file, layout_);
    }
    AudioStatus wave(const QByteArray& bytes) { return readWith(readWaveLayout, bytes); }
    AudioStatus aiff(const QByteArray& bytes) { return readWith(readAiffLayout, bytes); }

    QTemporaryDir folder_;
    LinearLayout layout_;
};

QByteArray chunk(const char* name, const QByteArray& body)
{
    return QByteArray(name, 4) + littleEndian(static_cast<uint64_t>(body.size()), 4) + body +
           QByteArray(body.size() & 1, '\0');
}

QByteArray bigChunk(const char* name, const QByteArray& body)
{
    return QByteArray(name, 4) + bigEndian(static_cast<uint64_t>(body.size()), 4) + body +
           QByteArray(body.size() & 1, '\0');
}

QByteArray riff(const QByteArray& chunks, const char* id = "RIFF")
{
    return QByteArray(id, 4) + littleEndian(static_cast<uint64_t>(chunks.size()) + 4, 4) + "WAVE" + chunks;
}

QByteArray form(const QByteArray& chunks, const char* type)
{
    return "FORM" + bigEndian(static_cast<uint64_t>(chunks.size()) + 4, 4) + QByteArray(type, 4) + chunks;
}

QByteArray plainFormat(int tag, int channels, uint32_t rate, int blockAlign, int bits)
{
    return littleEndian(static_cast<uint64_t>(tag), 2) + littleEndian(static_cast<uint64_t>(channels), 2) +
           littleEndian(rate, 4) + littleEndian(rate * static_cast<uint32_t>(blockAlign), 4) +
           littleEndian(static_cast<uint64_t>(blockAlign), 2) + littleEndian(static_cast<uint64_t>(bits), 2);
}

QByteArray extensibleFormat(int channels, int blockAlign, int bits, int validBits, int tag)
{
    return plainFormat(0xfffe, channels, 48000, blockAlign, bits) + littleEndian(22, 2) +
           littleEndian(static_cast<uint64_t>(validBits), 2) + littleEndian(0, 4) +
           littleEndian(static_cast<uint64_t>(tag), 2) + QByteArray::fromHex("000000001000800000aa00389b71");
}

/// Eight bytes of the rate 44100 as an 80-bit float, and the rest.
QByteArray commonBody(int channels, uint32_t frames, int bits, const QByteArray& rest = {})
{
    return bigEndian(static_cast<uint64_t>(channels), 2) + bigEndian(frames, 4) +
           bigEndian(static_cast<uint64_t>(bits), 2) + QByteArray::fromHex("400eac44000000000000") + rest;
}

const QByteArray stereo = plainFormat(1, 2, 44100, 4, 16);

} // namespace

TEST_F(Layout, PlainWave)
{
    ASSERT_EQ(wave(riff(chunk("fmt ", stereo) + chunk("data", QByteArray(40, 'x')))), audioStatus::Ok);
    EXPECT_EQ(layout_.format, linearFormat(44100, 2, 16, pcmFlag::WaveData));
    EXPECT_EQ(layout_.frames, 10);
    EXPECT_EQ(layout_.dataOffset, 44);
}

TEST_F(Layout, ChunksOfOddLengthAndUnknownNameArePassedOver)
{
    const auto bytes = riff(chunk("LIST", "abc") + chunk("fmt ", stereo) + chunk("junk", "z") +
                            chunk("data", QByteArray(8, 'x')) + chunk("id3 ", "tail"));
    ASSERT_EQ(wave(bytes), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 2);
    EXPECT_EQ(layout_.dataOffset, 66);
}

TEST_F(Layout, FormatBehindTheSamplesIsFound)
{
    ASSERT_EQ(wave(riff(chunk("data", QByteArray(8, 'x')) + chunk("fmt ", stereo))), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 2);
    EXPECT_EQ(layout_.dataOffset, 20);
}

TEST_F(Layout, EightBitWaveIsUnsigned)
{
    ASSERT_EQ(wave(riff(chunk("fmt ", plainFormat(1, 1, 8000, 1, 8)) + chunk("data", "abc"))), audioStatus::Ok);
    EXPECT_EQ(layout_.format.formatFlags, pcmFlag::Packed);
    EXPECT_EQ(layout_.frames, 3);
}

TEST_F(Layout, FloatWaveIsFlaggedSo)
{
    ASSERT_EQ(wave(riff(chunk("fmt ", plainFormat(3, 1, 8000, 4, 32)) + chunk("data", "abcd"))), audioStatus::Ok);
    EXPECT_EQ(layout_.format.formatFlags, pcmFlag::Float | pcmFlag::Packed);
    EXPECT_EQ(wave(riff(chunk("fmt ", plainFormat(3, 1, 8000, 2, 16)) + chunk("data", "abcd"))),
              audioStatus::UnsupportedFormat);
}

TEST_F(Layout, ExtensibleWave)
{
    ASSERT_EQ(wave(riff(chunk("fmt ", extensibleFormat(6, 18, 24, 24, 1)) + chunk("data", QByteArray(36, 'x')))),
              audioStatus::Ok);
    EXPECT_EQ(layout_.format, linearFormat(48000, 6, 24, pcmFlag::WaveData));
    EXPECT_EQ(layout_.frames, 2);
}

TEST_F(Layout, ExtensibleWaveOfTwentyBitsInThreeBytes)
{
    ASSERT_EQ(wave(riff(chunk("fmt ", extensibleFormat(2, 6, 24, 20, 1)) + chunk("data", QByteArray(12, 'x')))),
              audioStatus::Ok);
    EXPECT_EQ(layout_.format.bitsPerChannel, 20u);
    EXPECT_EQ(layout_.format.bytesPerFrame, 6u);
    EXPECT_EQ(layout_.format.formatFlags, pcmFlag::SignedInteger | pcmFlag::AlignedHigh);
}

TEST_F(Layout, ExtensibleWaveOfAnUnknownKindIsRefused)
{
    auto format = extensibleFormat(2, 4, 16, 16, 1);
    format[39] = 'x';
    EXPECT_EQ(wave(riff(chunk("fmt ", format) + chunk("data", "abcd"))), audioStatus::UnsupportedFormat);
    EXPECT_EQ(wave(riff(chunk("fmt ", extensibleFormat(2, 4, 16, 16, 0x55)) + chunk("data", "abcd"))),
              audioStatus::UnsupportedFormat);
}

TEST_F(Layout, Rf64TakesItsLengthFromTheLongSize)
{
    const auto longSizes = littleEndian(1, 8) + littleEndian(8, 8) + littleEndian(2, 8) + littleEndian(0, 4);
    const auto data = "data" + littleEndian(0xffffffff, 4) + QByteArray(20, 'x');
    ASSERT_EQ(wave(riff(chunk("ds64", longSizes) + chunk("fmt ", stereo) + data, "RF64")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 2);
}

TEST_F(Layout, Rf64BeyondFourGigabytesIsReadToItsEnd)
{
    constexpr int64_t dataBytes = int64_t(5) << 30;
    const auto longSizes = littleEndian(dataBytes + 72, 8) + littleEndian(dataBytes, 8) +
                           littleEndian(dataBytes / 4, 8) + littleEndian(0, 4);
    const auto path = writeFile(
        folder_.filePath(u"big"_s),
        riff(chunk("ds64", longSizes) + chunk("fmt ", stereo) + "data" + littleEndian(0xffffffff, 4), "RF64"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.resize(file.size() + dataBytes)); // a hole: no room on the disk is taken
    ASSERT_EQ(readWaveLayout(file, layout_), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, dataBytes / 4);
}

TEST_F(Layout, StreamedWaveGoesToTheEndOfTheFile)
{
    const auto body = chunk("fmt ", stereo) + "data" + littleEndian(0xffffffff, 4) + QByteArray(40, 'x');
    ASSERT_EQ(wave(riff(body)), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 10);
    const auto unfinished = chunk("fmt ", stereo) + "data" + littleEndian(0, 4) + QByteArray(40, 'x');
    ASSERT_EQ(wave("RIFF" + littleEndian(0, 4) + "WAVE" + unfinished), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 10);
}

TEST_F(Layout, EmptyWaveWithAFinishedHeaderHasNoFrames)
{
    for (const auto& behind : {QByteArray(), chunk("LIST", "some text")}) {
        ASSERT_EQ(wave(riff(chunk("fmt ", stereo) + chunk("data", "") + behind)), audioStatus::Ok);
        EXPECT_EQ(layout_.frames, 0);
    }
}

TEST_F(Layout, WaveOfARecorderThatCrashedGoesToTheEndOfTheFile)
{
    const auto header = chunk("fmt ", stereo) + "data" + littleEndian(0, 4);
    const auto chunkBeyondTheEnd = "LIST" + littleEndian(33, 4) + QByteArray(32, 'x');
    const auto chunkWithoutAName = "ab\x1f"
                                   "d" +
                                   littleEndian(32, 4) + QByteArray(32, 'x');
    for (const auto& samples : {QByteArray(40, 'x'), QByteArray(40, '\0'), chunkBeyondTheEnd, chunkWithoutAName}) {
        for (const uint64_t riffSize : {36, 1000})
            ASSERT_EQ(wave("RIFF" + littleEndian(riffSize, 4) + "WAVE" + header + samples), audioStatus::Ok);
        EXPECT_EQ(layout_.frames, 10);
    }
    ASSERT_EQ(wave(riff(header + "LIS")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 0);
}

TEST_F(Layout, Rf64OfARecorderThatCrashedGoesToTheEndOfTheFile)
{
    const auto header =
        chunk("ds64", QByteArray(28, '\0')) + chunk("fmt ", stereo) + "data" + littleEndian(0xffffffff, 4);
    ASSERT_EQ(wave(riff(header + QByteArray(40, 'x'), "RF64")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 10);
    ASSERT_EQ(wave(riff(header + chunk("LIST", "some text"), "RF64")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 0);
}

TEST_F(Layout, FewerBitsThanTheirBytesHoldStandAtTheHighEnd)
{
    ASSERT_EQ(wave(riff(chunk("fmt ", extensibleFormat(2, 8, 32, 24, 1)) + chunk("data", QByteArray(16, 'x')))),
              audioStatus::Ok);
    EXPECT_EQ(layout_.format.bitsPerChannel, 24u);
    EXPECT_EQ(layout_.format.bytesPerFrame, 8u);
    EXPECT_EQ(layout_.format.formatFlags, pcmFlag::SignedInteger | pcmFlag::AlignedHigh);
}

TEST_F(Layout, LengthOfACutFileIsWhatIsThere)
{
    auto bytes = riff(chunk("fmt ", stereo) + chunk("data", QByteArray(400, 'x')));
    bytes.chop(399);
    ASSERT_EQ(wave(bytes), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 0);
    bytes += QByteArray(10, 'x');
    ASSERT_EQ(wave(bytes), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 2); // eleven bytes
}

TEST_F(Layout, WaveHeadersThatContradictThemselvesAreRefused)
{
    const auto data = chunk("data", QByteArray(16, 'x'));
    const QByteArray bad[] = {
        plainFormat(1, 0, 44100, 4, 16),
        plainFormat(1, 2, 44100, 0, 16),
        plainFormat(1, 2, 44100, 3, 16),
        plainFormat(1, 2, 0, 4, 16),
        plainFormat(1, 2, 44100, 4, 17),
        plainFormat(1, 2, 44100, 4, 65535),
        plainFormat(1, 65535, 44100, 65535, 8),
        plainFormat(1, 2, 0xffffffff, 4, 16),
        stereo.left(10),
        QByteArray(),
    };
    for (const auto& format : bad)
        EXPECT_EQ(wave(riff(chunk("fmt ", format) + data)), audioStatus::InvalidFile);
    EXPECT_EQ(wave(riff(data)), audioStatus::InvalidFile);
    EXPECT_EQ(wave(riff(chunk("fmt ", stereo))), audioStatus::InvalidFile);
    EXPECT_EQ(wave(riff(chunk("fmt ", plainFormat(2, 2, 44100, 4, 4)) + data)), audioStatus::UnsupportedFormat);
}

TEST_F(Layout, EndlessEmptyChunksEndInAStatus)
{
    EXPECT_EQ(wave("RIFF....WAVE" + QByteArray(8 << 16, '\0')), audioStatus::InvalidFile);
    EXPECT_EQ(aiff("FORM....AIFF" + QByteArray(8 << 16, '\0')), audioStatus::InvalidFile);
}

TEST_F(Layout, PlainAiff)
{
    const auto sound = bigChunk("SSND", QByteArray(8, '\0') + QByteArray(12, 'x'));
    ASSERT_EQ(aiff(form(bigChunk("COMM", commonBody(2, 3, 16)) + sound, "AIFF")), audioStatus::Ok);
    EXPECT_EQ(layout_.format, linearFormat(44100, 2, 16, pcmFlag::AiffData));
    EXPECT_EQ(layout_.frames, 3);
    EXPECT_EQ(layout_.dataOffset, 54);
}

TEST_F(Layout, AiffSamplesMayStandAheadOfTheirDescriptionAndBehindAGap)
{
    const auto sound = bigChunk("SSND", bigEndian(4, 4) + bigEndian(0, 4) + "gap!" + QByteArray(12, 'x'));
    ASSERT_EQ(aiff(form(sound + bigChunk("COMM", commonBody(2, 3, 16)), "AIFF")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 3);
    EXPECT_EQ(layout_.dataOffset, 32);
}

TEST_F(Layout, AiffLengthIsTheLeastOfWhatTheHeadersSayAndWhatIsThere)
{
    const auto sound = bigChunk("SSND", QByteArray(8, '\0') + QByteArray(12, 'x'));
    ASSERT_EQ(aiff(form(bigChunk("COMM", commonBody(2, 2, 16)) + sound, "AIFF")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 2);
    ASSERT_EQ(aiff(form(bigChunk("COMM", commonBody(2, 4000000000u, 16)) + sound, "AIFF")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 3);
    ASSERT_EQ(aiff(form(bigChunk("COMM", commonBody(2, 3, 16)) + sound, "AIFF").chopped(5)), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 1);
}

TEST_F(Layout, AiffOfNoFramesNeedsNoSamples)
{
    ASSERT_EQ(aiff(form(bigChunk("COMM", commonBody(1, 0, 16)), "AIFF")), audioStatus::Ok);
    EXPECT_EQ(layout_.frames, 0);
}

TEST_F(Layout, AifcTellsItsByteOrder)
{
    const auto sound = bigChunk("SSND", QByteArray(8, '\0') + QByteArray(12, 'x'));
    const std::pair<const char*, uint32_t> kinds[] = {{"NONE", 14}, {"twos", 14}, {"sowt", 12}, {"in24", 14},
                                                      {"42ni", 12}, {"fl32", 11}, {"raw ", 8}};
    for (const auto& [kind, flags] : kinds) {
        ASSERT_EQ(aiff(form(bigChunk("COMM", commonBody(1, 3, 16, kind)) + sound, "AIFC")), audioStatus::Ok) << kind;
        EXPECT_EQ(layout_.format.formatFlags, flags) << kind;
    }
    EXPECT_EQ(aiff(form(bigChunk("COMM", commonBody(1, 3, 16, "ima4")) + sound, "AIFC")),
              audioStatus::UnsupportedFormat);
    EXPECT_EQ(aiff(form(bigChunk("COMM", commonBody(1, 3, 16)) + sound, "AIFC")), audioStatus::InvalidFile);
}

TEST_F(Layout, AiffHeadersThatContradictThemselvesAreRefused)
{
    const auto sound = bigChunk("SSND", QByteArray(8, '\0') + QByteArray(12, 'x'));
    for (const auto& common : {commonBody(0, 3, 16), commonBody(2, 3, 0), commonBody(2, 3, 33), commonBody(999, 3, 16),
                               commonBody(2, 3, 16).left(17)})
        EXPECT_EQ(aiff(form(bigChunk("COMM", common) + sound, "AIFF")), audioStatus::InvalidFile);
    for (const char* rate : {"00000000000000000000", "7fffffffffffffffffff", "c00eac44000000000000"}) {
        auto common = commonBody(2, 3, 16);
        common.replace(8, 10, QByteArray::fromHex(rate));
        EXPECT_EQ(aiff(form(bigChunk("COMM", common) + sound, "AIFF")), audioStatus::InvalidFile) << rate;
    }
    EXPECT_EQ(aiff(form(sound, "AIFF")), audioStatus::InvalidFile);
}

TEST_F(Layout, OwnSampleMakersAgreeWithIndependentTools)
{
    const auto samples = makeSamples(44100, 2, 24, 500);
    const auto wavePath = writeFile(folder_.filePath(u"a.wav"_s), waveFile(samples));
    const auto aiffPath = writeFile(folder_.filePath(u"a.aiff"_s), aiffFile(samples));
    EXPECT_EQ(decodedByFfmpeg(wavePath, 24), samples.little);
    EXPECT_EQ(decodedByFfmpeg(aiffPath, 24), samples.little);
}

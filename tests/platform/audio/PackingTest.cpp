#include "platform/audio/PcmPacking.h"

#include "platform/audio/SampleConverter.h"

extern "C" {
#include <libavutil/samplefmt.h>
}

using namespace zolt;

namespace {

QByteArray unpacked(const PcmPacking& packing, const QByteArray& packed, int samples, int bytesPerSample)
{
    QByteArray result(samples * bytesPerSample, '\0');
    packing.unpack(reinterpret_cast<const uint8_t*>(packed.constData()), reinterpret_cast<uint8_t*>(result.data()),
                   samples);
    return result;
}

QByteArray packedAgain(const PcmPacking& packing, const QByteArray& samples, int count, int bytesPerSample)
{
    QByteArray result(count * bytesPerSample, '\0');
    packing.pack(reinterpret_cast<const uint8_t*>(samples.constData()), reinterpret_cast<uint8_t*>(result.data()),
                 count);
    return result;
}

} // namespace

TEST(Packing, TwentyFourBitsStandAtTheHighEnd)
{
    const auto little = PcmPacking::of(linearFormat(44100, 1, 24, pcmFlag::WaveData));
    const auto big = PcmPacking::of(linearFormat(44100, 1, 24, pcmFlag::AiffData));
    ASSERT_TRUE(little && big);
    EXPECT_EQ(little->sampleFormat(), AV_SAMPLE_FMT_S32);
    const auto packed = QByteArray::fromHex("010203fffe80");
    EXPECT_EQ(unpacked(*little, packed, 2, 4), QByteArray::fromHex("0001020300fffe80"));
    EXPECT_EQ(unpacked(*big, packed, 2, 4), QByteArray::fromHex("000302010080feff"));
}

TEST(Packing, EveryLinearFormatComesBackUnchanged)
{
    QByteArray bytes;
    for (int i = 0; i < 240; ++i)
        bytes += static_cast<char>(i * 37);
    for (const uint32_t bits : {8u, 16u, 24u, 32u})
        for (const uint32_t flags : {pcmFlag::WaveData, pcmFlag::AiffData}) {
            const auto packing = PcmPacking::of(linearFormat(44100, 1, bits, flags));
            ASSERT_TRUE(packing);
            const int count = static_cast<int>(bytes.size() / (bits / 8));
            const auto samples = unpacked(*packing, bytes, count, 4);
            EXPECT_EQ(packedAgain(*packing, samples, count, static_cast<int>(bits / 8)), bytes) << bits << ' ' << flags;
        }
}

TEST(Packing, SignedAndUnsignedBytesMeet)
{
    const auto signedBytes = PcmPacking::of(linearFormat(44100, 1, 8, pcmFlag::AiffData));
    const auto unsignedBytes = PcmPacking::of(linearFormat(44100, 1, 8, pcmFlag::Packed));
    ASSERT_TRUE(signedBytes && unsignedBytes);
    EXPECT_TRUE(unsignedBytes->isIdentity());
    EXPECT_EQ(signedBytes->sampleFormat(), unsignedBytes->sampleFormat());
    EXPECT_EQ(unpacked(*signedBytes, QByteArray::fromHex("80007f"), 3, 1), QByteArray::fromHex("0080ff"));
}

TEST(Packing, DescriptionsThatContradictThemselvesHaveNone)
{
    auto format = linearFormat(44100, 2, 16, pcmFlag::WaveData);
    EXPECT_TRUE(PcmPacking::of(format));
    format.bytesPerFrame = 6;
    EXPECT_FALSE(PcmPacking::of(format));
    EXPECT_FALSE(PcmPacking::of(linearFormat(44100, 2, 20, pcmFlag::WaveData))); // two bytes for twenty bits
    EXPECT_FALSE(PcmPacking::of(linearFormat(44100, 0, 16, pcmFlag::WaveData)));
    EXPECT_FALSE(PcmPacking::of({.formatId = formatId::AppleLossless, .channelsPerFrame = 2}));
    EXPECT_TRUE(PcmPacking::of(linearFormatInBytes(44100, 2, 20, 3, pcmFlag::SignedInteger)));
}

TEST(SampleConverter, EqualShapesPassBlocksThroughUntouched)
{
    SampleConverter converter;
    const SampleShape shape{AV_SAMPLE_FMT_S16, 44100};
    ASSERT_EQ(converter.open(shape, shape, 2), audioStatus::Ok);
    const uint8_t bytes[8] = {};
    const uint8_t* plane = bytes;
    SampleBlock out;
    ASSERT_EQ(converter.convert({.planes = &plane, .frames = 2}, out), audioStatus::Ok);
    EXPECT_EQ(out.planes, &plane);
    EXPECT_EQ(out.frames, 2);
    ASSERT_EQ(converter.flush(out), audioStatus::Ok);
    EXPECT_EQ(out.frames, 0);
}

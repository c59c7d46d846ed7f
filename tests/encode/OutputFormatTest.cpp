#include "encode/OutputFormat.h"

using namespace zolt;

namespace {

AudioFormat lossless(uint32_t flags, uint32_t bits)
{
    return {.sampleRate = 44100,
            .formatId = formatId::AppleLossless,
            .formatFlags = flags,
            .channelsPerFrame = 2,
            .bitsPerChannel = bits};
}

AudioFormat wave(uint32_t bits, double rate = 44100)
{
    return linearFormat(rate, 2, bits, pcmFlag::WaveData);
}

} // namespace

TEST(OutputFormat, LinearTargetsHaveTheFlagsOfTheirFile)
{
    const auto format = outputFormatFor(wave(24), formatId::LinearPcm, fileTypeId::Aiff);
    EXPECT_EQ(format.formatFlags, 14u);
    EXPECT_EQ(format.framesPerPacket, 1u);
    EXPECT_EQ(format.bytesPerPacket, 6u);
    EXPECT_EQ(format.bytesPerFrame, 6u);
    EXPECT_EQ(format.reserved, 0u);
    EXPECT_EQ(outputFormatFor(wave(24), formatId::LinearPcm, fileTypeId::Wave).formatFlags, 12u);
    EXPECT_EQ(outputFormatFor(wave(24), formatId::LinearPcm, fileTypeId::M4a).formatFlags, 0u);
}

TEST(OutputFormat, LosslessInputsKeepTheDepthThatTheirFlagsTell)
{
    for (const auto& [flags, bits] : {std::pair<uint32_t, uint32_t>{1, 16}, {2, 20}, {3, 24}, {4, 32}}) {
        EXPECT_EQ(outputFormatFor(lossless(flags, 0), formatId::LinearPcm, fileTypeId::Wave).bitsPerChannel, bits);
        EXPECT_EQ(outputFormatFor(lossless(flags, bits), formatId::AppleLossless, fileTypeId::M4a).bitsPerChannel,
                  bits);
    }
    EXPECT_EQ(outputFormatFor(lossless(9, 18), formatId::LinearPcm, fileTypeId::Wave).bitsPerChannel, 18u);
}

TEST(OutputFormat, TwentyBitsComeToTwoBytesASample)
{
    EXPECT_EQ(outputFormatFor(lossless(2, 20), formatId::LinearPcm, fileTypeId::Wave).bytesPerFrame, 4u);
}

TEST(OutputFormat, LosslessFlagsComeFromTheDepthAsRead)
{
    for (const auto& [bits, flags] :
         {std::pair<uint32_t, uint32_t>{16, 1}, {20, 2}, {24, 3}, {32, 4}, {8, 0}, {12, 0}}) {
        const auto format = outputFormatFor(wave(bits), formatId::AppleLossless, fileTypeId::M4a);
        EXPECT_EQ(format.formatFlags, flags) << bits;
        EXPECT_EQ(format.bitsPerChannel, bits);
        EXPECT_EQ(format.bytesPerFrame, 0u);
        EXPECT_EQ(format.framesPerPacket, 0u);
    }
    EXPECT_EQ(outputFormatFor(lossless(3, 0), formatId::AppleLossless, fileTypeId::M4a).formatFlags, 0u);
}

TEST(OutputFormat, AacHasNoDepthAndHalvesHighRates)
{
    const std::pair<double, double> rates[] = {{96000, 48000}, {192000, 48000}, {88200, 44100}, {176400, 44100},
                                               {48000, 48000}, {44100, 44100},  {64000, 64000}, {8000, 8000}};
    for (const auto& [input, aac] : rates) {
        const auto format = outputFormatFor(wave(24, input), formatId::Aac, fileTypeId::M4a);
        EXPECT_EQ(format.sampleRate, aac);
        EXPECT_EQ(format.bitsPerChannel, 0u);
        EXPECT_EQ(format.formatFlags, 0u);
    }
    EXPECT_EQ(outputFormatFor(wave(24, 96000), formatId::AppleLossless, fileTypeId::M4a).sampleRate, 96000);
}

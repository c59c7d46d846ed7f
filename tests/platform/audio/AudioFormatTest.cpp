#include "platform/audio/AudioStatus.h"

#include <cerrno>
#include <new>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(AudioFormat, CodesAreTheirCharactersInOrder)
{
    EXPECT_EQ(formatId::LinearPcm, 0x6c70636du);
    EXPECT_EQ(formatId::AppleLossless, 0x616c6163u);
    EXPECT_EQ(formatId::Aac, 0x61616320u);
    EXPECT_EQ(fileTypeId::Aiff, 0x41494646u);
    EXPECT_EQ(fileTypeId::Wave, 0x57415645u);
    EXPECT_EQ(fileTypeId::M4a, 0x6d346166u);
}

TEST(AudioFormat, FlagsOfWaveAndAiffData)
{
    EXPECT_EQ(pcmFlag::WaveData, 12u);
    EXPECT_EQ(pcmFlag::AiffData, 14u);
}

TEST(AudioFormat, TextOfACodeIsItsFourCharacters)
{
    EXPECT_EQ(fourCharText(fileTypeId::M4a), u"m4af"_s);
    EXPECT_EQ(fourCharText(formatId::Aac), u"aac "_s);
}

TEST(AudioFormat, TextOfACodeThatCannotBePrintedIsItsNumber)
{
    EXPECT_EQ(fourCharText(static_cast<uint32_t>(-43)), u"-43"_s);
    EXPECT_EQ(fourCharText(0), u"0"_s);
}

TEST(AudioFormat, LosslessFlagsStandForFourDepths)
{
    const std::pair<uint32_t, uint32_t> pairs[] = {{16, 1}, {20, 2}, {24, 3}, {32, 4}};
    for (const auto& [depth, flags] : pairs) {
        EXPECT_EQ(appleLosslessFlags(depth), flags);
        EXPECT_EQ(appleLosslessDepth(flags), depth);
    }
    EXPECT_EQ(appleLosslessFlags(8), 0u);
    EXPECT_EQ(appleLosslessFlags(0), 0u);
    EXPECT_EQ(appleLosslessDepth(0), 0u);
    EXPECT_EQ(appleLosslessDepth(5), 0u);
}

TEST(AudioFormat, OddDepthsInWiderSamplesAreAlignedHigh)
{
    const auto format = linearFormatInBytes(44100, 2, 20, 3, pcmFlag::SignedInteger);
    EXPECT_EQ(format.formatFlags, pcmFlag::SignedInteger | pcmFlag::AlignedHigh);
    EXPECT_EQ(format.bitsPerChannel, 20u);
    EXPECT_EQ(format.bytesPerFrame, 6u);
    EXPECT_EQ(format.bytesPerPacket, 6u);
    EXPECT_EQ(format.framesPerPacket, 1u);
}

TEST(AudioStatus, EveryCodePrintsAsItsCharacters)
{
    EXPECT_EQ(audioStatusText(audioStatus::UnsupportedFormat), u"fmt?"_s);
    EXPECT_EQ(audioStatusText(audioStatus::UnsupportedFileType), u"typ?"_s);
    EXPECT_EQ(audioStatusText(audioStatus::FileInUse), u"use!"_s);
}

TEST(AudioStatus, SystemErrorsHaveTheirOwnCodes)
{
    EXPECT_EQ(audioStatusFromErrno(ENOENT), audioStatus::NotFound);
    EXPECT_EQ(audioStatusFromErrno(EACCES), audioStatus::NotPermitted);
    EXPECT_EQ(audioStatusFromErrno(ENOSPC), audioStatus::DiskFull);
    EXPECT_EQ(audioStatusFromErrno(EIO), audioStatus::InputOutput);
    EXPECT_EQ(audioStatusFromErrno(0), audioStatus::InputOutput);
    EXPECT_EQ(audioStatusFromCodecError(-ENOSPC), audioStatus::DiskFull);
}

TEST(AudioStatus, WhatIsThrownInsideBecomesAStatus)
{
    EXPECT_EQ(audioGuarded([]() -> AudioStatus { throw std::bad_alloc(); }), audioStatus::OutOfMemory);
    EXPECT_EQ(audioGuarded([]() -> AudioStatus { throw std::runtime_error("x"); }), audioStatus::InputOutput);
    EXPECT_EQ(audioGuarded([] { return audioStatus::InvalidFile; }), audioStatus::InvalidFile);
}

#include "platform/audio/PcmPacking.h"

#include <QtEndian>

#include <cstring>

extern "C" {
#include <libavutil/samplefmt.h>
}

namespace zolt {

namespace {

using Transfer = void (*)(const uint8_t*, uint8_t*, int64_t);

/// Signed to unsigned bytes and back: both turn the highest bit.
void turnSign(const uint8_t* from, uint8_t* to, int64_t samples)
{
    for (int64_t i = 0; i < samples; ++i)
        to[i] = from[i] ^ 0x80;
}

template <size_t bytes> void swapBytes(const uint8_t* from, uint8_t* to, int64_t samples)
{
    qbswap<bytes>(from, samples, to);
}

template <int low, int high> void unpack24(const uint8_t* from, uint8_t* to, int64_t samples)
{
    for (int64_t i = 0; i < samples; ++i, from += 3, to += 4) {
        const uint32_t value = uint32_t(from[low]) << 8 | uint32_t(from[1]) << 16 | uint32_t(from[high]) << 24;
        std::memcpy(to, &value, sizeof value);
    }
}

template <int low, int high> void pack24(const uint8_t* from, uint8_t* to, int64_t samples)
{
    for (int64_t i = 0; i < samples; ++i, from += 4, to += 3) {
        uint32_t value = 0;
        std::memcpy(&value, from, sizeof value);
        to[low] = value >> 8 & 0xff;
        to[1] = value >> 16 & 0xff;
        to[high] = value >> 24;
    }
}

struct Row
{
    uint32_t bytes;
    uint32_t kind; ///< Float and SignedInteger of pcmFlag
    AVSampleFormat sampleFormat;
    Transfer unpackLittle, packLittle;
    Transfer unpackBig, packBig;
};

constexpr uint32_t kindFlags = pcmFlag::Float | pcmFlag::SignedInteger;

constexpr Row rows[] = {
    {1, 0, AV_SAMPLE_FMT_U8, nullptr, nullptr, nullptr, nullptr},
    {1, pcmFlag::SignedInteger, AV_SAMPLE_FMT_U8, turnSign, turnSign, turnSign, turnSign},
    {2, pcmFlag::SignedInteger, AV_SAMPLE_FMT_S16, nullptr, nullptr, swapBytes<2>, swapBytes<2>},
    {3, pcmFlag::SignedInteger, AV_SAMPLE_FMT_S32, unpack24<0, 2>, pack24<0, 2>, unpack24<2, 0>, pack24<2, 0>},
    {4, pcmFlag::SignedInteger, AV_SAMPLE_FMT_S32, nullptr, nullptr, swapBytes<4>, swapBytes<4>},
    {4, pcmFlag::Float, AV_SAMPLE_FMT_FLT, nullptr, nullptr, swapBytes<4>, swapBytes<4>},
    {8, pcmFlag::Float, AV_SAMPLE_FMT_DBL, nullptr, nullptr, swapBytes<8>, swapBytes<8>},
};

/// True if the description's numbers fit each other and the depth fits the bytes.
bool isConsistent(const AudioFormat& format)
{
    const uint32_t channels = format.channelsPerFrame;
    if (!format.isLinear() || !channels || format.bytesPerFrame % channels) return false;
    const uint32_t bytes = format.bytesPerFrame / channels;
    const bool packed = format.formatFlags & pcmFlag::Packed;
    const bool alignedHigh = format.formatFlags & pcmFlag::AlignedHigh;
    return packed ? format.bitsPerChannel == bytes * 8
                  : alignedHigh && format.bitsPerChannel && format.bitsPerChannel < bytes * 8;
}

} // namespace

std::optional<PcmPacking> PcmPacking::of(const AudioFormat& format)
{
    if (!isConsistent(format)) return std::nullopt;
    const bool big = format.formatFlags & pcmFlag::BigEndian;
    for (const auto& row : rows) {
        if (row.bytes * format.channelsPerFrame != format.bytesPerFrame || row.kind != (format.formatFlags & kindFlags))
            continue;
        PcmPacking packing;
        packing.sampleFormat_ = row.sampleFormat;
        packing.sampleBytes_ = row.bytes == 3 ? 4 : row.bytes;
        packing.unpack_ = big ? row.unpackBig : row.unpackLittle;
        packing.pack_ = big ? row.packBig : row.packLittle;
        return packing;
    }
    return std::nullopt;
}

void PcmPacking::unpack(const uint8_t* packed, uint8_t* samplesOut, int64_t samples) const
{
    if (unpack_)
        unpack_(packed, samplesOut, samples);
    else
        std::memcpy(samplesOut, packed, static_cast<size_t>(samples * sampleBytes_));
}

void PcmPacking::pack(const uint8_t* samplesIn, uint8_t* packed, int64_t samples) const
{
    if (pack_)
        pack_(samplesIn, packed, samples);
    else
        std::memcpy(packed, samplesIn, static_cast<size_t>(samples * sampleBytes_));
}

} // namespace zolt

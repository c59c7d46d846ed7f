// How linear samples lie in a file or in a caller's buffer, and the way from there to a sample format that the codec
// libraries compute with, and back. Whole numbers come through unchanged in both directions.
#pragma once

#include "platform/audio/AudioFormat.h"

#include <optional>

namespace zolt {

/// One way of packing samples. A value; any thread.
class PcmPacking
{
public:
    /// The packing that the format describes; nothing if it is not linear, or of a kind that cannot be converted.
    static std::optional<PcmPacking> of(const AudioFormat& format);

    /// The interleaved AVSampleFormat of unpacked samples. Depths between two formats stand at the high end.
    int sampleFormat() const { return sampleFormat_; }
    /// Bytes of one unpacked sample.
    int64_t sampleBytes() const { return sampleBytes_; }
    /// True if packed and unpacked samples are the same bytes.
    bool isIdentity() const { return unpack_ == nullptr; }

    /// Packed bytes to samples. The buffers may not overlap.
    /// @param samples counted over all channels
    void unpack(const uint8_t* packed, uint8_t* samplesOut, int64_t samples) const;
    /// Samples to packed bytes.
    void pack(const uint8_t* samplesIn, uint8_t* packed, int64_t samples) const;

private:
    using Transfer = void (*)(const uint8_t* from, uint8_t* to, int64_t samples);
    int sampleFormat_ = -1;
    int64_t sampleBytes_ = 0;
    Transfer unpack_ = nullptr;
    Transfer pack_ = nullptr;
};

} // namespace zolt

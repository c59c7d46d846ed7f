// What samples look like: interleaved, little-endian; 8 bits without a sign, more with one.
#pragma once

#include <cstdint>

namespace zolt::companion {

struct PcmFormat
{
    unsigned channels = 0;
    unsigned rate = 0; ///< Hz
    unsigned bits = 0; ///< 8, 16 or 24

    unsigned sampleBytes() const { return bits / 8; }
    unsigned frameBytes() const { return channels * sampleBytes(); }

    bool operator==(const PcmFormat&) const = default;
};

} // namespace zolt::companion

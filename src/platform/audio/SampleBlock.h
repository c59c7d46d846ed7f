// A stretch of samples on its way between a file and its reader or writer.
#pragma once

#include <cstdint>

namespace zolt {

/// Samples in one of the codec libraries' sample formats, interleaved or planar. Borrowed from whoever made it, valid
/// until its next call.
struct SampleBlock
{
    const uint8_t* const* planes = nullptr; ///< one per channel if planar, else one
    int frames = 0;                         ///< 0 at the end
};

/// Linear samples are unpacked in blocks of this many frames.
constexpr int64_t framesPerBlock = 4096;
/// No sample format is wider, in bytes.
constexpr int64_t widestSample = 8;

} // namespace zolt

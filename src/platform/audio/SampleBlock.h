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

} // namespace zolt

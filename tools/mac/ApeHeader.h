// What a Monkey's Audio file says of itself, as far as FFmpeg does not tell.
#pragma once

#include "audio/ByteSource.h"
#include "codec/Checksums.h"

#include <optional>

namespace zolt::companion {

struct ApeHeader
{
    unsigned version = 0;        ///< 3990 is 3.99
    std::optional<Md5::Sum> sum; ///< over the file's content; files before 3.98 have none
    Bytes information, table;    ///< the header proper and the places of the frames, as they stand in the file
    Bytes wavHeader;             ///< what stood ahead of the samples; empty where it was not kept
    std::uint64_t frameBytes = 0, trailerBytes = 0;

    /// Files before 3.90 sum up their frames in a way of their own.
    bool hasFrameSums() const { return version >= 3900; }
};

/// Reads over a tag and up to the frames; of a file before 3.98 the version alone.
/// @throws Failure (Format; Read where the file is cut)
ApeHeader readApeHeader(ByteSource& source);

/// What follows the header.
struct ApeContent
{
    bool matchesSum = true; ///< also for a file that has none
    Bytes wavTrailer;       ///< what stood behind the samples
};

/// Reads what follows the header to the end, to find whether it is what was written.
/// @throws Failure (Read) where the file is cut
ApeContent readApeContent(ByteSource& source, const ApeHeader& header);

} // namespace zolt::companion

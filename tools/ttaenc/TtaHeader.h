// What stands ahead of the frames of a TTA file.
#pragma once

#include "audio/ByteSource.h"
#include "audio/PcmFormat.h"

namespace zolt::companion {

/// Bytes of the header, its checksum among them.
constexpr std::size_t ttaHeaderBytes = 22;

struct TtaHeader
{
    PcmFormat format;
    std::uint32_t samples = 0; ///< a channel

    /// How many samples a channel every frame but the last one has.
    std::uint32_t frameSamples() const { return std::uint32_t(256ull * format.rate / 245); }
    std::uint32_t frames() const
    {
        return std::uint32_t((std::uint64_t(samples) + frameSamples() - 1) / frameSamples());
    }
    /// The length of a frame, counted from 0.
    std::uint32_t samplesOf(std::uint32_t frame) const;
};

/// Whether the source starts like a TTA file, also behind a tag. Nothing is read.
bool looksLikeTta(ByteSource& source);

/// The bytes of a header, with its checksum.
Bytes ttaHeaderBytesOf(const TtaHeader& header);

/// Reads over a tag and the header.
/// @throws Failure (Format, Checksum or Read)
TtaHeader readTtaHeader(ByteSource& source);

/// Reads the lengths of the frames in bytes.
/// @throws Failure (Checksum or Read)
std::vector<std::uint32_t> readTtaTable(ByteSource& source, const TtaHeader& header);

/// The bytes of that table, with its checksum.
Bytes ttaTableBytes(const std::vector<std::uint32_t>& lengths);

} // namespace zolt::companion

// Reads WAV files, keeping what stands around their samples.
#pragma once

#include "audio/ByteSource.h"
#include "audio/PcmFormat.h"

namespace zolt::companion {

class WavReader
{
public:
    /// Reads up to the first sample.
    /// @param source  outlives this object
    /// @throws Failure (Format) if it is no WAV file or its samples are none of PcmFormat
    explicit WavReader(ByteSource& source);

    const PcmFormat& format() const { return format_; }

    /// Every byte ahead of the samples.
    const Bytes& header() const { return header_; }

    /// Length of the samples; nothing where the header leaves it open, as pipes do.
    std::optional<std::uint64_t> dataBytes() const { return dataBytes_; }

    /// The next samples; fewer bytes than asked for only at their end.
    /// @throws Failure (Read) where the file ends before its samples do
    std::size_t read(std::uint8_t* to, std::size_t count);

    /// What follows the samples, at most `most` bytes of it. Only once all of them were read.
    Bytes trailer(std::size_t most);

private:
    void readChunks();
    bool readChunk();
    void readFormat(const std::uint8_t* chunk, std::size_t size);
    void append(std::size_t count);
    [[noreturn]] void refuse(const std::string& why) const;

    ByteSource& source_;
    PcmFormat format_;
    Bytes header_;
    std::optional<std::uint64_t> dataBytes_;
    std::uint64_t read_ = 0;
};

} // namespace zolt::companion

// Reads the frames of a TTA file, each checked.
#pragma once

#include "codec/CodecDecoder.h"
#include "ttaenc/TtaHeader.h"

namespace zolt::companion {

class TtaReader
{
public:
    /// @param source  outlives this object
    /// @throws Failure
    explicit TtaReader(ByteSource& source);

    const TtaHeader& header() const { return header_; }
    bool atEnd() const { return next_ == lengths_.size(); }

    /// Takes the samples of the next frame; of one that is damaged, as much silence.
    /// @return whether the frame is as it was written
    /// @throws Failure (Read) where the file is cut
    bool read(Bytes& samples);

private:
    bool decode(Bytes data, std::size_t expected, Bytes& samples);

    ByteSource& source_;
    TtaHeader header_;
    std::vector<std::uint32_t> lengths_;
    std::uint32_t next_ = 0;
    CodecDecoder decoder_;
    std::unique_ptr<AVPacket, FreeCodec> packet_;
};

} // namespace zolt::companion

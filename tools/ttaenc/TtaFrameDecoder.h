// Decodes single frames of a TTA file, each checked.
#pragma once

#include "codec/CodecDecoder.h"
#include "ttaenc/TtaHeader.h"

namespace zolt::companion {

/// Frames do not depend on each other: several of these decode one file. Used by one thread at a time.
class TtaFrameDecoder
{
public:
    /// @param name  the source, for messages
    /// @throws std::bad_alloc, Failure (Format) where the codec does not take such audio
    TtaFrameDecoder(const TtaHeader& header, const std::string& name);

    /// @param data     the frame's bytes, its checksum among them; room for the codec is added behind them
    /// @param length   how many samples a channel the frame has to have
    /// @param samples  takes them; of a frame that is damaged, as much silence
    /// @return whether the frame is as it was written
    bool decode(Bytes& data, std::uint32_t length, Bytes& samples);

private:
    bool decodeWhole(Bytes& data, std::size_t expected, Bytes& samples);

    PcmFormat format_;
    CodecDecoder decoder_;
    std::unique_ptr<AVPacket, FreeCodec> packet_;
};

} // namespace zolt::companion

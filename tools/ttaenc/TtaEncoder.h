// Compresses samples to TTA frames with FFmpeg.
#pragma once

#include "codec/CodecDecoder.h"

namespace zolt::companion {

class TtaEncoder
{
public:
    /// @throws std::bad_alloc, Failure (Format) where the codec does not take the samples
    TtaEncoder(const PcmFormat& format, const std::string& name);

    /// @param samples  of one whole frame; fewer only of the last
    /// @return the frame with its checksum; stands until the next call
    const AVPacket& encode(const std::uint8_t* samples, std::uint32_t count);

private:
    void makeFrame(std::uint32_t count);

    PcmFormat format_;
    std::string name_;
    std::unique_ptr<AVCodecContext, FreeCodec> codec_;
    std::unique_ptr<AVFrame, FreeCodec> frame_;
    std::unique_ptr<AVPacket, FreeCodec> packet_;
};

} // namespace zolt::companion

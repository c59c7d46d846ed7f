// Takes the frames out of a Monkey's Audio file with FFmpeg.
#pragma once

#include "audio/PcmFormat.h"
#include "codec/CodecDecoder.h"

extern "C" {
#include <libavformat/avformat.h>
}

namespace zolt::companion {

class ApeDemuxer
{
public:
    /// @throws Failure (Format)
    explicit ApeDemuxer(const std::string& path);

    PcmFormat format() const;
    const AVCodecParameters& parameters() const { return *stream().codecpar; }

    /// Samples a channel that the header announces.
    std::uint64_t samples() const { return std::uint64_t(stream().duration); }

    /// The next frame as the codec takes it; stands until the next call. Null at the end and where the file is cut.
    const AVPacket* next();

private:
    const AVStream& stream() const { return *file_->streams[0]; }

    struct Close
    {
        void operator()(AVFormatContext* file) const { avformat_close_input(&file); }
    };
    std::unique_ptr<AVFormatContext, Close> file_;
    std::unique_ptr<AVPacket, FreeCodec> packet_;
};

} // namespace zolt::companion

// Decodes the packets of one file with FFmpeg.
#pragma once

#include "audio/Bytes.h"
#include "audio/PcmFormat.h"

#include <memory>
#include <new>
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace zolt::companion {

/// What FFmpeg's objects are freed with.
struct FreeCodec
{
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

class CodecDecoder
{
public:
    enum class Sums {
        Checked,      ///< the codec checks every checksum that it knows
        CheckedBefore ///< whoever hands packets over has done so
    };
    /// @param parameters  a copy is made
    /// @throws std::bad_alloc, Failure (Format) where the codec does not take them
    CodecDecoder(const AVCodecParameters& parameters, const PcmFormat& format, const std::string& name,
                 Sums sums = Sums::Checked);

    /// Appends the samples of one packet.
    /// @return false if the codec found the packet damaged; what it gave before stands in `samples`
    bool decode(const AVPacket& packet, Bytes& samples);

private:
    bool receive(Bytes& samples);

    std::unique_ptr<AVCodecContext, FreeCodec> codec_;
    std::unique_ptr<AVFrame, FreeCodec> frame_;
    PcmFormat format_;
};

/// Throws std::bad_alloc for an empty pointer.
template <class Pointer> Pointer made(Pointer pointer)
{
    if (!pointer) throw std::bad_alloc();
    return pointer;
}

} // namespace zolt::companion

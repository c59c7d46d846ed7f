#include "codec/CodecDecoder.h"

#include "audio/Failure.h"
#include "codec/Samples.h"

namespace zolt::companion {

CodecDecoder::CodecDecoder(const AVCodecParameters& parameters, const PcmFormat& format, const std::string& name,
                           Sums sums)
    : codec_(made(avcodec_alloc_context3(nullptr))), frame_(made(av_frame_alloc())), format_(format)
{
    av_log_set_level(AV_LOG_QUIET); // its words are for its own readers
    if (avcodec_parameters_to_context(codec_.get(), &parameters) < 0) throw std::bad_alloc();
    codec_->err_recognition = sums == Sums::Checked ? AV_EF_CRCCHECK | AV_EF_EXPLODE : AV_EF_EXPLODE;
    codec_->thread_count = 1;
    if (avcodec_open2(codec_.get(), avcodec_find_decoder(parameters.codec_id), nullptr) < 0) {
        throw Failure(Fault::Format, name + ": is of a kind that cannot be decoded");
    }
}

bool CodecDecoder::decode(const AVPacket& packet, Bytes& samples)
{
    if (avcodec_send_packet(codec_.get(), &packet) == 0 && receive(samples)) return true;
    avcodec_flush_buffers(codec_.get()); // so that the next packet is met afresh
    return false;
}

bool CodecDecoder::receive(Bytes& samples)
{
    int status;
    while ((status = avcodec_receive_frame(codec_.get(), frame_.get())) == 0) {
        if (frame_->ch_layout.nb_channels != int(format_.channels)) return false;
        appendSamples(samples, *frame_, format_);
    }
    return status == AVERROR(EAGAIN);
}

} // namespace zolt::companion

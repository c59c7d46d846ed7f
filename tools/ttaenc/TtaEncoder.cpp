#include "ttaenc/TtaEncoder.h"

#include "audio/Failure.h"
#include "codec/Samples.h"

extern "C" {
#include <libavutil/channel_layout.h>
}

namespace zolt::companion {

namespace {

AVSampleFormat sampleFormat(const PcmFormat& format)
{
    if (format.bits == 8) return AV_SAMPLE_FMT_U8;
    return format.bits == 16 ? AV_SAMPLE_FMT_S16 : AV_SAMPLE_FMT_S32;
}

} // namespace

TtaEncoder::TtaEncoder(const PcmFormat& format, const std::string& name)
    : format_(format), name_(name), frame_(made(av_frame_alloc())), packet_(made(av_packet_alloc()))
{
    av_log_set_level(AV_LOG_QUIET);
    const AVCodec* const codec = avcodec_find_encoder(AV_CODEC_ID_TTA);
    codec_.reset(made(avcodec_alloc_context3(codec)));
    codec_->sample_fmt = sampleFormat(format_);
    codec_->bits_per_raw_sample = int(format_.bits);
    codec_->sample_rate = int(format_.rate);
    av_channel_layout_default(&codec_->ch_layout, int(format_.channels));
    codec_->thread_count = 1;
    if (!codec || avcodec_open2(codec_.get(), codec, nullptr) < 0) {
        throw Failure(Fault::Format, name_ + ": its samples cannot be put into a TTA file");
    }
}

void TtaEncoder::makeFrame(std::uint32_t count)
{
    av_frame_unref(frame_.get());
    frame_->format = codec_->sample_fmt;
    frame_->ch_layout = codec_->ch_layout; // of the kind that owns no memory
    frame_->sample_rate = codec_->sample_rate;
    frame_->nb_samples = int(count);
    if (av_frame_get_buffer(frame_.get(), 0) < 0) throw std::bad_alloc();
}

const AVPacket& TtaEncoder::encode(const std::uint8_t* samples, std::uint32_t count)
{
    makeFrame(count);
    fillFrame(*frame_, samples, format_);
    av_packet_unref(packet_.get());
    if (avcodec_send_frame(codec_.get(), frame_.get()) < 0 || avcodec_receive_packet(codec_.get(), packet_.get()) < 0) {
        throw Failure(Fault::Format, name_ + ": its samples cannot be put into a TTA file");
    }
    return *packet_;
}

} // namespace zolt::companion

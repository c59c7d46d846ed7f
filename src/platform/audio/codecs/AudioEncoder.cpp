#include "platform/audio/codecs/AudioEncoder.h"

#include "platform/audio/codecs/CodecLibraries.h"

namespace zolt {

namespace {

/// Speakers by the number of channels, as both encoders know them.
constexpr uint64_t speakers[] = {
    AV_CH_LAYOUT_MONO,         AV_CH_LAYOUT_STEREO,       AV_CH_LAYOUT_SURROUND,     AV_CH_LAYOUT_4POINT0,
    AV_CH_LAYOUT_5POINT0_BACK, AV_CH_LAYOUT_5POINT1_BACK, AV_CH_LAYOUT_6POINT1_BACK, AV_CH_LAYOUT_7POINT1_WIDE_BACK,
};

bool hasRate(const AVCodec& codec, int rate)
{
    if (!codec.supported_samplerates) return true;
    for (const int* known = codec.supported_samplerates; *known; ++known)
        if (*known == rate) return true;
    return false;
}

/// How deep the encoder stores a depth: it knows two, and 20 bits fit into the deeper one. 0 for a depth that it would
/// alter.
uint32_t storedDepth(const AudioFormat& format)
{
    const uint32_t depth = appleLosslessDepth(format.formatFlags);
    if (format.bitsPerChannel && format.bitsPerChannel != depth) return 0;
    return depth == 20 ? 24 : depth == 32 ? 0 : depth;
}

AVSampleFormat losslessSamples(const AudioFormat& format)
{
    const uint32_t depth = storedDepth(format);
    if (!depth) return AV_SAMPLE_FMT_NONE;
    return depth == 16 ? AV_SAMPLE_FMT_S16P : AV_SAMPLE_FMT_S32P;
}

const AVCodec* encoderFor(uint32_t format)
{
    if (format == formatId::AppleLossless) return avcodec_find_encoder(AV_CODEC_ID_ALAC);
    return format == formatId::Aac ? bestAacEncoder() : nullptr;
}

bool isLossless(const AudioFormat& format)
{
    return format.formatId == formatId::AppleLossless;
}

void describe(const AudioFormat& format, AVSampleFormat samples, AVCodecContext& encoder)
{
    const auto rate = static_cast<int>(format.sampleRate);
    encoder.sample_fmt = samples;
    encoder.sample_rate = rate;
    encoder.time_base = {1, rate};
    encoder.thread_count = 1; // files run side by side already
    encoder.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    if (isLossless(format)) encoder.bits_per_raw_sample = static_cast<int>(storedDepth(format));
    av_channel_layout_from_mask(&encoder.ch_layout, speakers[format.channelsPerFrame - 1]);
}

} // namespace

AudioStatus AudioEncoder::open(const AudioFormat& format, const EncoderSettings& settings)
{
    prepareCodecLibraries();
    const AVCodec* codec = encoderFor(format.formatId);
    const uint32_t channels = format.channelsPerFrame;
    const auto rate = static_cast<int>(format.sampleRate);
    if (!codec || !hasRate(*codec, rate) || channels < 1 || channels > std::size(speakers))
        return audioStatus::UnsupportedFormat;
    const auto samples = isLossless(format) ? losslessSamples(format) : codec->sample_fmts[0];
    if (samples == AV_SAMPLE_FMT_NONE) return audioStatus::UnsupportedFormat;

    encoder_ = ownedHandle(avcodec_alloc_context3(codec));
    describe(format, samples, *encoder_);
    applySettings(settings, *encoder_);
    if (avcodec_open2(encoder_.get(), codec, nullptr) < 0) return audioStatus::UnsupportedFormat;
    fifo_ = ownedHandle(av_audio_fifo_alloc(samples, static_cast<int>(channels), encoder_->frame_size));
    packet_ = ownedHandle(av_packet_alloc());
    return makeFrame();
}

AudioStatus AudioEncoder::makeFrame()
{
    frame_ = ownedHandle(av_frame_alloc());
    frame_->format = encoder_->sample_fmt;
    frame_->sample_rate = encoder_->sample_rate;
    frame_->nb_samples = encoder_->frame_size;
    av_channel_layout_copy(&frame_->ch_layout, &encoder_->ch_layout);
    return av_frame_get_buffer(frame_.get(), 0) < 0 ? audioStatus::OutOfMemory : audioStatus::Ok;
}

AudioStatus AudioEncoder::write(const SampleBlock& block, const PacketTaker& take)
{
    auto** planes = reinterpret_cast<void**>(const_cast<uint8_t**>(block.planes));
    if (av_audio_fifo_write(fifo_.get(), planes, block.frames) < block.frames) return audioStatus::OutOfMemory;
    while (av_audio_fifo_size(fifo_.get()) >= encoder_->frame_size)
        if (const auto status = encodeFrame(encoder_->frame_size, take)) return status;
    return audioStatus::Ok;
}

AudioStatus AudioEncoder::finish(const PacketTaker& take)
{
    const int rest = av_audio_fifo_size(fifo_.get());
    if (rest > 0)
        if (const auto status = encodeFrame(rest, take)) return status;
    const int result = avcodec_send_frame(encoder_.get(), nullptr);
    return result < 0 ? audioStatusFromCodecError(result) : drain(take);
}

AudioStatus AudioEncoder::encodeFrame(int frames, const PacketTaker& take)
{
    if (av_frame_make_writable(frame_.get()) < 0) return audioStatus::OutOfMemory;
    frame_->nb_samples = frames;
    frame_->pts = framesTaken_;
    av_audio_fifo_read(fifo_.get(), reinterpret_cast<void**>(frame_->extended_data), frames);
    framesTaken_ += frames;
    const int result = avcodec_send_frame(encoder_.get(), frame_.get());
    return result < 0 ? audioStatusFromCodecError(result) : drain(take);
}

AudioStatus AudioEncoder::drain(const PacketTaker& take)
{
    for (;;) {
        const int result = avcodec_receive_packet(encoder_.get(), packet_.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return audioStatus::Ok;
        if (result < 0) return audioStatusFromCodecError(result);
        const auto status = take(*packet_);
        av_packet_unref(packet_.get());
        if (status) return status;
    }
}

} // namespace zolt

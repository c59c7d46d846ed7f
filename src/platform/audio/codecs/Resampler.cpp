#include "platform/audio/codecs/Resampler.h"

extern "C" {
#include <libavutil/opt.h>
}

namespace zolt {

namespace {

/// Bits of precision of a change of rate: enough for 24-bit sources.
constexpr int resamplerPrecision = 28;

CodecHandle<SwrContext> makeResampler(const SampleShape& from, const SampleShape& to, int channels, bool soxr)
{
    AVChannelLayout layout = {};
    av_channel_layout_default(&layout, channels);
    SwrContext* made = nullptr;
    swr_alloc_set_opts2(&made, &layout, static_cast<AVSampleFormat>(to.format), to.rate, &layout,
                        static_cast<AVSampleFormat>(from.format), from.rate, 0, nullptr);
    av_channel_layout_uninit(&layout);
    auto resampler = ownedHandle(made);
    if (soxr) {
        av_opt_set_int(made, "resampler", SWR_ENGINE_SOXR, 0);
        av_opt_set_double(made, "precision", resamplerPrecision, 0);
    }
    return swr_init(made) < 0 ? nullptr : std::move(resampler);
}

} // namespace

AudioStatus Resampler::open(const SampleShape& from, const SampleShape& to, int channels)
{
    format_ = to.format;
    channels_ = channels;
    changesRate_ = from.rate != to.rate;
    // The better engine is an option of the library's build; without it the library's own does.
    resampler_ = makeResampler(from, to, channels, changesRate_);
    if (!resampler_ && changesRate_) resampler_ = makeResampler(from, to, channels, false);
    return resampler_ ? audioStatus::Ok : audioStatus::UnsupportedFormat;
}

AudioStatus Resampler::flush(SampleBlock& out)
{
    return changesRate_ ? run({}, out) : audioStatus::Ok;
}

AudioStatus Resampler::run(const SampleBlock& in, SampleBlock& out)
{
    const int most = swr_get_out_samples(resampler_.get(), in.frames);
    if (most < 0 || !makeRoom(std::max(most, 1))) return audioStatus::OutOfMemory;
    auto** input = const_cast<const uint8_t**>(in.planes);
    const int given = swr_convert(resampler_.get(), room_->extended_data, roomFrames_, input, in.frames);
    if (given < 0) return audioStatusFromCodecError(given);
    out = {.planes = room_->extended_data, .frames = given};
    return audioStatus::Ok;
}

/// Grows the output's room; it never shrinks, so that a steady stream allocates nothing.
bool Resampler::makeRoom(int frames)
{
    if (frames <= roomFrames_) return true;
    room_ = ownedHandle(av_frame_alloc());
    room_->format = format_;
    room_->nb_samples = frames;
    av_channel_layout_default(&room_->ch_layout, channels_);
    roomFrames_ = av_frame_get_buffer(room_.get(), 0) < 0 ? 0 : frames;
    return roomFrames_ != 0;
}

} // namespace zolt

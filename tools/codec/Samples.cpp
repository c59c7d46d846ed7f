#include "codec/Samples.h"

#include <cstring>

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/samplefmt.h>
}

namespace zolt::companion {

namespace {

constexpr unsigned unusedBytes = 1; // of 24 bits in 32, the lowest

template <unsigned kept, unsigned dropped> void interleave(std::uint8_t* to, const AVFrame& frame, unsigned channels)
{
    const bool planar = av_sample_fmt_is_planar(AVSampleFormat(frame.format));
    const std::size_t step = (planar ? 1 : channels) * (kept + dropped);
    for (unsigned channel = 0; channel < channels; ++channel) {
        const std::uint8_t* from =
            planar ? frame.extended_data[channel] : frame.extended_data[0] + channel * (kept + dropped);
        std::uint8_t* out = to + channel * kept;
        for (int i = 0; i < frame.nb_samples; ++i, from += step, out += channels * kept)
            std::memcpy(out, from + dropped, kept);
    }
}

} // namespace

void appendSamples(Bytes& to, const AVFrame& frame, const PcmFormat& format)
{
    const std::size_t before = to.size();
    to.resize(before + std::size_t(frame.nb_samples) * format.frameBytes());
    if (to.size() == before) return;
    if (format.bits == 8)
        interleave<1, 0>(&to[before], frame, format.channels);
    else if (format.bits == 16)
        interleave<2, 0>(&to[before], frame, format.channels);
    else
        interleave<3, unusedBytes>(&to[before], frame, format.channels);
}

void fillFrame(AVFrame& frame, const std::uint8_t* samples, const PcmFormat& format)
{
    const std::size_t values = std::size_t(frame.nb_samples) * format.channels;
    if (format.bits < 24) {
        std::memcpy(frame.extended_data[0], samples, values * format.sampleBytes());
        return;
    }
    std::uint8_t* to = frame.extended_data[0];
    for (std::size_t i = 0; i < values; ++i, to += 4, samples += 3) {
        to[0] = 0;
        std::memcpy(to + unusedBytes, samples, 3);
    }
}

Bytes silence(const PcmFormat& format, std::uint64_t frames)
{
    return Bytes(std::size_t(frames * format.frameBytes()), format.bits == 8 ? 0x80 : 0);
}

} // namespace zolt::companion

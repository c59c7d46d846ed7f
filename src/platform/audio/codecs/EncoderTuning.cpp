#include "platform/audio/codecs/EncoderTuning.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <cmath>
#include <string_view>

namespace zolt {

namespace {

/// How an encoder takes a quality from 1 to 127.
struct EncoderRow
{
    const char* name;
    void (*setQuality)(uint32_t quality, AVCodecContext& encoder);
};

/// Five steps, the highest the best: each gets its share of the range.
void setQualityStep(uint32_t quality, AVCodecContext& encoder)
{
    av_opt_set_int(encoder.priv_data, "vbr", 1 + (quality - 1) * 5 / highestQuality, 0);
}

/// A factor of precision. The bit rate grows by about the same amount each time that it doubles, so that even steps
/// of quality are even factors of it.
void setQualityScale(uint32_t quality, AVCodecContext& encoder)
{
    constexpr double lowest = 0.1;  // about 40 kbit/s for dense stereo
    constexpr double highest = 2.0; // nothing is gained beyond
    const double position = double(quality - 1) / (highestQuality - 1);
    encoder.flags |= AV_CODEC_FLAG_QSCALE;
    encoder.global_quality = static_cast<int>(FF_QP2LAMBDA * lowest * std::pow(highest / lowest, position) + 0.5);
}

/// The encoders in order of preference.
constexpr EncoderRow encoderRows[] = {
    {"libfdk_aac", setQualityStep},
    {"aac", setQualityScale},
};

const EncoderRow* rowOf(const AVCodec& codec)
{
    for (const auto& row : encoderRows)
        if (std::string_view(row.name) == codec.name) return &row;
    return nullptr;
}

} // namespace

const AVCodec* bestAacEncoder()
{
    for (const auto& row : encoderRows)
        if (const AVCodec* codec = avcodec_find_encoder_by_name(row.name)) return codec;
    return nullptr;
}

void applySettings(const EncoderSettings& settings, AVCodecContext& encoder)
{
    if (settings.bitRate) encoder.bit_rate = settings.bitRate;
    const auto* row = rowOf(*encoder.codec);
    if (row && settings.mode == bitRateMode::Variable && settings.quality) row->setQuality(settings.quality, encoder);
}

} // namespace zolt

#include "platform/audio/codecs/StreamFormat.h"

#include <QtEndian>

namespace zolt {

namespace {

struct LinearRow
{
    AVCodecID codec;
    uint32_t bytes;
    uint32_t flags; ///< without Packed
};

constexpr uint32_t bigSigned = pcmFlag::BigEndian | pcmFlag::SignedInteger;

constexpr LinearRow linearRows[] = {
    {AV_CODEC_ID_PCM_S8, 1, bigSigned},
    {AV_CODEC_ID_PCM_U8, 1, 0},
    {AV_CODEC_ID_PCM_S16LE, 2, pcmFlag::SignedInteger},
    {AV_CODEC_ID_PCM_S16BE, 2, bigSigned},
    {AV_CODEC_ID_PCM_S24LE, 3, pcmFlag::SignedInteger},
    {AV_CODEC_ID_PCM_S24BE, 3, bigSigned},
    {AV_CODEC_ID_PCM_S32LE, 4, pcmFlag::SignedInteger},
    {AV_CODEC_ID_PCM_S32BE, 4, bigSigned},
    {AV_CODEC_ID_PCM_F32LE, 4, pcmFlag::Float},
    {AV_CODEC_ID_PCM_F32BE, 4, pcmFlag::Float | pcmFlag::BigEndian},
    {AV_CODEC_ID_PCM_F64LE, 8, pcmFlag::Float},
    {AV_CODEC_ID_PCM_F64BE, 8, pcmFlag::Float | pcmFlag::BigEndian},
};

struct CodecRow
{
    AVCodecID codec;
    uint32_t formatId;
    uint32_t framesPerPacket;
};

constexpr CodecRow codecRows[] = {
    {AV_CODEC_ID_ALAC, formatId::AppleLossless, 4096},
    {AV_CODEC_ID_AAC, formatId::Aac, 1024},
    {AV_CODEC_ID_MP3, formatId::Mp3, 1152},
    {AV_CODEC_ID_PCM_MULAW, formatId::MuLaw, 1},
    {AV_CODEC_ID_PCM_ALAW, formatId::ALaw, 1},
};

/// The Apple Lossless configuration behind its atom's twelve bytes of header: the frame length, then version, depth.
AudioStatus describeLossless(const AVCodecParameters& parameters, AudioFormat& format)
{
    if (parameters.extradata_size < 36) return audioStatus::InvalidFile;
    const uint32_t depth = parameters.extradata[17];
    if (!appleLosslessFlags(depth)) return audioStatus::UnsupportedFormat;
    format.formatFlags = appleLosslessFlags(depth);
    format.bitsPerChannel = depth;
    format.framesPerPacket = qFromBigEndian<uint32_t>(parameters.extradata + 12);
    return audioStatus::Ok;
}

AudioStatus describeLinear(const LinearRow& row, double rate, uint32_t channels, AudioFormat& format)
{
    format = linearFormatInBytes(rate, channels, row.bytes * 8, row.bytes, row.flags);
    return isPlausible(format) ? audioStatus::Ok : audioStatus::InvalidFile;
}

AudioStatus describeCompressed(const CodecRow& row, const AVCodecParameters& parameters, AudioFormat& format)
{
    format = {.sampleRate = static_cast<double>(parameters.sample_rate),
              .formatId = row.formatId,
              .framesPerPacket = row.framesPerPacket,
              .channelsPerFrame = static_cast<uint32_t>(parameters.ch_layout.nb_channels)};
    if (!isPlausible(format)) return audioStatus::InvalidFile;
    return row.codec == AV_CODEC_ID_ALAC ? describeLossless(parameters, format) : audioStatus::Ok;
}

} // namespace

AudioStatus describeStream(const AVCodecParameters& parameters, AudioFormat& format)
{
    const auto channels = static_cast<uint32_t>(parameters.ch_layout.nb_channels);
    for (const auto& row : linearRows)
        if (row.codec == parameters.codec_id) return describeLinear(row, parameters.sample_rate, channels, format);
    for (const auto& row : codecRows)
        if (row.codec == parameters.codec_id) return describeCompressed(row, parameters, format);
    return audioStatus::UnsupportedFormat;
}

int64_t statedFrames(const AVStream& stream)
{
    if (stream.duration == AV_NOPTS_VALUE || stream.duration < 0) return -1;
    return av_rescale_q(stream.duration, stream.time_base, {1, stream.codecpar->sample_rate});
}

} // namespace zolt

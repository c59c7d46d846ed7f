#include "platform/audio/codecs/M4aSink.h"

#include "platform/files/FileNames.h"

#include <QFile>

namespace zolt {

M4aSink::~M4aSink()
{
    closeFile();
}

AudioStatus M4aSink::check(const AudioFormat& format)
{
    AudioEncoder encoder;
    return encoder.open(format, {});
}

AudioStatus M4aSink::begin()
{
    if (const auto status = encoder_.open(format_, settings_)) return status;
    if (const auto status = openFile()) return status;
    return makeStream();
}

AudioStatus M4aSink::openFile()
{
    int result = avformat_alloc_output_context2(&muxer_, nullptr, "ipod", nullptr);
    if (result < 0) return audioStatusFromCodecError(result);
    muxer_->flags |= AVFMT_FLAG_BITEXACT; // no tool name of the library's in the tags
    result = avio_open(&muxer_->pb, "file:" + bytesOfName(path_), AVIO_FLAG_WRITE);
    return result < 0 ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

/// The muxer leaves out a track that got no packets, unless the index is written ahead of them.
AudioStatus M4aSink::writeHeader(bool empty)
{
    AVDictionary* options = nullptr;
    // The stated length is counted in these units: one frame each, so that it is exact.
    av_dict_set_int(&options, "movie_timescale", encoder_.context().sample_rate, 0);
    if (empty) av_dict_set(&options, "movflags", "empty_moov+skip_trailer", 0);
    const int result = avformat_write_header(muxer_, &options);
    av_dict_free(&options);
    headerWritten_ = result >= 0;
    return result < 0 ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

AudioStatus M4aSink::makeStream()
{
    AVStream* stream = avformat_new_stream(muxer_, nullptr);
    if (!stream) return audioStatus::OutOfMemory;
    stream->time_base = encoder_.context().time_base;
    const int result = avcodec_parameters_from_context(stream->codecpar, &encoder_.context());
    return result < 0 ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

AudioStatus M4aSink::write(const SampleBlock& block)
{
    const auto status = encoder_.write(block, [this](AVPacket& packet) { return writePacket(packet); });
    if (status) failed_ = true;
    return status;
}

AudioStatus M4aSink::writePacket(AVPacket& packet)
{
    if (!headerWritten_)
        if (const auto status = writeHeader(false)) return status;
    packet.stream_index = 0;
    av_packet_rescale_ts(&packet, encoder_.context().time_base, muxer_->streams[0]->time_base);
    int result = av_write_frame(muxer_, &packet);
    if (result >= 0) result = muxer_->pb->error;
    return result < 0 ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

AudioStatus M4aSink::finish()
{
    AudioStatus status = audioStatus::Ok;
    if (muxer_ && muxer_->nb_streams) {
        // Behind a failure the encoder still holds part of a block, which must not follow what got lost.
        if (!failed_) status = encoder_.finish([this](AVPacket& packet) { return writePacket(packet); });
        if (!failed_ && !status && !headerWritten_) status = writeHeader(true);
        const auto trailer = headerWritten_ ? writeTrailer() : audioStatus::Ok;
        if (!status) status = trailer;
    }
    const auto closed = closeFile();
    return status ? status : closed;
}

AudioStatus M4aSink::writeTrailer()
{
    int result = av_write_trailer(muxer_);
    if (result >= 0) result = muxer_->pb->error;
    return result < 0 ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

AudioStatus M4aSink::closeFile()
{
    if (!muxer_) return audioStatus::Ok;
    const int result = muxer_->pb ? avio_closep(&muxer_->pb) : 0;
    avformat_free_context(muxer_);
    muxer_ = nullptr;
    return result < 0 ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

} // namespace zolt

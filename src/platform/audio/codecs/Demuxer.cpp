#include "platform/audio/codecs/Demuxer.h"

#include "platform/audio/codecs/CodecLibraries.h"
#include "platform/files/FileNames.h"

#include <QFile>

namespace zolt {

AudioStatus Demuxer::open(const QString& path, Container container)
{
    prepareCodecLibraries();
    const auto* format = av_find_input_format(demuxerName(container));
    if (!format) return audioStatus::UnsupportedFileType;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    AVFormatContext* context = nullptr;
    const int result = avformat_open_input(&context, "file:" + bytesOfName(path), format, &options);
    av_dict_free(&options);
    if (result < 0) return audioStatusFromCodecError(result);
    context_.reset(context);
    return findStream(container);
}

AudioStatus Demuxer::findStream(Container container)
{
    // An MP3 file has no header: its rate and channels stand in its frames.
    if (container == Container::Mp3) {
        const int result = avformat_find_stream_info(context_.get(), nullptr);
        if (result < 0) return audioStatusFromCodecError(result);
    }
    for (unsigned i = 0; i < context_->nb_streams; ++i) {
        AVStream* stream = context_->streams[i];
        const bool wanted = !stream_ && stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
        if (wanted) stream_ = stream;
        stream->discard = wanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    return stream_ ? audioStatus::Ok : audioStatus::UnsupportedFormat;
}

AudioStatus Demuxer::next(AVPacket& packet)
{
    for (;;) {
        av_packet_unref(&packet);
        const int result = av_read_frame(context_.get(), &packet);
        if (result == AVERROR_EOF) return audioStatus::Ok;
        if (result < 0) return audioStatusFromCodecError(result);
        if (packet.stream_index == stream_->index && packet.size > 0) return audioStatus::Ok;
    }
}

} // namespace zolt

#include "mac/ApeDemuxer.h"

#include "audio/Failure.h"

namespace zolt::companion {

ApeDemuxer::ApeDemuxer(const std::string& path) : packet_(made(av_packet_alloc()))
{
    av_log_set_level(AV_LOG_QUIET);
    AVFormatContext* file = nullptr;
    // Without "file:" a name with a colon would be taken for something else than a file.
    const int status = avformat_open_input(&file, ("file:" + path).c_str(), av_find_input_format("ape"), nullptr);
    file_.reset(file);
    if (status < 0 || file->nb_streams < 1) {
        throw Failure(Fault::Format, path + ": is a Monkey's Audio file with a damaged header, or of an unknown kind");
    }
    const PcmFormat found = format();
    const bool known = found.bits == 8 || found.bits == 16 || found.bits == 24;
    if (!known || found.channels < 1 || found.channels > 2 || found.rate < 1 || stream().duration < 0) {
        throw Failure(Fault::Format, path + ": holds samples that are not of 8, 16 or 24 bits and one or two channels");
    }
}

PcmFormat ApeDemuxer::format() const
{
    const AVCodecParameters& found = parameters();
    return {.channels = unsigned(found.ch_layout.nb_channels),
            .rate = unsigned(found.sample_rate),
            .bits = unsigned(found.bits_per_coded_sample)};
}

const AVPacket* ApeDemuxer::next()
{
    av_packet_unref(packet_.get());
    return av_read_frame(file_.get(), packet_.get()) == 0 ? packet_.get() : nullptr;
}

} // namespace zolt::companion

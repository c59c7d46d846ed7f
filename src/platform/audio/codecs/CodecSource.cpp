#include "platform/audio/codecs/CodecSource.h"

#include "platform/audio/LinearSource.h"
#include "platform/audio/codecs/StreamFormat.h"

#include <QFile>
#include <QtEndian>

namespace zolt {

namespace {

/// Frames that the decoder will drop from this packet: the encoder's priming at the start, padding at the end.
int64_t droppedFrames(const AVPacket& packet)
{
    size_t size = 0;
    const uint8_t* facts = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    if (!facts || size < 8) return 0;
    return int64_t(qFromLittleEndian<uint32_t>(facts)) + qFromLittleEndian<uint32_t>(facts + 4);
}

/// Walks through a whole file that does not state its length.
AudioStatus countFrames(const QString& path, Container container, int64_t& frames)
{
    Demuxer demuxer;
    if (const auto status = demuxer.open(path, container)) return status;
    const auto packet = ownedHandle(av_packet_alloc());
    const auto& stream = demuxer.stream();
    frames = 0;
    for (;;) {
        if (const auto status = demuxer.next(*packet)) return status;
        if (!packet->size) break;
        frames += av_rescale_q(packet->duration, stream.time_base, {1, stream.codecpar->sample_rate});
        frames -= droppedFrames(*packet);
    }
    frames = std::max<int64_t>(0, frames);
    return audioStatus::Ok;
}

AudioStatus openDecoder(const AVCodecParameters& parameters, CodecHandle<AVCodecContext>& decoder)
{
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (!codec) return audioStatus::UnsupportedFormat;
    decoder = ownedHandle(avcodec_alloc_context3(codec));
    int result = avcodec_parameters_to_context(decoder.get(), &parameters);
    decoder->thread_count = 1; // files run side by side already
    if (result >= 0) result = avcodec_open2(decoder.get(), codec, nullptr);
    return result < 0 ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

/// The library's decoder refuses a stereo packet of 32 bits that is stored without compression, since it reckons with
/// the 33 bits that compression would take. Such a packet says how many low bytes stand apart, which means nothing
/// without compression; with one byte told there, the decoder's sum holds and its samples are the same.
AudioStatus makeDecodable(const AudioFormat& format, AVPacket& packet)
{
    constexpr int uncompressed = 0x02;
    constexpr int lowBytes = 0x0c;
    if (format.formatId != formatId::AppleLossless || format.bitsPerChannel != 32 || packet.size < 3 ||
        (packet.data[2] & (uncompressed | lowBytes)) != uncompressed)
        return audioStatus::Ok;
    if (av_packet_make_writable(&packet) < 0) return audioStatus::OutOfMemory;
    packet.data[2] |= 0x04;
    return audioStatus::Ok;
}

} // namespace

CodecSource::CodecSource(QString path, Container container, Demuxer demuxer, const AudioFormat& format)
    : path_(std::move(path)), container_(container), demuxer_(std::move(demuxer)),
      packet_(ownedHandle(av_packet_alloc())), frame_(ownedHandle(av_frame_alloc()))
{
    format_ = format;
}

bool CodecSource::isLossless() const
{
    return format_.formatId == formatId::AppleLossless;
}

AudioStatus CodecSource::lengthInFrames(int64_t& frames)
{
    if (length_ < 0) {
        // What MP3 files state is at best rounded to whole packets, and mostly guessed from the bit rate.
        int64_t counted = container_ == Container::Mp3 ? -1 : statedFrames(demuxer_.stream());
        if (counted < 0)
            if (const auto status = countFrames(path_, container_, counted)) return status;
        length_ = counted;
    }
    frames = length_;
    return audioStatus::Ok;
}

AudioStatus CodecSource::prepare()
{
    if (decoder_) return audioStatus::Ok;
    int64_t frames = 0;
    if (const auto status = lengthInFrames(frames)) return status;
    return openDecoder(*demuxer_.stream().codecpar, decoder_);
}

int CodecSource::sampleFormat() const
{
    return decoder_ ? decoder_->sample_fmt : AV_SAMPLE_FMT_NONE;
}

AudioStatus CodecSource::readBlock(SampleBlock& block)
{
    block = {};
    if (atEnd_ || given_ >= length_) return audioStatus::Ok;
    if (const auto status = nextFrame()) return status;
    if (atEnd_) return endOfStream();
    const bool asDescribed = frame_->format == decoder_->sample_fmt &&
                             frame_->ch_layout.nb_channels == static_cast<int>(format_.channelsPerFrame) &&
                             frame_->sample_rate == static_cast<int>(format_.sampleRate);
    if (!asDescribed) return audioStatus::UnsupportedFormat;
    block.planes = frame_->extended_data;
    block.frames = static_cast<int>(std::min<int64_t>(frame_->nb_samples, length_ - given_));
    given_ += block.frames;
    return audioStatus::Ok;
}

/// Decodes into frame_, or sets atEnd_. A damaged packet ends the reading of lossless data; a lossy stream goes on
/// behind it, as players do.
AudioStatus CodecSource::nextFrame()
{
    for (;;) {
        av_frame_unref(frame_.get());
        const int result = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (result >= 0 && frame_->nb_samples > 0) return audioStatus::Ok;
        if (result == AVERROR_EOF) {
            atEnd_ = true;
            return audioStatus::Ok;
        }
        if (result < 0 && result != AVERROR(EAGAIN) && isLossless()) return audioStatusFromCodecError(result);
        if (const auto status = feedDecoder()) return status;
    }
}

AudioStatus CodecSource::feedDecoder()
{
    if (const auto status = demuxer_.next(*packet_)) return status;
    if (const auto status = makeDecodable(format_, *packet_)) return status;
    const int result = avcodec_send_packet(decoder_.get(), packet_->size ? packet_.get() : nullptr);
    const bool damaged = result < 0 && result != AVERROR_EOF;
    return damaged && isLossless() ? audioStatusFromCodecError(result) : audioStatus::Ok;
}

/// A lossless file that ends ahead of its stated length is cut; giving less in silence would lose music. How exact
/// the statement is depends: CAF files mostly count whole packets, M4A files count in units of their own.
AudioStatus CodecSource::endOfStream() const
{
    const auto& unit = demuxer_.stream().time_base;
    const int64_t framesPerUnit = av_rescale_rnd(unit.num, int64_t(format_.sampleRate), unit.den, AV_ROUND_UP);
    const int64_t unsure = container_ == Container::Caf ? format_.framesPerPacket : framesPerUnit - 1;
    return isLossless() && given_ + unsure < length_ ? audioStatus::InvalidFile : audioStatus::Ok;
}

AudioStatus openThroughCodecs(QFile& file, Container container, std::unique_ptr<SampleSource>& source)
{
    Demuxer demuxer;
    if (const auto status = demuxer.open(file.fileName(), container)) return status;
    AudioFormat format;
    if (const auto status = describeStream(*demuxer.stream().codecpar, format)) return status;
    if (!format.isLinear()) {
        source = std::make_unique<CodecSource>(file.fileName(), container, std::move(demuxer), format);
        return audioStatus::Ok;
    }
    if (container == Container::Mp4) return audioStatus::UnsupportedFormat; // its samples lie in scattered chunks
    LinearLayout layout{.format = format, .dataOffset = demuxer.position()};
    const auto stated = statedFrames(demuxer.stream());
    const bool known = stated >= 0 && stated < file.size();
    const auto bytes = known ? stated * format.bytesPerFrame : INT64_MAX;
    if (const auto status = limitToFile(layout, bytes, file.size())) return status;
    source = std::make_unique<LinearSource>(file, layout);
    return audioStatus::Ok;
}

} // namespace zolt

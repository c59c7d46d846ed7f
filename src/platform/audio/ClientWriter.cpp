#include "platform/audio/ClientWriter.h"

#include "platform/audio/LinearLayout.h"

namespace zolt {

ClientWriter::ClientWriter(SampleSink& sink, const AudioFormat& file) : sink_(sink), file_(file)
{
    if (file.isLinear()) setFormat(file);
}

AudioStatus ClientWriter::setFormat(const AudioFormat& client)
{
    if (begun_) return audioStatus::WrongState;
    const auto packing = PcmPacking::of(client);
    if (!packing || !isPlausible(client) || client.channelsPerFrame != file_.channelsPerFrame)
        return audioStatus::UnsupportedFormat;
    client_ = client;
    packing_ = packing;
    straight_ = client == file_;
    return audioStatus::Ok;
}

AudioStatus ClientWriter::write(const uint8_t* buffer, int64_t frames)
{
    if (!packing_) return audioStatus::WrongState;
    if (!failure_ && !begun_) failure_ = begin();
    if (!failure_ && straight_) failure_ = sink_.writeBytes(buffer, frames * client_.bytesPerFrame);
    for (int64_t at = 0; !failure_ && !straight_ && at < frames; at += framesPerBlock)
        failure_ = writeSome(buffer + at * client_.bytesPerFrame, std::min(framesPerBlock, frames - at));
    return failure_;
}

AudioStatus ClientWriter::finish()
{
    // A file of no frames is a file all the same, as far as its format is known.
    if (!failure_ && !begun_) failure_ = begin();
    if (!failure_ && packing_ && !straight_) failure_ = flush();
    const auto status = sink_.finish();
    return failure_ ? failure_ : status;
}

AudioStatus ClientWriter::begin()
{
    begun_ = true;
    if (const auto status = sink_.begin()) return status;
    if (!packing_ || straight_) return audioStatus::Ok;
    unpacked_.resize(static_cast<size_t>(framesPerBlock * widestSample * client_.channelsPerFrame));
    const SampleShape from{packing_->sampleFormat(), static_cast<int>(client_.sampleRate)};
    return converter_.open(from, sink_.shape(), static_cast<int>(client_.channelsPerFrame));
}

AudioStatus ClientWriter::writeSome(const uint8_t* buffer, int64_t frames)
{
    const uint8_t* plane = buffer;
    if (!packing_->isIdentity()) {
        packing_->unpack(buffer, unpacked_.data(), frames * client_.channelsPerFrame);
        plane = unpacked_.data();
    }
    SampleBlock converted;
    const SampleBlock block{.planes = &plane, .frames = static_cast<int>(frames)};
    if (const auto status = converter_.convert(block, converted)) return status;
    return converted.frames ? sink_.write(converted) : audioStatus::Ok;
}

AudioStatus ClientWriter::flush()
{
    for (;;) {
        SampleBlock rest;
        if (const auto status = converter_.flush(rest)) return status;
        if (!rest.frames) return audioStatus::Ok;
        if (const auto status = sink_.write(rest)) return status;
    }
}

} // namespace zolt

#include "platform/audio/LinearSource.h"

#include <QFile>

#include <cerrno>

namespace zolt {

LinearSource::LinearSource(QFile& file, const LinearLayout& layout)
    : file_(file), layout_(layout), bytesLeft_(layout.frames * layout.format.bytesPerFrame)
{
    format_ = layout.format;
    file_.seek(layout_.dataOffset);
}

AudioStatus LinearSource::lengthInFrames(int64_t& frames)
{
    frames = layout_.frames;
    return audioStatus::Ok;
}

AudioStatus LinearSource::readBytes(uint8_t* buffer, int64_t bytes, int64_t& taken)
{
    taken = 0;
    const int64_t wanted = std::min(bytes, bytesLeft_);
    while (taken < wanted) {
        errno = 0;
        const auto got = file_.read(reinterpret_cast<char*>(buffer) + taken, wanted - taken);
        if (got < 0) return audioStatusFromErrno(errno);
        if (got == 0) return audioStatus::InvalidFile; // someone has cut the file since it was opened
        taken += got;
    }
    bytesLeft_ -= taken;
    return audioStatus::Ok;
}

AudioStatus LinearSource::prepare()
{
    packing_ = PcmPacking::of(format_);
    if (!packing_) return audioStatus::UnsupportedFormat;
    packed_.resize(static_cast<size_t>(framesPerBlock * format_.bytesPerFrame));
    unpacked_.resize(static_cast<size_t>(framesPerBlock * widestSample * format_.channelsPerFrame));
    plane_ = unpacked_.data();
    return audioStatus::Ok;
}

AudioStatus LinearSource::readBlock(SampleBlock& block)
{
    int64_t taken = 0;
    const auto status = readBytes(packed_.data(), static_cast<int64_t>(packed_.size()), taken);
    const int64_t frames = taken / format_.bytesPerFrame;
    packing_->unpack(packed_.data(), unpacked_.data(), frames * format_.channelsPerFrame);
    block = {.planes = &plane_, .frames = static_cast<int>(frames)};
    return status;
}

int LinearSource::sampleFormat() const
{
    return packing_ ? packing_->sampleFormat() : -1;
}

} // namespace zolt

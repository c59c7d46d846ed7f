#include "platform/audio/LinearSink.h"

#include <cerrno>

namespace zolt {

LinearSink::LinearSink(const QString& path, const LinearHeader& header, const AudioFormat& stored)
    : file_(path), header_(header), format_(stored), packing_(PcmPacking::of(stored))
{
}

AudioStatus LinearSink::begin()
{
    if (!packing_) return audioStatus::UnsupportedFormat;
    errno = 0;
    // No buffer of ours: a full disk shows at the write that meets it, not when the file is closed.
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return audioStatusFromErrno(errno);
    const auto header = header_.build(format_, 0);
    headerBytes_ = header.size();
    return append(header.constData(), header.size());
}

SampleShape LinearSink::shape() const
{
    return {packing_->sampleFormat(), static_cast<int>(format_.sampleRate)};
}

AudioStatus LinearSink::write(const SampleBlock& block)
{
    const int64_t bytes = int64_t(block.frames) * format_.bytesPerFrame;
    if (packing_->isIdentity()) return writeBytes(block.planes[0], bytes);
    if (packed_.size() < static_cast<size_t>(bytes)) packed_.resize(static_cast<size_t>(bytes));
    packing_->pack(block.planes[0], packed_.data(), int64_t(block.frames) * format_.channelsPerFrame);
    return writeBytes(packed_.data(), bytes);
}

AudioStatus LinearSink::writeBytes(const uint8_t* bytes, int64_t count)
{
    const int64_t fileBytes = headerBytes_ + dataBytes_ + count;
    if (fileBytes + (fileBytes & 1) > header_.longestFile) return audioStatus::FileTooLarge;
    const auto status = append(reinterpret_cast<const char*>(bytes), count);
    if (!status) dataBytes_ += count;
    return status;
}

AudioStatus LinearSink::finish()
{
    // A failed write may have left part of a frame.
    const auto header = header_.build(format_, dataBytes_);
    if (!file_.resize(header.size() + dataBytes_) || !file_.seek(file_.size())) return audioStatus::InputOutput;
    AudioStatus status = dataBytes_ & 1 ? append("", 1) : audioStatus::Ok;
    if (!file_.seek(0)) return audioStatus::InputOutput;
    if (!status) status = append(header.constData(), header.size());
    errno = 0;
    file_.close();
    if (!status && file_.error() != QFileDevice::NoError) status = audioStatusFromErrno(errno);
    return status;
}

AudioStatus LinearSink::append(const char* bytes, int64_t count)
{
    while (count > 0) {
        errno = 0;
        const auto taken = file_.write(bytes, count);
        if (taken <= 0) return audioStatusFromErrno(errno);
        bytes += taken;
        count -= taken;
    }
    return audioStatus::Ok;
}

} // namespace zolt

#include "platform/audio/ClientReader.h"

#include "platform/audio/LinearLayout.h"

namespace zolt {

AudioStatus ClientReader::setFormat(const AudioFormat& client)
{
    const auto& file = source_.format();
    const auto packing = PcmPacking::of(client);
    if (!packing || !isPlausible(client) || client.channelsPerFrame != file.channelsPerFrame)
        return audioStatus::UnsupportedFormat;
    const bool straight = client == file;
    if (!straight) {
        if (const auto status = source_.prepare()) return status;
        const SampleShape from{source_.sampleFormat(), static_cast<int>(file.sampleRate)};
        const SampleShape to{packing->sampleFormat(), static_cast<int>(client.sampleRate)};
        const auto status = converter_.open(from, to, static_cast<int>(file.channelsPerFrame));
        if (status) return status;
    }
    client_ = client;
    packing_ = packing;
    straight_ = straight;
    return audioStatus::Ok;
}

AudioStatus ClientReader::read(uint8_t* buffer, int64_t frames, int64_t& taken)
{
    taken = 0;
    if (!packing_) return audioStatus::WrongState;
    if (straight_) {
        int64_t bytes = 0;
        const auto status = source_.readBytes(buffer, frames * client_.bytesPerFrame, bytes);
        taken = bytes / client_.bytesPerFrame;
        return status;
    }
    while (taken < frames) {
        if (pendingAt_ == pending_.frames) {
            if (ended_) break;
            if (const auto status = refill()) return status;
            continue;
        }
        const auto part = std::min<int64_t>(frames - taken, pending_.frames - pendingAt_);
        moveOut(buffer + taken * client_.bytesPerFrame, part);
        taken += part;
    }
    return audioStatus::Ok;
}

AudioStatus ClientReader::refill()
{
    pendingAt_ = 0;
    pending_ = {};
    SampleBlock block;
    if (const auto status = source_.readBlock(block)) return status;
    if (block.frames) return converter_.convert(block, pending_);
    const auto status = converter_.flush(pending_);
    ended_ = !pending_.frames;
    return status;
}

void ClientReader::moveOut(uint8_t* buffer, int64_t frames)
{
    const int64_t channels = client_.channelsPerFrame;
    const int64_t bytes = packing_->sampleBytes();
    packing_->pack(pending_.planes[0] + pendingAt_ * channels * bytes, buffer, frames * channels);
    pendingAt_ += frames;
}

} // namespace zolt

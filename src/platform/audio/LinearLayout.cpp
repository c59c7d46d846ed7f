#include "platform/audio/LinearLayout.h"

namespace zolt {

namespace {

constexpr double highestRate = 1 << 24;
constexpr uint32_t mostChannels = 64;

} // namespace

bool isPlausible(const AudioFormat& format)
{
    return format.sampleRate >= 1 && format.sampleRate <= highestRate && format.channelsPerFrame &&
           format.channelsPerFrame <= mostChannels;
}

AudioStatus limitToFile(LinearLayout& layout, int64_t dataBytes, int64_t fileSize)
{
    const auto bytesPerFrame = layout.format.bytesPerFrame;
    if (!isPlausible(layout.format) || !bytesPerFrame || dataBytes < 0) return audioStatus::InvalidFile;
    const int64_t present = std::max<int64_t>(0, fileSize - layout.dataOffset);
    layout.frames = std::min(dataBytes, present) / bytesPerFrame;
    return audioStatus::Ok;
}

} // namespace zolt

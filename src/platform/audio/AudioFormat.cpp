#include "platform/audio/AudioFormat.h"

#include <array>

namespace zolt {

namespace {

/// The depth at index i has the Apple Lossless flags i + 1.
constexpr std::array<uint32_t, 4> losslessDepths = {16, 20, 24, 32};

} // namespace

QString fourCharText(uint32_t code)
{
    QString text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const uint8_t character = code >> shift & 0xff;
        if (character < 0x20 || character > 0x7e) return QString::number(static_cast<int32_t>(code));
        text += QLatin1Char(static_cast<char>(character));
    }
    return text;
}

uint32_t appleLosslessFlags(uint32_t bitsPerChannel)
{
    const auto found = std::find(losslessDepths.begin(), losslessDepths.end(), bitsPerChannel);
    return found == losslessDepths.end() ? 0 : static_cast<uint32_t>(found - losslessDepths.begin()) + 1;
}

uint32_t appleLosslessDepth(uint32_t formatFlags)
{
    return formatFlags >= 1 && formatFlags <= losslessDepths.size() ? losslessDepths[formatFlags - 1] : 0;
}

AudioFormat linearFormat(double sampleRate, uint32_t channels, uint32_t bitsPerChannel, uint32_t flags)
{
    const uint32_t bytesPerFrame = (bitsPerChannel >> 3) * channels;
    return {.sampleRate = sampleRate,
            .formatId = formatId::LinearPcm,
            .formatFlags = flags,
            .bytesPerPacket = bytesPerFrame,
            .framesPerPacket = 1,
            .bytesPerFrame = bytesPerFrame,
            .channelsPerFrame = channels,
            .bitsPerChannel = bitsPerChannel};
}

AudioFormat linearFormatInBytes(double sampleRate, uint32_t channels, uint32_t bitsPerChannel, uint32_t bytesPerSample,
                                uint32_t flags)
{
    const bool full = bitsPerChannel == bytesPerSample * 8;
    auto format =
        linearFormat(sampleRate, channels, bytesPerSample * 8, flags | (full ? pcmFlag::Packed : pcmFlag::AlignedHigh));
    format.bitsPerChannel = bitsPerChannel;
    return format;
}

} // namespace zolt

#include "encode/OutputFormat.h"

namespace zolt {

namespace {

/// Rates that are halved or quartered for AAC; all others stay.
struct RateRow
{
    double input;
    double aac;
};

constexpr RateRow aacRates[] = {{96000, 48000}, {192000, 48000}, {88200, 44100}, {176400, 44100}};

double aacRate(double rate)
{
    for (const auto& row : aacRates)
        if (row.input == rate) return row.aac;
    return rate;
}

uint32_t linearFlags(uint32_t fileType)
{
    if (fileType == fileTypeId::Aiff) return pcmFlag::AiffData;
    return fileType == fileTypeId::Wave ? pcmFlag::WaveData : 0;
}

} // namespace

AudioFormat outputFormatFor(const AudioFormat& input, uint32_t formatType, uint32_t fileType)
{
    uint32_t bits = input.bitsPerChannel;
    const uint32_t losslessDepth =
        input.formatId == formatId::AppleLossless ? appleLosslessDepth(input.formatFlags) : 0;
    if (losslessDepth) bits = losslessDepth;
    // Twenty bits come to two bytes a sample here; it is the service that refuses to hold them in so few.
    if (formatType == formatId::LinearPcm)
        return linearFormat(input.sampleRate, input.channelsPerFrame, bits, linearFlags(fileType));
    AudioFormat format = {.sampleRate = input.sampleRate,
                          .formatId = formatType,
                          .channelsPerFrame = input.channelsPerFrame,
                          .bitsPerChannel = bits};
    if (formatType == formatId::AppleLossless) format.formatFlags = appleLosslessFlags(input.bitsPerChannel);
    if (formatType == formatId::Aac) {
        format.bitsPerChannel = 0;
        format.sampleRate = aacRate(input.sampleRate);
    }
    return format;
}

} // namespace zolt

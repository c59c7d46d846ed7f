#include "encode/CoreAudioHelper.h"

#include "encode/AudioInput.h"
#include "encode/EncodeLog.h"

namespace zolt {

namespace {

std::shared_ptr<AudioFormatObject> formatInfo(const QString& path)
{
    AudioFormat format;
    const auto reader = openedForReading(path, format);
    auto info = std::make_shared<AudioFormatObject>();
    info->setTotalSamples(framesOf(*reader));
    info->setBitsPerChannel(static_cast<int32_t>(format.bitsPerChannel));
    info->setSampleRate(static_cast<int32_t>(format.sampleRate));
    info->setChannels(static_cast<int32_t>(format.channelsPerFrame));
    return info;
}

/// The file's data format, or one of no kind on any failure.
AudioFormat formatOrNone(const QString& path) noexcept
{
    AudioFormat format;
    try {
        openedForReading(path, format);
    } catch (const std::exception& fault) {
        qCDebug(encodeLog, "%s", fault.what());
        return {};
    }
    return format;
}

bool isLinearWith(const AudioFormat& format, uint32_t flags)
{
    return format.isLinear() && format.formatFlags == flags;
}

} // namespace

std::shared_ptr<AudioFormatObject> CoreAudioHelper::getFormatInfo(const QString& path)
{
    try {
        return formatInfo(path);
    } catch (const std::exception& fault) {
        qCDebug(encodeLog, "%s", fault.what());
        return nullptr;
    }
}

bool CoreAudioHelper::isAiff(const QString& path)
{
    return isLinearWith(formatOrNone(path), pcmFlag::AiffData);
}

bool CoreAudioHelper::isWav(const QString& path)
{
    return isLinearWith(formatOrNone(path), pcmFlag::WaveData);
}

bool CoreAudioHelper::isAiffOrWav(const QString& path)
{
    const auto format = formatOrNone(path);
    return isLinearWith(format, pcmFlag::AiffData) || isLinearWith(format, pcmFlag::WaveData);
}

bool CoreAudioHelper::isAppleLossless(const QString& path)
{
    return formatOrNone(path).formatId == formatId::AppleLossless;
}

} // namespace zolt

#include "encode/CoreAudioHelper.h"

#include "encode/EncodeLog.h"
#include "encode/StatusFailure.h"
#include "platform/audio/AudioFileReader.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<AudioFileReader> opened(const QString& path, AudioFormat& format)
{
    std::unique_ptr<AudioFileReader> reader;
    requireStatus(AudioFileReader::open(path, reader), u"ExtAudioFileOpenURL failed"_s);
    requireStatus(reader->dataFormat(format),
                  u"input ExtAudioFileGetProperty kExtAudioFileProperty_FileDataFormat failed"_s);
    return reader;
}

std::shared_ptr<AudioFormatObject> formatInfo(const QString& path)
{
    AudioFormat format;
    const auto reader = opened(path, format);
    int64_t frames = 0;
    requireStatus(reader->lengthInFrames(frames),
                  u"input ExtAudioFileGetProperty kExtAudioFileProperty_FileLengthFrames failed"_s);
    auto info = std::make_shared<AudioFormatObject>();
    info->setTotalSamples(frames);
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
        opened(path, format);
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

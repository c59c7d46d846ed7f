#include "tags/AudioFacts.h"

#include "encode/CoreAudioHelper.h"
#include "platform/files/FileNames.h"

#include <taglib/apefile.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/trueaudiofile.h>
#include <taglib/wavpackfile.h>

namespace zolt {

namespace {

template <class Properties> bool read(const TagLib::AudioProperties* any, AudioFormatObject& format)
{
    const auto* const properties = dynamic_cast<const Properties*>(any);
    if (!properties) return false;
    format.setSampleRate(properties->sampleRate());
    format.setBitsPerChannel(properties->bitsPerSample());
    format.setChannels(properties->channels());
    format.setTotalSamples(properties->sampleFrames());
    return true;
}

} // namespace

std::optional<AudioFormatObject> audioFormatOf(const QString& path)
{
    const TagLib::FileRef file(bytesOfName(path).constData(), true, TagLib::AudioProperties::Average);
    const auto* const properties = file.isNull() ? nullptr : file.audioProperties();
    AudioFormatObject format;
    const bool known =
        read<TagLib::FLAC::Properties>(properties, format) || read<TagLib::WavPack::Properties>(properties, format) ||
        read<TagLib::APE::Properties>(properties, format) || read<TagLib::TrueAudio::Properties>(properties, format);
    if (known) return format;
    const auto plain = CoreAudioHelper::getFormatInfo(path);
    return plain ? std::optional(*plain) : std::nullopt;
}

} // namespace zolt

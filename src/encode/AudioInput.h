// An audio file opened for what stands in it, with the texts of what can go wrong.
#pragma once

#include "platform/audio/AudioFileReader.h"

namespace zolt {

/// @param format  set to the file's data format
/// @throws PlatformException with the service's status in its reason
std::unique_ptr<AudioFileReader> openedForReading(const QString& path, AudioFormat& format);

/// The length in frames. @throws PlatformException with the service's status in its reason
int64_t framesOf(const AudioFileReader& reader);

} // namespace zolt

// What a conversion makes out of a format.
#pragma once

#include "platform/audio/AudioFormat.h"

namespace zolt {

/// The description of the output for an input of that format.
/// @param formatType the target: 'lpcm', 'alac' or 'aac '
/// @param fileType   the container: 'WAVE', 'AIFF' or 'm4af'
AudioFormat outputFormatFor(const AudioFormat& input, uint32_t formatType, uint32_t fileType);

} // namespace zolt

// Settings as the encoders of the codec libraries take them.
#pragma once

#include "platform/audio/EncoderSettings.h"
#include "platform/audio/codecs/CodecHandles.h"

namespace zolt {

/// The best AAC encoder in the libraries' build.
const AVCodec* bestAacEncoder();

/// Puts settings into an encoder that is not open yet.
void applySettings(const EncoderSettings& settings, AVCodecContext& encoder);

} // namespace zolt

// What a demuxer's stream is, in the service's own description.
#pragma once

#include "platform/audio/LinearLayout.h"
#include "platform/audio/codecs/CodecHandles.h"

namespace zolt {

/// Describes the stream.
/// @return UnsupportedFormat for codecs that the service does not read, InvalidFile for an impossible description
AudioStatus describeStream(const AVCodecParameters& parameters, AudioFormat& format);

/// The stream's stated length in frames; below 0 if the file states none.
int64_t statedFrames(const AVStream& stream);

} // namespace zolt

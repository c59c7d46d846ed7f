// Compresses one frame of a Monkey's Audio file.
#pragma once

#include "audio/Bytes.h"
#include "audio/PcmFormat.h"

namespace zolt::companion {

/// @param level    1000 to 5000, in thousands
/// @param samples  as they stand in a WAV file; at least one of each channel
Bytes encodeApeFrame(const Bytes& samples, const PcmFormat& format, unsigned level);

} // namespace zolt::companion

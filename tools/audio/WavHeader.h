// The 44 bytes ahead of the samples of a WAV file.
#pragma once

#include "audio/Bytes.h"
#include "audio/PcmFormat.h"

#include <string>

namespace zolt::companion {

/// The plain form at every depth: shntool refuses the extensible one.
/// @param dataBytes  how many bytes of samples follow; an odd count is followed by one more byte that is no sample
/// @param name       the source, for the message
/// @throws Failure (Format) where a WAV file cannot hold that much
Bytes wavHeader(const PcmFormat& format, std::uint64_t dataBytes, const std::string& name);

} // namespace zolt::companion

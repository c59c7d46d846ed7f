// Samples between FFmpeg's frames and the bytes of a WAV file.
#pragma once

#include "audio/Bytes.h"
#include "audio/PcmFormat.h"

struct AVFrame;

namespace zolt::companion {

/// Appends a frame's samples as they stand in a WAV file.
/// @param frame  8, 16 or 32 bits, one plane or one a channel; 24 bits lie in the upper three bytes of 32
void appendSamples(Bytes& to, const AVFrame& frame, const PcmFormat& format);

/// Fills a frame that has room for them with samples of a WAV file, in one plane.
void fillFrame(AVFrame& frame, const std::uint8_t* samples, const PcmFormat& format);

/// Bytes of the same length that are heard as nothing.
Bytes silence(const PcmFormat& format, std::uint64_t frames);

} // namespace zolt::companion

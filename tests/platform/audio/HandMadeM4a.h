// M4A files with Apple Lossless, atom by atom and bit by bit. For depths that no encoder at hand writes.
#pragma once

#include "AudioSamples.h"

namespace zolt::test {

/// Samples of any depth from 16 to 32 bits as numbers, interleaved.
using Numbers = std::vector<int32_t>;

/// An M4A file of mono or stereo samples, stored in packets without compression.
QByteArray handMadeM4a(const Numbers& numbers, uint32_t rate, uint32_t channels, uint32_t bits);

/// One atom: size, name, contents.
QByteArray atom(const char* name, const QByteArray& contents);

} // namespace zolt::test

// How WAV files name their kind of samples.
#pragma once

#include <QByteArrayView>

#include <cstdint>

namespace zolt::waveTag {

constexpr uint16_t Integer = 1;
constexpr uint16_t Float = 3;
/// The kind stands further on, as a longer identifier: two bytes of tag, then the tail.
constexpr uint16_t Extensible = 0xfffe;
constexpr QByteArrayView extensibleTail("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xaa\x00\x38\x9b\x71", 14);

} // namespace zolt::waveTag

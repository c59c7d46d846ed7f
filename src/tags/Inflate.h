// Decompression with a limit.
#pragma once

#include <taglib/tbytevector.h>

#include <optional>

namespace zolt {

/// What the zlib stream at the start of `bytes` holds; empty for one that is broken.
/// @return absent if it holds more than `most` bytes
std::optional<TagLib::ByteVector> inflateWithin(const TagLib::ByteVector& bytes, size_t most);

} // namespace zolt

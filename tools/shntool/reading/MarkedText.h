// Text files with a byte-order mark, which shntool reads as bytes.
#pragma once

#include <cstddef>
#include <cstdio>

namespace zolt::reading {

/// Turns a text with a mark at its start into UTF-8 without one.
/// @param bytes  UTF-16 in either order, or UTF-8
/// @param text   gets the result, which has at most 3 bytes for every 2
/// @return its length; `none` for bytes without a mark
inline constexpr std::size_t none = std::size_t(-1);
std::size_t unmarked(const unsigned char* bytes, std::size_t size, char* text);

/// A stream over the text of a file of at most a megabyte that begins with a mark; null for any other file, whose
/// descriptor stays as it was. The descriptor stays open.
std::FILE* markedText(int descriptor);

} // namespace zolt::reading

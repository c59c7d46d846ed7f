// Bytes, and numbers in them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zolt::companion {

using Bytes = std::vector<std::uint8_t>;

/// The little-endian number of `size` bytes at `from`.
inline std::uint64_t littleEndian(const std::uint8_t* from, unsigned size)
{
    std::uint64_t value = 0;
    while (size-- > 0)
        value = value << 8 | from[size];
    return value;
}

/// Appends a number of `size` bytes, little-endian.
inline void appendLittleEndian(Bytes& to, std::uint64_t value, unsigned size)
{
    for (; size > 0; --size, value >>= 8)
        to.push_back(std::uint8_t(value));
}

} // namespace zolt::companion

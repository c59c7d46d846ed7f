// Turns numbers with their frequencies into bytes.
#pragma once

#include "audio/Bytes.h"

namespace zolt::companion {

class RangeEncoder
{
public:
    /// @param to  gets the bytes; outlives this object
    explicit RangeEncoder(Bytes& to) : to_(to) {}

    /// One of `total` equally long steps, and the `count` - 1 after it.
    void encode(std::uint32_t first, std::uint32_t count, std::uint32_t total);
    /// As encode, of 2 to the power of `bits` steps.
    void encodeShift(std::uint32_t first, std::uint32_t count, unsigned bits);

    /// Hands over what is still held.
    void finish();

private:
    void normalize();
    void put(std::uint32_t step, std::uint32_t first, std::uint32_t count);
    void release(unsigned carry);

    Bytes& to_;
    std::uint32_t low_ = 0, range_ = 1u << 31;
    std::uint8_t held_ = 0;     ///< waits for a carry
    std::size_t following_ = 0; ///< bytes of ones behind it, which a carry runs through
};

} // namespace zolt::companion

// Which of four ways was used least recently, in 16 bits.
#pragma once

#include <cstdint>

namespace zolt {

/// The LRU state of a group of four: a 4 by 4 matrix of bits, one row (nibble) for each way. Bit (3 - v) of row w says
/// that way w was used after way v, so the row of the way used longest ago is 0. Not locked: its owner is.
class LruState
{
public:
    static constexpr int ways = 4;
    /// As if the ways had been used in the order 3, 2, 1, 0: a fresh group is filled from way 3 down.
    static constexpr std::uint16_t initial = 0x0137;

    constexpr LruState() = default;
    constexpr explicit LruState(std::uint16_t bits) : bits_(bits) {}

    constexpr std::uint16_t bits() const { return bits_; }

    /// Makes `way` (0 to 3) the one used last.
    void touch(int way);
    /// The way to give up: the highest one whose row is empty. A state that has none is a fault of the bookkeeping.
    int victim() const;

private:
    std::uint16_t bits_ = initial;
};

} // namespace zolt

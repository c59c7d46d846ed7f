// Writes the numbers of a Shorten stream.
#pragma once

#include "audio/Output.h"

namespace zolt::companion {

class BitWriter
{
public:
    /// @param output  outlives this object
    explicit BitWriter(Output& output) : output_(output) {}

    /// A run of zeros, a one, then the low bits.
    void number(std::uint32_t value, unsigned lowBits);

    /// The same with a sign, which becomes the lowest bit.
    void signedNumber(std::int32_t value, unsigned lowBits) { number(folded(value), lowBits + 1); }

    /// A number that is preceded by its count of low bits.
    void size(std::uint32_t value);

    /// Fills the last word of four bytes up with zeros and hands everything to the output.
    void finish();

    /// A sign as the lowest bit: 0, -1, 1, -2 become 0, 1, 2, 3.
    static std::uint32_t folded(std::int32_t value) { return std::uint32_t(value) << 1 ^ std::uint32_t(value >> 31); }

private:
    void bits(std::uint32_t value, unsigned count);

    Output& output_;
    Bytes bytes_;
    std::uint64_t cache_ = 0; ///< the last bits, up to the lowest
    unsigned cached_ = 0;
    std::uint64_t written_ = 0;
};

} // namespace zolt::companion

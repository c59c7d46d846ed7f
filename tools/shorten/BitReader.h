// Reads the numbers of a Shorten stream.
#pragma once

#include "audio/ByteSource.h"

namespace zolt::companion {

/// Every operation throws Failure: Read where the source ends, Format where a number is too large for the format.
class BitReader
{
public:
    /// @param source  outlives this object; is read ahead of what was asked for
    explicit BitReader(ByteSource& source);

    /// A run of zeros, a one, then the low bits.
    std::uint32_t number(unsigned lowBits)
    {
        const std::uint64_t high = zeros();
        if (high >> (32 - lowBits) != 0) damaged();
        return std::uint32_t(high << lowBits) | bits(lowBits);
    }

    /// The same with a sign, which is the lowest bit.
    std::int32_t signedNumber(unsigned lowBits)
    {
        const std::uint32_t folded = number(lowBits + 1);
        return std::int32_t(folded >> 1 ^ (0 - (folded & 1)));
    }

    /// A number that is preceded by its count of low bits.
    std::uint32_t size();

    /// For what makes no sense.
    /// @throws Failure (Format)
    [[noreturn]] void damaged() const;

private:
    std::uint64_t zeros();
    std::uint32_t bits(unsigned count);
    void refill();
    bool readMore();
    [[noreturn]] void cut() const;

    ByteSource& source_;
    Bytes buffer_;
    std::size_t next_ = 0, end_ = 0;
    std::uint64_t cache_ = 0; ///< the next bits, from the highest
    unsigned cached_ = 0;
};

} // namespace zolt::companion

#include "mac/ApeValues.h"

#include <algorithm>
#include <iterator>

namespace zolt::companion {

namespace {

/// Where each symbol begins among 65536 steps; those behind the table have one step each.
constexpr std::uint32_t starts[] = {0,     19578, 36160, 48417, 56323, 60899, 63265, 64435, 64971, 65232, 65351,
                                    65416, 65447, 65466, 65476, 65482, 65485, 65488, 65490, 65491, 65492, 65493};
constexpr std::uint32_t symbolsInTable = std::uint32_t(std::size(starts)) - 1, escape = 63, behindTable = 65472;

void encodeBits(std::uint32_t value, unsigned bits, RangeEncoder& to)
{
    to.encodeShift(value, 1, bits);
}

/// A number below `pivot`; a large one in two parts.
void encodeBase(std::uint32_t base, std::uint32_t pivot, RangeEncoder& to)
{
    if (pivot < 0x10000) return to.encode(base, 1, pivot);
    unsigned low = 0;
    for (; pivot > 0xffff; pivot >>= 1)
        ++low;
    to.encode(base >> low, 1, pivot + 1);
    to.encode(base & ((1u << low) - 1), 1, 1u << low);
}

} // namespace

void ApeValues::encodeOverflow(std::uint32_t overflow, RangeEncoder& to) const
{
    const std::uint32_t symbol = std::min(overflow, escape);
    if (symbol < symbolsInTable)
        to.encodeShift(starts[symbol], starts[symbol + 1] - starts[symbol], 16);
    else
        to.encodeShift(symbol + behindTable, 1, 16);
    if (symbol < escape) return;
    encodeBits(overflow >> 16, 16, to);
    encodeBits(overflow & 0xffff, 16, to);
}

void ApeValues::encode(std::int32_t value, RangeEncoder& to)
{
    const std::uint32_t folded = value > 0 ? 2 * std::uint32_t(value) - 1 : 0 - 2 * std::uint32_t(value);
    const std::uint32_t pivot = std::max(sum_ >> 5, 1u);
    encodeOverflow(folded / pivot, to);
    encodeBase(folded % pivot, pivot, to);
    sum_ += std::uint32_t((std::uint64_t(folded) + 1) / 2) - ((sum_ + 16) >> 5);
}

} // namespace zolt::companion

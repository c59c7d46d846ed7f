// Finds how a block of samples is told in the fewest bits.
#pragma once

#include <cstdint>
#include <vector>

namespace zolt::companion {

struct Differences
{
    unsigned order = 0;  ///< 0 to 3: of the differences taken
    unsigned energy = 0; ///< low bits of a residual, its sign aside
    std::vector<std::int32_t> residuals;
};

/// @param block   three earlier samples stand ahead of it
/// @param centre  what differences of order 0 are taken against
Differences bestDifferences(const int* block, unsigned blockSize, int centre);

} // namespace zolt::companion

#include "shorten/Differences.h"

#include "shorten/BitWriter.h"

#include <bit>

namespace zolt::companion {

namespace {

constexpr unsigned orders = 4, mostEnergy = 20;

std::vector<std::int32_t> differences(const int* block, unsigned blockSize, unsigned order, int centre)
{
    std::vector<std::int32_t> residuals(blockSize);
    for (unsigned i = 0; i < blockSize; ++i) {
        const int *const at = block + i, a = at[-1], b = at[-2], c = at[-3];
        const int expected[orders] = {centre, a, 2 * a - b, 3 * (a - b) + c};
        residuals[i] = *at - expected[order];
    }
    return residuals;
}

std::uint64_t magnitude(const std::vector<std::int32_t>& residuals)
{
    std::uint64_t sum = 0;
    for (const std::int32_t residual : residuals)
        sum += BitWriter::folded(residual);
    return sum;
}

std::uint64_t bitsWith(const std::vector<std::int32_t>& residuals, unsigned energy)
{
    std::uint64_t bits = residuals.size() * (energy + 2);
    for (const std::int32_t residual : residuals)
        bits += BitWriter::folded(residual) >> (energy + 1);
    return bits;
}

/// About the bits of the mean, or one to either side.
unsigned bestEnergy(const std::vector<std::int32_t>& residuals, std::uint64_t sum)
{
    const unsigned about = unsigned(std::bit_width(sum / residuals.size()));
    unsigned best = about > 2 ? about - 3 : 0;
    std::uint64_t fewest = bitsWith(residuals, best);
    for (unsigned energy = best + 1; energy <= about && energy <= mostEnergy; ++energy) {
        const std::uint64_t bits = bitsWith(residuals, energy);
        if (bits >= fewest) break;
        fewest = bits;
        best = energy;
    }
    return best;
}

} // namespace

Differences bestDifferences(const int* block, unsigned blockSize, int centre)
{
    Differences best;
    std::uint64_t least = ~std::uint64_t(0);
    for (unsigned order = 0; order < orders; ++order) {
        auto residuals = differences(block, blockSize, order, centre);
        const std::uint64_t sum = magnitude(residuals);
        if (sum >= least) continue;
        least = sum;
        best.order = order;
        best.residuals = std::move(residuals);
    }
    best.energy = bestEnergy(best.residuals, least);
    return best;
}

} // namespace zolt::companion

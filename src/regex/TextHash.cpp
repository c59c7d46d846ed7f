#include "regex/TextHash.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace zolt {

namespace {

constexpr std::uint64_t factor = 0x9E3779B97F4A7C15; // odd, so that a product loses nothing
constexpr std::size_t laneCount = 4;
using Lanes = std::uint64_t[laneCount];

std::uint64_t mixed(std::uint64_t lane, std::uint64_t word)
{
    return (lane ^ word) * factor;
}

std::uint64_t wordAt(const char* bytes, std::size_t count = sizeof(std::uint64_t))
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    return word;
}

/// A product carries only upwards, so the high bits are brought down before and after the last one.
std::uint64_t joined(const Lanes& lanes)
{
    const std::uint64_t sum = lanes[0] + std::rotl(lanes[1], 13) + std::rotl(lanes[2], 29) + std::rotl(lanes[3], 47);
    const std::uint64_t hash = mixed(sum, sum >> 32);
    return hash ^ (hash >> 29);
}

} // namespace

std::size_t hashOfUnits(QStringView units)
{
    const char* bytes = reinterpret_cast<const char*>(units.utf16());
    std::size_t left = static_cast<std::size_t>(units.size()) * sizeof(char16_t);
    Lanes lanes = {left, 1, 2, 3};
    for (; left >= sizeof(Lanes); left -= sizeof(Lanes), bytes += sizeof(Lanes)) {
        for (std::size_t lane = 0; lane < laneCount; ++lane) {
            lanes[lane] = mixed(lanes[lane], wordAt(bytes + lane * sizeof(std::uint64_t)));
        }
    }
    for (std::size_t lane = 0; left > 0; ++lane) {
        const std::size_t count = std::min(left, sizeof(std::uint64_t));
        lanes[lane] = mixed(lanes[lane], wordAt(bytes, count));
        left -= count;
        bytes += count;
    }
    return joined(lanes);
}

} // namespace zolt

#include "shorten/ShnChannel.h"

#include <algorithm>
#include <numeric>

namespace zolt::companion {

namespace {

using namespace shn;

constexpr unsigned mostEnergy = 29;
constexpr unsigned lpcFraction = 5; // bits of a factor behind the point

/// Sums wrap around where a damaged file makes them overflow.
int wrapped(std::int64_t value)
{
    return int(std::uint32_t(value));
}

template <unsigned order> std::int64_t predicted(const int* at)
{
    const std::int64_t a = at[-1], b = at[-2], c = at[-3];
    if constexpr (order == 0) return 0;
    if constexpr (order == 1) return a;
    if constexpr (order == 2) return 2 * a - b;
    return 3 * (a - b) + c;
}

/// What the samples ahead of `at` amount to. Unsigned, as in a damaged file nothing keeps it small.
std::int64_t weighed(const std::vector<std::int32_t>& factors, const int* at)
{
    std::uint64_t sum = 0;
    for (const std::int32_t factor : factors)
        sum += std::uint64_t(std::int64_t(factor) * *--at);
    return std::int64_t(sum);
}

} // namespace

ShnChannel::ShnChannel(const ShnHeader& header)
    : header_(header), kept_(std::max<std::size_t>(keptSamples, header.lpcOrder)), samples_(kept_),
      means_(std::max(1u, header.means), header.sampleType().centre())
{
}

/// The mean of the last blocks. Version 1 neither rounds nor knows of shifts.
int ShnChannel::expected() const
{
    if (header_.means == 0) return means_[0];
    const std::int64_t start = header_.version < 2 ? 0 : header_.means / 2;
    const std::int64_t mean = std::accumulate(means_.begin(), means_.end(), start) / std::int64_t(header_.means);
    if (header_.version < 2 || shift_ == 0) return wrapped(mean);
    return wrapped(mean >> (shift_ - 1) >> 1);
}

void ShnChannel::noteMean()
{
    if (header_.means == 0) return;
    const std::int64_t start = header_.version < 2 ? 0 : blockSize_ / 2;
    std::int64_t mean = std::accumulate(block(), block() + blockSize_, start) / std::int64_t(blockSize_);
    if (header_.version >= 2) mean *= std::int64_t(1) << shift_;
    std::rotate(means_.begin(), means_.begin() + 1, means_.end());
    means_.back() = wrapped(mean);
}

template <unsigned order> void ShnChannel::readDifferences(BitReader& bits, unsigned energy, int around)
{
    const std::int64_t constant = order == 0 ? around : 0;
    for (int *at = block(), *end = at + blockSize_; at < end; ++at)
        *at = wrapped(constant + predicted<order>(at) + bits.signedNumber(energy));
}

/// The samples ahead of the block stay moved, as they always were: the next block may be so short that it meets them.
void ShnChannel::readPredicted(BitReader& bits, unsigned energy, int around)
{
    const std::uint32_t order = bits.number(lowBits::lpcOrder);
    if (order > kept_) bits.damaged();
    std::vector<std::int32_t> factors;
    for (std::uint32_t i = 0; i < order; ++i)
        factors.push_back(bits.signedNumber(lowBits::lpcFactor));
    const std::int64_t rounding = header_.version < 2 ? 0 : 1 << lpcFraction;
    int *const start = block(), *const end = start + blockSize_;
    for (int* at = start - order; at < start; ++at)
        *at = wrapped(std::int64_t(*at) - around);
    for (int* at = start; at < end; ++at)
        *at = wrapped(((weighed(factors, at) + rounding) >> lpcFraction) + bits.signedNumber(energy));
    for (int* at = start; at < end; ++at)
        *at = wrapped(std::int64_t(*at) + around);
}

void ShnChannel::readSamples(unsigned command, BitReader& bits, int around)
{
    const std::uint32_t energy = bits.number(lowBits::energy);
    if (energy > mostEnergy) bits.damaged();
    switch (command) {
    case Diff0:
        return readDifferences<0>(bits, energy, around);
    case Diff1:
        return readDifferences<1>(bits, energy, around);
    case Diff2:
        return readDifferences<2>(bits, energy, around);
    case Diff3:
        return readDifferences<3>(bits, energy, around);
    default:
        return readPredicted(bits, energy, around);
    }
}

void ShnChannel::decode(unsigned command, unsigned blockSize, unsigned shift, BitReader& bits)
{
    std::copy_n(samples_.begin() + blockSize_, kept_, samples_.begin());
    samples_.resize(kept_ + blockSize);
    blockSize_ = blockSize;
    shift_ = shift;
    if (command == Zero)
        std::fill_n(block(), blockSize_, 0);
    else
        readSamples(command, bits, expected());
    noteMean();
}

int ShnChannel::sample(unsigned i) const
{
    const std::int64_t value = std::int64_t(samples_[kept_ + i]) * (std::int64_t(1) << shift_);
    const SampleType& type = header_.sampleType();
    return int(std::clamp<std::int64_t>(value, type.lowest(), type.highest()));
}

} // namespace zolt::companion

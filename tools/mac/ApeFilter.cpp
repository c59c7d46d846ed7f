#include "mac/ApeFilter.h"

#include "mac/Sign.h"

#include <algorithm>

namespace zolt::companion {

namespace {

constexpr std::size_t room = 512;

} // namespace

ApeFilter::ApeFilter(unsigned order, unsigned fraction)
    : order_(order), fraction_(fraction), factors_(order), history_(order + room), steps_(order + room), at_(order)
{
}

std::int32_t ApeFilter::expected() const
{
    std::uint32_t sum = 0; // wraps as in the decoder
    const std::int16_t* const history = &history_[at_ - order_];
    for (unsigned i = 0; i < order_; ++i)
        sum += std::uint32_t(factors_[i] * history[i]);
    return std::int32_t((std::int64_t(std::int32_t(sum)) + (1 << (fraction_ - 1))) >> fraction_);
}

void ApeFilter::learn(std::int32_t residual)
{
    const int direction = againstSign(residual);
    if (direction == 0) return;
    const std::int16_t* const steps = &steps_[at_ - order_];
    for (unsigned i = 0; i < order_; ++i)
        factors_[i] = std::int16_t(factors_[i] + direction * steps[i]);
}

void ApeFilter::remember(std::int32_t sample)
{
    const std::uint32_t size = sample < 0 ? 0 - std::uint32_t(sample) : std::uint32_t(sample);
    const int strength = 8 << ((size > mean_ * 3ull) + (size > mean_ + mean_ / 3));
    history_[at_] = std::int16_t(std::clamp(sample, -32768, 32767));
    steps_[at_] = std::int16_t(againstSign(sample) * strength);
    mean_ += std::uint32_t(std::int32_t(size - mean_) / 16);
    for (const std::size_t back : {1, 2, 8})
        steps_[at_ - back] = std::int16_t(steps_[at_ - back] >> 1);
    if (++at_ < history_.size()) return;
    std::copy(history_.end() - order_, history_.end(), history_.begin());
    std::copy(steps_.end() - order_, steps_.end(), steps_.begin());
    at_ = order_;
}

std::int32_t ApeFilter::residual(std::int32_t sample)
{
    const std::int32_t left = std::int32_t(std::uint32_t(sample) - std::uint32_t(expected()));
    learn(left);
    remember(sample);
    return left;
}

} // namespace zolt::companion

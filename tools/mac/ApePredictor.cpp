#include "mac/ApePredictor.h"

#include "mac/Sign.h"

namespace zolt::companion {

namespace {

std::int32_t difference(std::int32_t a, std::int32_t b)
{
    return std::int32_t(std::uint32_t(a) - std::uint32_t(b));
}

std::int32_t faded(std::int32_t value)
{
    return std::int32_t(std::uint32_t(value) * 31) >> 5;
}

} // namespace

/// The newest stands first, then its difference to the one before, then older differences.
template <std::size_t size> void ApePredictor::Line<size>::enter(std::int32_t value)
{
    for (std::size_t i = size - 1; i > 0; --i) {
        values[i] = values[i - 1];
        directions[i] = directions[i - 1];
    }
    values[1] = difference(value, values[1]);
    directions[1] = againstSign(values[1]);
    values[0] = value;
    directions[0] = againstSign(value);
}

template <std::size_t size> std::int64_t ApePredictor::Line<size>::sum() const
{
    std::int64_t all = 0;
    for (std::size_t i = 0; i < size; ++i)
        all += std::int64_t(values[i]) * factors[i];
    return all;
}

template <std::size_t size> void ApePredictor::Line<size>::learn(int direction)
{
    for (std::size_t i = 0; i < size; ++i)
        factors[i] += directions[i] * direction;
}

std::int32_t ApePredictor::expected() const
{
    const std::int64_t own = own_.sum(), across = across_.sum();
    if (sums_ == Sums::Wide) return std::int32_t((own + (across >> 1)) >> 10);
    return std::int32_t(std::int32_t(own) + std::int64_t(std::int32_t(across) >> 1)) >> 10;
}

std::int32_t ApePredictor::residual(std::int32_t sample, std::int32_t other)
{
    own_.enter(last_);
    across_.enter(difference(other, faded(otherBefore_)));
    otherBefore_ = other;
    last_ = difference(sample, faded(smoothed_));
    smoothed_ = sample;
    const std::int32_t left = difference(last_, expected());
    own_.learn(againstSign(left));
    across_.learn(againstSign(left));
    return left;
}

} // namespace zolt::companion

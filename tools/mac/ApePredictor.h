// The last step of a decoder, which is the first of an encoder: short predictions from both channels.
#pragma once

#include <array>
#include <cstdint>

namespace zolt::companion {

class ApePredictor
{
public:
    /// What becomes of sums above 32 bits, which loud samples of 24 bits make: decoders differ by kind of file.
    enum class Sums { Wrapping, Wide };

    explicit ApePredictor(Sums sums) : sums_(sums) {}

    /// What is left of a sample.
    /// @param other   the other channel's last value; 0 where there is none
    std::int32_t residual(std::int32_t sample, std::int32_t other);
    /// What the other channel is predicted from.
    std::int32_t smoothed() const { return smoothed_; }

private:
    /// A few values with their differences, each with a factor that learns.
    template <std::size_t size> struct Line
    {
        std::array<std::int32_t, size> values = {}, factors = {};
        std::array<int, size> directions = {};

        void enter(std::int32_t value);
        std::int64_t sum() const;
        void learn(int direction);
    };

    std::int32_t expected() const;

    Sums sums_;
    Line<4> own_{.factors = {360, 317, -109, 98}};
    Line<5> across_;
    std::int32_t last_ = 0, smoothed_ = 0, otherBefore_ = 0;
};

} // namespace zolt::companion

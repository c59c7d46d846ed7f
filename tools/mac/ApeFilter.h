// A long filter that learns from the signs of what it left over.
#pragma once

#include <cstdint>
#include <vector>

namespace zolt::companion {

class ApeFilter
{
public:
    /// @param fraction  bits of a factor behind the point
    ApeFilter(unsigned order, unsigned fraction);

    /// What is left of a sample once the expected part is taken off.
    std::int32_t residual(std::int32_t sample);

private:
    std::int32_t expected() const;
    void learn(std::int32_t residual);
    void remember(std::int32_t sample);

    unsigned order_, fraction_;
    std::vector<std::int16_t> factors_, history_, steps_; ///< the last two with room to move on in
    std::size_t at_;
    std::uint32_t mean_ = 0;
};

} // namespace zolt::companion

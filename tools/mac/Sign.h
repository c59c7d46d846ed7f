// The direction of learning.
#pragma once

#include <cstdint>

namespace zolt::companion {

/// -1 for what is above 0, 1 for what is below.
inline int againstSign(std::int32_t value)
{
    return (value < 0) - (value > 0);
}

} // namespace zolt::companion

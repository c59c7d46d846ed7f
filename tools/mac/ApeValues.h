// Writes residuals as numbers whose usual size is learned on the way.
#pragma once

#include "mac/RangeEncoder.h"

namespace zolt::companion {

class ApeValues
{
public:
    void encode(std::int32_t value, RangeEncoder& to);

private:
    void encodeOverflow(std::uint32_t overflow, RangeEncoder& to) const;

    std::uint32_t sum_ = (1u << 10) * 16;
};

} // namespace zolt::companion

#include "encode/AudioFormatObject.h"

#include <limits>

namespace zolt {

double AudioFormatObject::time() const
{
    static_assert(std::numeric_limits<double>::is_iec559);
    return static_cast<double>(totalSamples_) / static_cast<double>(sampleRate_);
}

} // namespace zolt

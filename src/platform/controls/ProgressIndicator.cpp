#include "platform/controls/ProgressIndicator.h"

namespace zolt {

void ProgressIndicator::take(double value)
{
    value_ = value;
    if (value >= min_) reading_ = value;
}

void ProgressIndicator::setDoubleValue(double value)
{
    {
        const std::lock_guard guard(mutex_);
        take(value);
    }
    changed();
}

void ProgressIndicator::incrementBy(double amount)
{
    {
        const std::lock_guard guard(mutex_);
        take(value_ + amount);
    }
    changed();
}

} // namespace zolt

#include "platform/controls/ProgressIndicator.h"

namespace zolt {

void ProgressIndicator::incrementBy(double amount)
{
    {
        const std::lock_guard guard(mutex_);
        value_ += amount;
    }
    changed();
}

} // namespace zolt

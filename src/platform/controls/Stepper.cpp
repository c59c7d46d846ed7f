#include "platform/controls/Stepper.h"

namespace zolt {

Stepper::Stepper(double min, double max, double value, double increment, bool wraps)
    : min_(min), max_(max), increment_(increment), wraps_(wraps), value_(std::clamp(value, min, max))
{
}

void Stepper::setDoubleValue(double value)
{
    write(value_, std::clamp(value, min_, max_));
}

void Stepper::stepBy(double amount)
{
    if (!isEnabled()) return;
    const double next = doubleValue() + amount;
    if (wraps_ && next > max_) {
        setDoubleValue(min_);
    } else if (wraps_ && next < min_) {
        setDoubleValue(max_);
    } else {
        setDoubleValue(next);
    }
    performAction();
}

} // namespace zolt

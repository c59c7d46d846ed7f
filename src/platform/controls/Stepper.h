// A number that a person raises and lowers by a step.
#pragma once

#include "platform/controls/Control.h"

namespace zolt {

class Stepper : public Control
{
public:
    /// @param wraps  a step past one end comes out at the other; otherwise it stays at the end
    Stepper(double min, double max, double value, double increment = 1.0, bool wraps = false);

    double minValue() const { return min_; }
    double maxValue() const { return max_; }
    double increment() const { return increment_; }
    bool valueWraps() const { return wraps_; }

    double doubleValue() const { return read(value_); }
    /// The value with its decimals cut off.
    int intValue() const { return int(doubleValue()); }

    /// Sets the value, held between the ends.
    void setDoubleValue(double value);
    void setIntValue(int value) { setDoubleValue(value); }

    /// What a person's press does: one increment, then the action. Nothing when disabled. Main thread.
    void stepUp() { stepBy(increment_); }
    void stepDown() { stepBy(-increment_); }

private:
    void stepBy(double amount);

    const double min_;
    const double max_;
    const double increment_;
    const bool wraps_;
    double value_;
};

} // namespace zolt

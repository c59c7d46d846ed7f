// A value that a person moves between two ends.
#pragma once

#include "platform/controls/Control.h"

namespace zolt {

class Slider : public Control
{
public:
    /// @param step  what a person's move snaps to, counted from `min`; values that the program sets stay as they are
    Slider(double min, double max, double value, double step = 1.0);

    double minValue() const { return min_; }
    double maxValue() const { return max_; }
    double step() const { return step_; }

    double doubleValue() const { return read(value_); }
    /// The value with its decimals cut off.
    int intValue() const { return int(doubleValue()); }
    /// The value as text, with no decimals when it is whole and a point whatever the locale.
    QString stringValue() const;

    /// Sets the value, held between the ends.
    void setDoubleValue(double value);
    void setIntValue(int value) { setDoubleValue(value); }

    /// What a person's move does: sets the nearest step and performs the action. Nothing when disabled. Main thread.
    void moveTo(double value);

private:
    const double min_;
    const double max_;
    const double step_;
    double value_;
};

} // namespace zolt

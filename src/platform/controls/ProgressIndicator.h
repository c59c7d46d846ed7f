// A progress bar.
#pragma once

#include "platform/controls/Control.h"

namespace zolt {

/// Stores what it is given as it stands, a value below the minimum included; a view clips what it draws.
class ProgressIndicator : public Control
{
public:
    double minValue() const { return read(min_); }
    void setMinValue(double value) { write(min_, value); }
    double maxValue() const { return read(max_); }
    void setMaxValue(double value) { write(max_, value); }
    double doubleValue() const { return read(value_); }
    void setDoubleValue(double value) { write(value_, value); }
    void incrementBy(double amount);

    bool isIndeterminate() const { return indeterminate_; }
    void setIndeterminate(bool indeterminate) { setFlag(indeterminate_, indeterminate); }
    bool isAnimating() const { return animating_; }
    void startAnimation() { setFlag(animating_, true); }
    void stopAnimation() { setFlag(animating_, false); }

private:
    double min_ = 0.0;
    double max_ = 100.0;
    double value_ = 0.0;
    std::atomic<bool> indeterminate_ = false;
    std::atomic<bool> animating_ = false;
};

} // namespace zolt

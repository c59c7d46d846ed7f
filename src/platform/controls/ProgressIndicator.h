// A progress bar.
#pragma once

#include "platform/controls/Control.h"

#include <optional>

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
    void setDoubleValue(double value);
    void incrementBy(double amount);

    /// The last value that was not below the minimum; absent while there is none. What a view draws: a piece of a
    /// tool's text without a number sets a value below it, which is no progress lost.
    std::optional<double> reading() const { return read(reading_); }
    /// Forgets the reading: what is measured from here on begins anew. The value stays.
    void beginReadings() { write(reading_, std::optional<double>()); }

    bool isIndeterminate() const { return indeterminate_; }
    void setIndeterminate(bool indeterminate) { setFlag(indeterminate_, indeterminate); }
    bool isAnimating() const { return animating_; }
    void startAnimation() { setFlag(animating_, true); }
    void stopAnimation() { setFlag(animating_, false); }

private:
    void take(double value);

    double min_ = 0.0;
    double max_ = 100.0;
    double value_ = 0.0;
    std::optional<double> reading_;
    std::atomic<bool> indeterminate_ = false;
    std::atomic<bool> animating_ = false;
};

} // namespace zolt

#include "platform/controls/Slider.h"

#include <QLocale>

#include <cmath>

namespace zolt {

Slider::Slider(double min, double max, double value, double step)
    : min_(min), max_(max), step_(step), value_(std::clamp(value, min, max))
{
}

QString Slider::stringValue() const
{
    return QString::number(doubleValue(), 'f', QLocale::FloatingPointShortest);
}

void Slider::setDoubleValue(double value)
{
    write(value_, std::clamp(value, min_, max_));
}

void Slider::moveTo(double value)
{
    if (!isEnabled()) return;
    setDoubleValue(min_ + std::round((value - min_) / step_) * step_);
    performAction();
}

} // namespace zolt

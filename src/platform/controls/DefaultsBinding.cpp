#include "platform/controls/DefaultsBinding.h"

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"
#include "platform/controls/TextField.h"

namespace zolt {

namespace {

/// @param read   how the settings give the value
/// @param show   how the control takes it
/// @param value  how the control gives it back. The control owns what calls it and so outlives that.
template <class Bound, class Read, class Show, class Value>
void bind(Bound& control, const QString& key, UserDefaults& defaults, Read read, Show show, Value value)
{
    std::invoke(show, control, std::invoke(read, defaults, key));
    control.setSaver([&control, key, &defaults, value] { defaults.set(key, std::invoke(value, control)); });
}

} // namespace

void bindToDefault(CheckBox& box, const QString& key, UserDefaults& defaults)
{
    bind(box, key, defaults, &UserDefaults::boolForKey, &CheckBox::setState, &CheckBox::state);
}

void bindToDefault(ComboBox& box, const QString& key, UserDefaults& defaults)
{
    bind(box, key, defaults, &UserDefaults::stringForKey, &ComboBox::setStringValue, &ComboBox::stringValue);
}

void bindToDefault(Matrix& matrix, const QString& key, UserDefaults& defaults)
{
    bind(matrix, key, defaults, &UserDefaults::integerForKey, &Matrix::selectIndex, &Matrix::selectedIndex);
}

void bindToDefault(Slider& slider, const QString& key, UserDefaults& defaults)
{
    bind(slider, key, defaults, &UserDefaults::integerForKey, &Slider::setIntValue, &Slider::intValue);
}

void bindToDefault(Stepper& stepper, const QString& key, UserDefaults& defaults)
{
    bind(stepper, key, defaults, &UserDefaults::integerForKey, &Stepper::setIntValue, &Stepper::intValue);
}

void bindToDefault(TextField& field, const QString& key, UserDefaults& defaults)
{
    bind(field, key, defaults, &UserDefaults::stringForKey, &TextField::setStringValue, &TextField::stringValue);
}

} // namespace zolt

#include "platform/controls/DefaultsBinding.h"

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"
#include "platform/controls/TextField.h"

namespace zolt {

namespace {

/// Saves what `value` reads from the control. The control owns the function and so outlives it.
template <class Bound, class Value>
void saveChanges(Bound& control, const QString& key, UserDefaults& defaults, Value (Bound::*value)() const)
{
    control.setSaver([&control, key, &defaults, value] { defaults.set(key, (control.*value)()); });
}

} // namespace

void bindToDefault(CheckBox& box, const QString& key, UserDefaults& defaults)
{
    box.setState(defaults.boolForKey(key));
    saveChanges(box, key, defaults, &CheckBox::state);
}

void bindToDefault(ComboBox& box, const QString& key, UserDefaults& defaults)
{
    box.setStringValue(defaults.stringForKey(key));
    saveChanges(box, key, defaults, &ComboBox::stringValue);
}

void bindToDefault(Matrix& matrix, const QString& key, UserDefaults& defaults)
{
    matrix.selectIndex(defaults.integerForKey(key));
    saveChanges(matrix, key, defaults, &Matrix::selectedIndex);
}

void bindToDefault(Slider& slider, const QString& key, UserDefaults& defaults)
{
    slider.setIntValue(defaults.integerForKey(key));
    saveChanges(slider, key, defaults, &Slider::intValue);
}

void bindToDefault(Stepper& stepper, const QString& key, UserDefaults& defaults)
{
    stepper.setIntValue(defaults.integerForKey(key));
    saveChanges(stepper, key, defaults, &Stepper::intValue);
}

void bindToDefault(TextField& field, const QString& key, UserDefaults& defaults)
{
    field.setStringValue(defaults.stringForKey(key));
    saveChanges(field, key, defaults, &TextField::stringValue);
}

} // namespace zolt

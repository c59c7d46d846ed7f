// Ties a control to a key of the user's settings.
#pragma once

#include "platform/desktop/UserDefaults.h"

#include <QString>

namespace zolt {

class CheckBox;
class ComboBox;
class Matrix;
class Slider;
class Stepper;
class TextField;

/// From here on the control shows the value of the key and saves each change that a person makes, ahead of the
/// control's action. What the program itself sets is not saved. A control has one binding at most. Main thread; the
/// settings outlive the control.
void bindToDefault(CheckBox& box, const QString& key, UserDefaults& defaults = UserDefaults::standard());
/// The value is the text.
void bindToDefault(ComboBox& box, const QString& key, UserDefaults& defaults = UserDefaults::standard());
/// The value is the index of the selected cell; a saved index that no cell has leaves the selection.
void bindToDefault(Matrix& matrix, const QString& key, UserDefaults& defaults = UserDefaults::standard());
/// The value is the whole number, as for the stepper.
void bindToDefault(Slider& slider, const QString& key, UserDefaults& defaults = UserDefaults::standard());
void bindToDefault(Stepper& stepper, const QString& key, UserDefaults& defaults = UserDefaults::standard());
/// The value is the text, saved at each keystroke.
void bindToDefault(TextField& field, const QString& key, UserDefaults& defaults = UserDefaults::standard());

} // namespace zolt

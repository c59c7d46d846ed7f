#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"
#include "ui/TextSides.h"
#include "ui/binding/Binders.h"
#include "ui/binding/OutletBinding.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

#include <cmath>

namespace zolt {

namespace {

int place(const Slider& slider, double value)
{
    return int(std::lround((value - slider.minValue()) / slider.step()));
}

} // namespace

void bindWidget(QWidget& widget, const std::shared_ptr<Button>& model, const Changed& changed)
{
    auto& button = shownBy<QAbstractButton>(widget);
    keepShown<Button>(
        button, model, [](QAbstractButton& shown, const Button& each) { showWords(shown, each.title()); }, changed);
    QObject::connect(&button, &QAbstractButton::clicked, &button,
                     [model] { guarded("button", [&] { model->click(); }); });
}

void bindWidget(QWidget& widget, const std::shared_ptr<CheckBox>& model, const Changed& changed)
{
    auto& box = shownBy<QAbstractButton>(widget);
    const auto show = [](QAbstractButton& shown, const CheckBox& each) {
        showWords(shown, each.title());
        shown.setChecked(each.state());
    };
    keepShown<CheckBox>(box, model, show, changed);
    QObject::connect(&box, &QAbstractButton::clicked, &box, [model] { guarded("check box", [&] { model->click(); }); });
}

void bindWidget(QWidget& widget, const std::shared_ptr<ComboBox>& model, const Changed& changed)
{
    auto& box = shownBy<QComboBox>(widget);
    const auto show = [](QComboBox& shown, const ComboBox& each) {
        const QStringList items = each.items();
        QStringList listed;
        for (int index = 0; index < shown.count(); ++index)
            listed += shown.itemText(index);
        if (items != listed) {
            shown.clear();
            shown.addItems(items);
        }
        if (shown.isEditable() && shown.currentText() != each.stringValue()) shown.setEditText(each.stringValue());
        if (!shown.isEditable()) shown.setCurrentIndex(shown.findText(each.stringValue()));
    };
    keepShown<ComboBox>(box, model, show, changed);
    const auto enter = [model](const QString& text) { guarded("combo box", [&] { model->enterText(text); }); };
    QObject::connect(&box, &QComboBox::textActivated, &box, enter);
    if (box.lineEdit()) QObject::connect(box.lineEdit(), &QLineEdit::textEdited, &box, enter);
}

void bindWidget(QWidget& widget, const std::shared_ptr<Slider>& model, const Changed& changed)
{
    auto& slider = shownBy<QSlider>(widget);
    slider.setRange(0, place(*model, model->maxValue()));
    slider.setPageStep(1);
    keepShown<Slider>(
        slider, model, [](QSlider& shown, const Slider& each) { shown.setValue(place(each, each.doubleValue())); },
        changed);
    QObject::connect(&slider, &QSlider::valueChanged, &slider, [model](int position) {
        if (position == place(*model, model->doubleValue())) return; // the model's own change
        guarded("slider", [&] { model->moveTo(model->minValue() + position * model->step()); });
    });
}

void bindWidget(QWidget& widget, const std::shared_ptr<Stepper>& model, const Changed& changed)
{
    auto& box = shownBy<QSpinBox>(widget);
    box.setRange(int(model->minValue()), int(model->maxValue()));
    box.setSingleStep(int(model->increment()));
    box.setWrapping(model->valueWraps());
    keepShown<Stepper>(
        box, model, [](QSpinBox& shown, const Stepper& each) { shown.setValue(each.intValue()); }, changed);
    QObject::connect(&box, &QSpinBox::valueChanged, &box, [model](int value) {
        if (value == model->intValue()) return;
        guarded("stepper", [&] {
            model->setIntValue(value);
            model->performAction();
        });
    });
}

} // namespace zolt

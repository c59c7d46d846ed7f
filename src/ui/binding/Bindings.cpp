#include "ui/binding/Bindings.h"

#include "ui/binding/OutletBinding.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

template <class Widget> Widget& outletIn(QWidget& page, const QString& name)
{
    if (auto* const widget = page.findChild<Widget*>(name)) return *widget;
    throw AssertionException(u"The interface \"%1\" has no outlet \"%2\"."_s.arg(page.objectName(), name));
}

void showMatrix(QWidget& group, const Matrix& matrix)
{
    int index = 0;
    for (QAbstractButton* const button : group.findChildren<QAbstractButton*>()) {
        const MatrixCell cell = matrix.cellAt(index / matrix.columns(), index % matrix.columns());
        button->setEnabled(cell.enabled && matrix.isEnabled());
        button->setChecked(cell.state);
        ++index;
    }
}

void bindLabel(QLabel& label, const std::shared_ptr<TextField>& field, const std::function<void()>& changed)
{
    new OutletBinding<TextField, QLabel>(
        label, field,
        [](QLabel& widget, const TextField& model) {
            if (const QString text = model.stringValue(); !text.isEmpty()) widget.setText(text);
        },
        changed);
}

void bindLine(QLineEdit& line, const std::shared_ptr<TextField>& field, const std::function<void()>& changed)
{
    new OutletBinding<TextField, QLineEdit>(
        line, field,
        [](QLineEdit& widget, const TextField& model) {
            // The person's own typing comes back here; setting it again would move the cursor.
            const QString text = model.stringValue();
            if (text == widget.text()) return;
            widget.setText(text);
            widget.selectAll(); // typing goes over what was proposed
        },
        changed);
    QObject::connect(&line, &QLineEdit::textEdited, &line, [field](const QString& text) {
        guarded("text field", [&] {
            field->setStringValue(text);
            field->performAction();
        });
    });
}

} // namespace

void Bindings::bind(const QString& outlet, const std::shared_ptr<CheckBox>& box)
{
    auto& widget = outletIn<QCheckBox>(page_, outlet);
    new OutletBinding<CheckBox, QCheckBox>(
        widget, box, [](QCheckBox& shown, const CheckBox& model) { shown.setChecked(model.state()); }, changed_);
    QObject::connect(&widget, &QCheckBox::clicked, &widget, [box] { guarded("check box", [&] { box->click(); }); });
}

void Bindings::bind(const QString& outlet, const std::shared_ptr<Matrix>& matrix)
{
    auto& group = outletIn<QWidget>(page_, outlet);
    const auto buttons = group.findChildren<QAbstractButton*>();
    if (buttons.size() != matrix->rows() * matrix->columns()) {
        throw AssertionException(u"The matrix \"%1\" shows another number of cells than it has."_s.arg(outlet));
    }
    new OutletBinding<Matrix, QWidget>(group, matrix, showMatrix, changed_);
    for (int index = 0; index < buttons.size(); ++index) {
        QObject::connect(buttons[index], &QAbstractButton::clicked, &group, [matrix, index] {
            guarded("matrix", [&] { matrix->clickCell(index / matrix->columns(), index % matrix->columns()); });
        });
    }
}

void Bindings::bind(const QString& outlet, const std::shared_ptr<TextField>& field)
{
    auto& widget = outletIn<QWidget>(page_, outlet);
    if (auto* const label = qobject_cast<QLabel*>(&widget)) return bindLabel(*label, field, changed_);
    if (auto* const line = qobject_cast<QLineEdit*>(&widget)) return bindLine(*line, field, changed_);
    throw AssertionException(u"The outlet \"%1\" can show no text."_s.arg(outlet));
}

} // namespace zolt

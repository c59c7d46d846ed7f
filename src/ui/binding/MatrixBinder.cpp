#include "platform/controls/Matrix.h"
#include "ui/TextSides.h"
#include "ui/binding/Binders.h"
#include "ui/binding/OutletBinding.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGridLayout>
#include <QRadioButton>

namespace zolt {

namespace {

using Buttons = QList<QAbstractButton*>;

MatrixCell cellOf(const Matrix& matrix, int index)
{
    return matrix.cellAt(index / matrix.columns(), index % matrix.columns());
}

void showMatrix(const Buttons& buttons, const Matrix& matrix)
{
    const bool alone = matrix.mode() == Matrix::Mode::Radio;
    for (QAbstractButton* const button : buttons)
        button->setAutoExclusive(false); // radio buttons would not let the last one go off
    for (int index = 0; index < buttons.size(); ++index) {
        const MatrixCell cell = cellOf(matrix, index);
        QAbstractButton& button = *buttons[index];
        showWords(button, cell.title);
        button.setEnabled(cell.enabled && matrix.isEnabled());
        button.setChecked(cell.state);
    }
    for (QAbstractButton* const button : buttons)
        button->setAutoExclusive(alone);
}

/// One button a cell, row by row.
void build(QWidget& group, const Matrix& matrix)
{
    auto* const grid = new QGridLayout(&group);
    grid->setContentsMargins(0, 0, 0, 0);
    const int across = group.property("across").isValid() ? group.property("across").toInt() : matrix.columns();
    const QStringList toolTips = group.property("cellToolTips").toStringList();
    QWidget* last = nullptr;
    for (int index = 0; index < matrix.rows() * matrix.columns(); ++index) {
        auto* const cell = matrix.mode() == Matrix::Mode::Radio
                               ? static_cast<QAbstractButton*>(new QRadioButton(&group))
                               : new QCheckBox(&group);
        cell->setObjectName(QStringLiteral("%1_%2").arg(group.objectName()).arg(index));
        cell->setToolTip(toolTips.value(index));
        grid->addWidget(cell, index / across, index % across);
        if (last) QWidget::setTabOrder(last, cell);
        last = cell;
    }
    grid->setColumnStretch(across, 1); // the cells stand together at the near side
}

} // namespace

void bindWidget(QWidget& widget, const std::shared_ptr<Matrix>& model, const Changed& changed)
{
    if (widget.findChildren<QAbstractButton*>().isEmpty()) build(widget, *model);
    const Buttons buttons = widget.findChildren<QAbstractButton*>();
    if (buttons.size() != model->rows() * model->columns()) {
        throw AssertionException(
            QStringLiteral("The matrix \"%1\" shows another number of cells than it has.").arg(widget.objectName()));
    }
    keepShown<Matrix>(
        widget, model, [buttons](QWidget&, const Matrix& matrix) { showMatrix(buttons, matrix); }, changed);
    for (int index = 0; index < buttons.size(); ++index) {
        QObject::connect(buttons[index], &QAbstractButton::clicked, &widget, [buttons, model, index] {
            guarded("matrix", [&] { model->clickCell(index / model->columns(), index % model->columns()); });
            showMatrix(buttons, *model); // the button went over by itself, which the model need not have done
        });
    }
}

} // namespace zolt

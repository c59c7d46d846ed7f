#include "ui/pages/ChoiceMemory.h"

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/ImageView.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/ScrollView.h"
#include "platform/controls/Slider.h"
#include "platform/controls/Stepper.h"
#include "platform/controls/Table.h"
#include "platform/controls/TextField.h"
#include "platform/controls/TextView.h"
#include "platform/desktop/UserDefaults.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

// One pair for each kind that is kept: what it amounts to as text, and back. Others have no text.

QString told(const Control&)
{
    return QString();
}

void take(Control&, const QString&) {}

QString told(const CheckBox& box)
{
    return QString::number(box.state());
}

void take(CheckBox& box, const QString& kept)
{
    box.setState(kept == u"1");
}

QString told(const ComboBox& box)
{
    return box.stringValue();
}

void take(ComboBox& box, const QString& kept)
{
    box.setStringValue(kept);
}

QString told(const Slider& slider)
{
    return QString::number(slider.doubleValue());
}

void take(Slider& slider, const QString& kept)
{
    slider.setDoubleValue(kept.toDouble());
}

QString told(const Stepper& stepper)
{
    return QString::number(stepper.doubleValue());
}

void take(Stepper& stepper, const QString& kept)
{
    stepper.setDoubleValue(kept.toDouble());
}

QString told(const Matrix& matrix)
{
    QStringList on;
    for (int index = 0; index < matrix.rows() * matrix.columns(); ++index) {
        if (matrix.cellAt(index / matrix.columns(), index % matrix.columns()).state) on += QString::number(index);
    }
    return on.isEmpty() ? u"none"_s : on.join(u' ');
}

void take(Matrix& matrix, const QString& kept)
{
    const QStringList on = kept.split(u' ');
    if (matrix.mode() == Matrix::Mode::Radio) {
        if (kept != u"none") matrix.selectIndex(kept.toInt());
        return;
    }
    for (int index = 0; index < matrix.rows() * matrix.columns(); ++index)
        matrix.setCellState(index / matrix.columns(), index % matrix.columns(), on.contains(QString::number(index)));
}

bool deletes(const Outlet& outlet)
{
    return outlet.name.startsWith(u"delete");
}

} // namespace

ChoiceMemory::ChoiceMemory(QString page, Outlets outlets) : page_(std::move(page)), outlets_(std::move(outlets)) {}

QString ChoiceMemory::key(const QString& name) const
{
    return u"page.%1.%2"_s.arg(page_, name);
}

QString ChoiceMemory::text(const QString& name) const
{
    return UserDefaults::standard().stringForKey(key(name));
}

void ChoiceMemory::keepText(const QString& name, const QString& kept) const
{
    if (text(name) != kept) UserDefaults::standard().set(key(name), kept);
}

bool ChoiceMemory::isPassedOver(const QString& name, const QString& choice) const
{
    const auto found = passedOver_.constFind(name);
    return found != passedOver_.constEnd() && *found == choice;
}

void ChoiceMemory::restore() const
{
    for (const Outlet& outlet : outlets_) {
        const QString kept = deletes(outlet) ? QString() : text(outlet.name);
        if (kept.isEmpty() || isPassedOver(outlet.name, kept)) continue;
        std::visit(
            [&](const auto& model) {
                if (!model->hasSaver()) take(*model, kept);
            },
            outlet.model);
    }
}

void ChoiceMemory::keep() const
{
    for (const Outlet& outlet : outlets_) {
        if (deletes(outlet)) continue;
        std::visit(
            [&](const auto& model) {
                const QString now = model->hasSaver() ? QString() : told(*model);
                if (!now.isEmpty() && !isPassedOver(outlet.name, now)) keepText(outlet.name, now);
            },
            outlet.model);
    }
}

} // namespace zolt

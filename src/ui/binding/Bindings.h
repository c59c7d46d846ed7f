// Ties the widgets of an interface description to the control models of their owner, by the outlet's name.
#pragma once

#include "platform/controls/CheckBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/TextField.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace zolt {

/// The widget named like the outlet shows its model from then on, and what a person does with it reaches the model and
/// its action. A binding lives as long as its widget and keeps the model's one observer. A widget keeps its place while
/// the model hides it. Main thread.
class Bindings
{
public:
    /// @param page  the widget whose children are bound; outlives this object
    explicit Bindings(QWidget& page) : page_(page) {}

    /// Called after each change of a bound model has been shown.
    void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

    /// @throws AssertionException if the page holds no widget of that name and kind; so do the others
    void bind(const QString& outlet, const std::shared_ptr<CheckBox>& box);
    /// The widget holds one radio button or check box a cell, in the order of the cells.
    void bind(const QString& outlet, const std::shared_ptr<Matrix>& matrix);
    /// The widget is a label or a field to type in; a label keeps its own text while the model has none.
    void bind(const QString& outlet, const std::shared_ptr<TextField>& field);

private:
    QWidget& page_;
    std::function<void()> changed_;
};

} // namespace zolt

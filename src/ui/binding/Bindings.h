// Ties the widgets of an interface description to the control models of their owner, by the outlet's name.
#pragma once

#include "shell/Outlet.h"
#include "ui/binding/Binders.h"

#include <QWidget>

#include <functional>

namespace zolt {

/// The widget named like the outlet shows its model from then on, and what a person does with it reaches the model and
/// its action. A binding lives as long as its widget and keeps the model's one observer. A widget keeps its place while
/// the model hides it; while the model is disabled, the widget's property "whyDisabled" is its tool tip. Main thread.
class Bindings
{
public:
    /// @param page  the widget whose children are bound; outlives this object
    explicit Bindings(QWidget& page) : page_(page) {}

    /// Called after each change of a bound model has been shown.
    void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

    /// @throws AssertionException if the page holds no widget of that name, or one that cannot show the model
    template <class Model> void bind(const QString& outlet, const std::shared_ptr<Model>& model)
    {
        bindWidget(widgetOf(outlet), model, changed_);
    }
    /// As above, by the kind of the outlet's model.
    void bind(const Outlet& outlet);

private:
    QWidget& widgetOf(const QString& outlet) const;

    QWidget& page_;
    std::function<void()> changed_;
};

} // namespace zolt

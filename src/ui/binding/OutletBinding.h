// What every binding of a widget to a control model shares.
#pragma once

#include "platform/controls/Control.h"
#include "platform/errors/Exceptions.h"

#include <QSizePolicy>
#include <QWidget>

#include <functional>
#include <memory>

namespace zolt {

/// The widget as the kind that can show the model. @throws AssertionException if it is another
template <class Widget> Widget& shownBy(QWidget& widget)
{
    if (auto* const found = qobject_cast<Widget*>(&widget)) return *found;
    throw AssertionException(QStringLiteral("The outlet \"%1\" is a %2, which cannot show its model.")
                                 .arg(widget.objectName(), QString::fromLatin1(widget.metaObject()->className())));
}

/// A child of its widget, so that it goes with it. Main thread.
template <class Model, class Widget> class OutletBinding : public QObject, public ControlObserver
{
public:
    using Show = std::function<void(Widget& widget, const Model& model)>;

    /// @param show     brings what is special of the model on the widget
    /// @param changed  called after a change was shown; may be empty
    OutletBinding(Widget& widget, std::shared_ptr<Model> model, Show show, std::function<void()> changed)
        : QObject(&widget), widget_(widget), model_(std::move(model)), show_(std::move(show)),
          changed_(std::move(changed))
    {
        QSizePolicy policy = widget.sizePolicy();
        policy.setRetainSizeWhenHidden(true); // nothing around it moves when it goes
        widget.setSizePolicy(policy);
        ownToolTip_ = widget.toolTip();
        model_->setObserver(this);
        apply();
    }
    ~OutletBinding() override { model_->setObserver(nullptr); }

    void controlChanged(Control&) override
    {
        apply();
        if (changed_) changed_();
    }

private:
    void apply()
    {
        widget_.setEnabled(model_->isEnabled());
        widget_.setVisible(!model_->isHidden());
        widget_.setToolTip(toolTip());
        show_(widget_, *model_);
    }
    QString toolTip() const
    {
        const QString why = model_->isEnabled() ? QString() : widget_.property("whyDisabled").toString();
        if (!why.isEmpty()) return why;
        const QString told = model_->toolTip();
        return told.isEmpty() ? ownToolTip_ : told;
    }

    Widget& widget_;
    const std::shared_ptr<Model> model_;
    const Show show_;
    const std::function<void()> changed_;
    QString ownToolTip_;
};

/// The widget shows the model from now on.
template <class Model, class Widget, class Show>
void keepShown(Widget& widget, const std::shared_ptr<Model>& model, Show show, const std::function<void()>& changed)
{
    new OutletBinding<Model, Widget>(widget, model, std::move(show), changed);
}

} // namespace zolt

#include "ui/binding/WindowBinding.h"

#include "platform/errors/Exceptions.h"

#include <QEvent>
#include <QHash>

namespace zolt {

namespace {

constexpr qint64 pause = 250; // milliseconds between two raisings of a window that is up

QHash<const Window*, QWidget*>& shownWindows()
{
    static QHash<const Window*, QWidget*> table; // main thread only
    return table;
}

} // namespace

WindowBinding::WindowBinding(QWidget& widget, std::shared_ptr<Window> model)
    : QObject(&widget), widget_(widget), model_(std::move(model))
{
    shownWindows()[model_.get()] = &widget;
    model_->setObserver(this);
    widget.installEventFilter(this);
    controlChanged(*model_);
}

WindowBinding::~WindowBinding()
{
    model_->setObserver(nullptr);
    shownWindows().remove(model_.get());
}

QWidget* WindowBinding::widgetOf(const Window& window)
{
    return shownWindows().value(&window);
}

void WindowBinding::controlChanged(Control&)
{
    if (const QString title = model_->title(); !title.isEmpty()) widget_.setWindowTitle(title);
    const bool ordered = orders_ != model_->ordersToFront();
    orders_ = model_->ordersToFront();
    if (model_->isHidden()) {
        if (!widget_.isVisible()) return;
        widget_.hide();
        if (gone_) gone_();
    } else if (ordered) {
        bringToFront();
    }
}

void WindowBinding::bringToFront()
{
    const bool comesUp = !widget_.isVisible();
    if (comesUp && comingUp_) comingUp_();
    widget_.show();
    if (!comesUp && raised_.isValid() && raised_.elapsed() < pause)
        return; // a queue of small files orders it all the time
    raised_.start();
    widget_.raise();
    if (comesUp) widget_.activateWindow();
}

bool WindowBinding::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &widget_ && event->type() == QEvent::Close) {
        guarded("window", [this] {
            model_->close();
            if (gone_) gone_();
        });
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zolt

#include "ui/binding/WindowBinding.h"

#include "platform/errors/Exceptions.h"

#include <QAbstractSpinBox>
#include <QEvent>
#include <QHash>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace zolt {

namespace {

constexpr qint64 pause = 250; // milliseconds between two raisings of a window that is up

QHash<const Window*, QWidget*>& shownWindows()
{
    static QHash<const Window*, QWidget*> table; // main thread only
    return table;
}

bool isTypedIn(const QWidget* widget)
{
    const auto* const line = qobject_cast<const QLineEdit*>(widget);
    const auto* const text = qobject_cast<const QPlainTextEdit*>(widget);
    return (line && !line->isReadOnly()) || (text && !text->isReadOnly()) ||
           qobject_cast<const QAbstractSpinBox*>(widget);
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
    const QPointF place = model_->frameTopLeftPoint();
    if (std::exchange(place_, place) != place && widget_.isVisible() && moved_) moved_();
    const QRectF frame = model_->frame();
    if (std::exchange(frame_, frame) != frame && widget_.isVisible() && framed_) framed_();
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
    // A queue of small files orders it all the time.
    if (!comesUp && raised_.isValid() && raised_.elapsed() < pause) return;
    if (comesUp && dismissed_ && comesBack_ && !comesBack_()) return;
    dismissed_ = false;
    if (comesUp && comingUp_) comingUp_();
    const bool atWork = QApplication::activeWindow();
    const bool takesKeyboard = comesUp && atWork && !isTypedIn(QApplication::focusWidget());
    widget_.setAttribute(Qt::WA_ShowWithoutActivating, !takesKeyboard);
    widget_.show();
    if (!atWork) return; // another program has the screen
    if (!comesUp && keepsInFront_ && !keepsInFront_()) return;
    raised_.start();
    widget_.raise();
    if (takesKeyboard) widget_.activateWindow();
}

bool WindowBinding::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &widget_ && event->type() == QEvent::Close) {
        guarded("window", [this] {
            model_->close();
            dismissed_ = true;
            if (gone_) gone_();
        });
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zolt

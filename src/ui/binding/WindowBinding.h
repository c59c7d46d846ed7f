// Ties a window of the desktop to its model.
#pragma once

#include "platform/controls/Window.h"

#include <QElapsedTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace zolt {

/// Shows and hides the widget as the model says; a window that a person closes is closed in the model too. It takes the
/// keyboard only when it comes up: a queue that brings its panel forward with each task must not take the typing away.
/// A child of its widget. Main thread.
class WindowBinding : public QObject, public ControlObserver
{
public:
    WindowBinding(QWidget& widget, std::shared_ptr<Window> model);
    ~WindowBinding() override;

    /// Called just before the window shows for an order to the front.
    void setComingUp(std::function<void()> comingUp) { comingUp_ = std::move(comingUp); }
    /// Called after the window was hidden, by whomever.
    void setGone(std::function<void()> gone) { gone_ = std::move(gone); }

    void controlChanged(Control&) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// The widget that shows the window; none while it has none.
    static QWidget* widgetOf(const Window& window);

private:
    void bringToFront();

    QWidget& widget_;
    const std::shared_ptr<Window> model_;
    unsigned orders_ = 0;
    QElapsedTimer raised_;
    std::function<void()> comingUp_;
    std::function<void()> gone_;
};

} // namespace zolt

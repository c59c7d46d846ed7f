// Ties a window of the desktop to its model.
#pragma once

#include "platform/controls/Window.h"

#include <QElapsedTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace zolt {

/// Shows and hides the widget as the model says; a window that a person closes is closed in the model too. An order to
/// the front is followed while the program is the one that a person works with, and takes the keyboard only from where
/// nothing is typed; otherwise the window is shown without being activated. A child of its widget. Main thread.
class WindowBinding : public QObject, public ControlObserver
{
public:
    WindowBinding(QWidget& widget, std::shared_ptr<Window> model);
    ~WindowBinding() override;

    /// Called just before the window shows for an order to the front.
    void setComingUp(std::function<void()> comingUp) { comingUp_ = std::move(comingUp); }
    /// Called when the model's place has changed while the window is up.
    void setMoved(std::function<void()> moved) { moved_ = std::move(moved); }
    /// Called when the model's frame has changed while the window is up.
    void setFramed(std::function<void()> framed) { framed_ = std::move(framed); }
    /// Whether a window that is up already is raised by an order to the front; at first it is.
    void setKeepsInFront(std::function<bool()> keeps) { keepsInFront_ = std::move(keeps); }
    /// Whether a window that a person has closed comes up for an order to the front; at first it does.
    void setComesBack(std::function<bool()> comes) { comesBack_ = std::move(comes); }
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
    QPointF place_;
    QRectF frame_;
    std::function<void()> comingUp_;
    std::function<void()> moved_;
    std::function<void()> framed_;
    std::function<bool()> keepsInFront_;
    std::function<bool()> comesBack_;
    std::function<void()> gone_;
    bool dismissed_ = false; ///< a person has closed it since it was up last
};

} // namespace zolt

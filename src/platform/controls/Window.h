// A window's model.
#pragma once

#include "platform/controls/Control.h"

#include <QPointF>

namespace zolt {

/// Hidden until it is ordered to the front. Any thread may order it; the front end follows on the main thread.
class Window : public Control
{
public:
    Window() { setHidden(true); }

    QString title() const { return read(title_); }
    void setTitle(const QString& title) { write(title_, title); }

    /// The window is shown above the others and takes the keyboard.
    void makeKeyAndOrderFront();
    /// Counts the orders to the front, so that a view knows whether it has to act.
    unsigned ordersToFront() const { return ordersToFront_; }
    /// The window leaves the screen; it can be ordered to the front again.
    void close() { setHidden(true); }
    void orderOut() { setHidden(true); }
    bool isVisible() const { return !isHidden(); }

    /// Distance of the top left corner from the first window's place, in units to the right and down.
    QPointF frameTopLeftPoint() const { return read(topLeft_); }
    void setFrameTopLeftPoint(QPointF point) { write(topLeft_, point); }
    /// The place for this window when the one before stands at `point`: a step to the right and down, so that both
    /// title bars can be read. The zero point, where no window stands yet, is stepped from like any other.
    static QPointF cascadeTopLeftFromPoint(QPointF point) { return point + QPointF(cascadeStep, cascadeStep); }

    static constexpr double cascadeStep = 22.0; ///< units; the height of a title bar

private:
    QString title_;
    QPointF topLeft_;
    std::atomic<unsigned> ordersToFront_ = 0;
};

} // namespace zolt

// A window's model.
#pragma once

#include "platform/controls/Toolbar.h"

#include <QPointF>
#include <QRectF>

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

    /// Place and size with the title bar, in units. y counts upwards and is that of the lower edge.
    QRectF frame() const { return read(frame_); }
    /// @param display  draws the window anew
    /// @param animate  a front end goes there in steps that can be seen
    void setFrame(const QRectF& frame, bool display = true, bool animate = false);
    bool animatesFrame() const { return animatesFrame_; }
    /// What a frame leaves beside the title bar.
    static QRectF contentRectForFrameRect(const QRectF& frame) { return frame.adjusted(0, 0, 0, -titleBarHeight); }
    /// What is left to the content beside the toolbar, within the content rectangle.
    QRectF contentViewFrame() const;

    /// None for a window without. Main thread.
    const std::shared_ptr<Toolbar>& toolbar() const { return toolbar_; }
    /// Puts a toolbar on the window, which has it ask for its items. Main thread.
    void setToolbar(const std::shared_ptr<Toolbar>& toolbar);

    static constexpr double titleBarHeight = 22.0;        ///< units; reckoned with whatever the desktop draws
    static constexpr double cascadeStep = titleBarHeight; ///< units

private:
    QString title_;
    QPointF topLeft_;
    QRectF frame_;
    std::atomic<bool> animatesFrame_ = false;
    std::shared_ptr<Toolbar> toolbar_;
    std::atomic<unsigned> ordersToFront_ = 0;
};

} // namespace zolt

#include "platform/controls/Window.h"

namespace zolt {

void Window::makeKeyAndOrderFront()
{
    ++ordersToFront_;
    setHidden(false);
    changed();
}

void Window::setFrame(const QRectF& frame, bool display, bool animate)
{
    animatesFrame_ = animate;
    write(frame_, frame);
    if (display) changed();
}

QRectF Window::contentViewFrame() const
{
    const QRectF content = contentRectForFrameRect(frame());
    const double taken = toolbar_ && toolbar_->isVisible() ? toolbar_->height() : 0.0;
    return {0.0, 0.0, content.width(), content.height() - taken};
}

void Window::setToolbar(const std::shared_ptr<Toolbar>& toolbar)
{
    toolbar_ = toolbar;
    toolbar_->insertDefaultItems();
    changed();
}

} // namespace zolt

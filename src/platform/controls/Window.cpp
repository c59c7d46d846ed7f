#include "platform/controls/Window.h"

namespace zolt {

void Window::makeKeyAndOrderFront()
{
    ++ordersToFront_;
    setHidden(false);
    changed();
}

} // namespace zolt

// The menu on the program's icon.
#pragma once

#include "platform/controls/Control.h"

namespace zolt {

/// Main thread.
class DockMenuController
{
public:
    /// @param delegateSelectTab  selectTab of the application's delegate; an empty one stands for no delegate
    explicit DockMenuController(std::function<void(Sender)> delegateSelectTab)
        : delegateSelectTab_(std::move(delegateSelectTab))
    {
    }

    /// Hands the sender on to the application's delegate; the sender's tag is the index of a tab.
    void selectTab(Sender sender) const
    {
        if (delegateSelectTab_) delegateSelectTab_(sender);
    }

private:
    std::function<void(Sender)> delegateSelectTab_;
};

} // namespace zolt

#include "platform/controls/Control.h"

#include "platform/threads/MainQueue.h"

namespace zolt {

void Control::performAction()
{
    const auto self = weak_from_this().lock(); // the action may drop the control
    if (const auto saver = saver_) saver();
    if (const auto action = action_) action();
}

void Control::setFlag(std::atomic<bool>& flag, bool value)
{
    if (flag.exchange(value) != value) changed();
}

void Control::changed()
{
    if (!observer_ || changePosted_.exchange(true)) return;
    postToMain([weak = weak_from_this()] {
        if (const auto control = weak.lock()) control->deliver();
    });
}

void Control::deliver()
{
    changePosted_ = false; // first, so that a write during the delivery is delivered too
    if (ControlObserver* const observer = observer_) observer->controlChanged(*this);
}

} // namespace zolt

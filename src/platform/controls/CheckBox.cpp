#include "platform/controls/CheckBox.h"

namespace zolt {

void CheckBox::click()
{
    if (!isEnabled()) return;
    setState(!state());
    performAction();
}

} // namespace zolt

#include "platform/controls/Button.h"

namespace zolt {

const ButtonStyle& Button::pushStyle()
{
    static const ButtonStyle style;
    return style;
}

} // namespace zolt

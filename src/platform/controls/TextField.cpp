#include "platform/controls/TextField.h"

namespace zolt {

void TextField::enterText(const QString& text)
{
    if (!isEnabled()) return;
    setStringValue(text);
    performAction();
}

const TextFieldStyle& TextField::editableStyle()
{
    static const TextFieldStyle style;
    return style;
}

const TextFieldStyle& TextField::labelStyle()
{
    static const TextFieldStyle style{.border = false, .editable = false, .controlColourBackground = true};
    return style;
}

} // namespace zolt

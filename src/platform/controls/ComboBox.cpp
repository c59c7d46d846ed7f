#include "platform/controls/ComboBox.h"

namespace zolt {

int ComboBox::selectedIndex() const
{
    const std::lock_guard guard(mutex_);
    return int(items_.indexOf(text_));
}

void ComboBox::selectIndex(int index)
{
    const QStringList all = items();
    if (index >= 0 && index < all.size()) setStringValue(all[index]);
}

void ComboBox::enterText(const QString& text)
{
    if (!isEnabled()) return;
    setStringValue(text);
    performAction();
}

} // namespace zolt

#include "platform/controls/TabView.h"

namespace zolt {

TabView::Item TabView::selectedTabViewItem() const
{
    return items_.empty() ? nullptr : items_[std::size_t(selected_)];
}

void TabView::selectTabViewItemAtIndex(int index)
{
    if (index < 0 || std::size_t(index) >= items_.size()) return;
    selected_ = index;
    changed();
    if (didSelect_) didSelect_(items_[std::size_t(index)]);
}

void TabView::selectTabViewItemWithLabel(const QString& label)
{
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const Item& each) { return each->label() == label; });
    if (found != items_.end()) selectTabViewItemAtIndex(int(found - items_.begin()));
}

} // namespace zolt
